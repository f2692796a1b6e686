#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cli/RunTool.h"
#include "helpers/DeepTree.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::DeepTree;
using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;
using testing::ToolSurroundings;
using testing::writeProject;

constexpr rlim_t kStep = rlim_t{512} << 10;

ToolResult runToolWithin(rlim_t addressSpace, const std::vector<std::string>& arguments) {
  ToolSurroundings surroundings;
  surroundings.addressSpace = addressSpace;
  return runTool(arguments, surroundings);
}

/// The least address space, in whole steps, in which the tool starts at all.
rlim_t leastToStart() {
  rlim_t space = kStep;
  while (space < (rlim_t{1} << 30) && runToolWithin(space, {"--version"}).status != 0)
    space += kStep;
  return space;
}

/// Two folders, so that two threads walk; the names take several megabytes. The references lie behind them.
std::string bigProject(const TemporaryFolder& folder) {
  for (const std::string inside : {"one/", "two/"}) {
    for (int i = 0; i < 6000; ++i)
      folder.file(inside + std::string(240, 'x') + std::to_string(i), "");
  }
  std::vector<std::string> references;
  for (int i = 0; i < 40; ++i) {
    references.push_back("a" + std::to_string(i) + ".m");
    folder.file("two/" + references.back(), "int a;\n");
  }
  return writeProject(folder, references);
}

TEST(LittleMemory, IsAFailureThatTheUserIsToldOf) {
  const TemporaryFolder folder;
  const std::string project = bigProject(folder);
  const rlim_t least = leastToStart();
  const ToolResult whole = runTool({"measure", "--format", "csv", project});
  ASSERT_EQ(whole.status, 0);
  int failures = 0;
  ToolResult result;
  for (rlim_t space = least; space < least + 64 * kStep; space += kStep) {
    result = runToolWithin(space, {"measure", "--format", "csv", project});
    if (result.status == 0) {
      EXPECT_EQ(result.output, whole.output) << space << ": a success is complete";
      EXPECT_EQ(result.errors, "") << space;
      continue;
    }
    ++failures;
    EXPECT_EQ(result.output, "") << space;
    EXPECT_EQ(result.status, 3) << space << ": " << result.errors;
    EXPECT_EQ(result.errors, "quillmeter-cli: Not enough memory to do this\n") << space;
    EXPECT_EQ(result.output, "") << space;
  }
  EXPECT_GT(failures, 0) << "nothing was scarce";
  // On a slow disk there are more threads, which need room for their stacks.
  for (rlim_t space = least + 64 * kStep; result.status != 0 && space < (rlim_t{1} << 36); space *= 2)
    result = runToolWithin(space, {"measure", "--format", "csv", project});
  EXPECT_EQ(result.status, 0) << "all of it was scarce: " << result.errors;
}

TEST(LittleMemory, IsEnoughForReferencesOfThousandsOfDepths) {
  const TemporaryFolder folder;
  constexpr int kLevels = 2000;
  const DeepTree tree(folder.path(), kLevels);
  std::vector<std::string> references;
  std::string reference = "z.m";
  for (int level = 0; level < kLevels; ++level, reference = "d/" + reference)
    references.push_back(reference);
  const std::string project = writeProject(folder, references);
  const ToolResult result = runTool({"measure", "--format", "csv", project});
  constexpr long most = 100 << 10;
  EXPECT_LT(result.peakMemory, most) << "KiB; the address space also holds stacks and heaps of all threads";
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), kLevels + 1);
}

}  // namespace
}  // namespace quillmeter
