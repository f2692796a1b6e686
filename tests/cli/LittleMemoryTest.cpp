#include <gtest/gtest.h>

#include <string>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

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

/// Two folders, so that two threads walk; the names take several megabytes.
std::string bigProject(const TemporaryFolder& folder) {
  for (const std::string inside : {"one/", "two/"}) {
    for (int i = 0; i < 6000; ++i)
      folder.file(inside + std::string(240, 'x') + std::to_string(i), "");
  }
  folder.file("a.m", "int a;\n");
  return writeProject(folder, {"a.m"});
}

TEST(LittleMemory, IsAFailureThatTheUserIsToldOf) {
  const TemporaryFolder folder;
  const std::string project = bigProject(folder);
  const rlim_t least = leastToStart();
  const std::string figures = runTool({"measure", project}).output;
  int failures = 0;
  ToolResult result;
  for (rlim_t space = least; space < least + 64 * kStep; space += kStep) {
    result = runToolWithin(space, {"measure", project});
    if (result.status == 0) {
      EXPECT_EQ(result.output, figures) << space;
      EXPECT_EQ(result.errors, "") << space;
      continue;
    }
    ++failures;
    EXPECT_EQ(result.status, 3) << space << ": " << result.errors;
    EXPECT_EQ(result.errors, "quillmeter-cli: Not enough memory to do this\n") << space;
    EXPECT_EQ(result.output, "") << space;
  }
  EXPECT_GT(failures, 0) << "nothing was scarce";
  EXPECT_EQ(result.status, 0) << "all of it was scarce: " << result.errors;
}

}  // namespace
}  // namespace quillmeter
