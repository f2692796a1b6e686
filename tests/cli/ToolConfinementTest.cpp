#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"
#include "support/Confinement.h"

namespace quillmeter {
namespace {

using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;

Confinement inForceHere() {
  Confinement result;
  std::thread([&result] { result = confineThread(); }).join();
  return result;
}

TEST(ToolConfinement, SaysWhatIsInForce) {
  const ToolResult result = runTool({"--version", "--verbose"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output,
            runTool({"--version"}).output + "While it reads: " + confinementText(inForceHere()) + "\n");
  EXPECT_EQ(runTool({"--verbose", "measure", "/"}).status, 2);
}

#ifdef QUILLMETER_TRY_FORBIDDEN

TEST(ToolConfinement, EveryCommandCanOnlyReadAndWriteItsOutputs) {
  const Confinement inForce = inForceHere();
  if (inForce.files == 0 || !inForce.network) GTEST_SKIP() << "this kernel cannot confine all of it";
  const TemporaryFolder project;
  const TemporaryFolder outputs;
  project.file("a.m", "int a;\n");
  project.file("left.m", "int a;\n");
  const std::string bundle = testing::writeProject(project, {"a.m"});
  const std::string forbidden = project / "forbidden";
  const testing::ToolSurroundings surroundings{
      .variables = {"LD_PRELOAD=" QUILLMETER_TRY_FORBIDDEN, "QUILLMETER_FORBIDDEN_FILE=" + forbidden}};
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"measure", bundle},
                                                    {"measure", "-o", outputs / "out", bundle},
                                                    {"cleanup", bundle},
                                                    {"methods", project / "a.m"},
                                                    {"export", "--csv", outputs / "out", bundle}}) {
    const ToolResult result = runTool(arguments, surroundings);
    EXPECT_EQ(result.status, 0) << arguments.front();
    EXPECT_EQ(result.errors, "[cannot write][cannot connect][read]") << arguments.front();
    EXPECT_FALSE(std::filesystem::exists(forbidden)) << arguments.front();
  }
}

#endif

}  // namespace
}  // namespace quillmeter
