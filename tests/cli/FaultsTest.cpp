#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/RunTool.h"
#include "helpers/DeepTree.h"
#include "helpers/ProjectFixture.h"
#include "helpers/Unprivileged.h"

/// What the tool does about what it cannot list or read.
namespace quillmeter {
namespace {

using nlohmann::json;
using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;
using testing::ToolSurroundings;
using testing::writeProject;

ToolResult runToolWithFiles(rlim_t files, const std::vector<std::string>& arguments) {
  ToolSurroundings surroundings;
  surroundings.openFiles = files;
  return runTool(arguments, surroundings);
}

/// Sixty folders inside each other, with a file at each end.
std::string deepProject(const TemporaryFolder& folder) {
  std::string path;
  for (int level = 0; level < 60; ++level) {
    folder.file(path + "side/other.txt");
    path += "d/";
  }
  folder.file(path + "deepest.m", "int a;\nint b;");
  folder.file("a.m", "int a;");
  return writeProject(folder, {"a.m", "deepest.m"});
}

TEST(Faults, FewDescriptorsLoseNoFile) {
  const TemporaryFolder folder;
  const std::string project = deepProject(folder);
  const ToolResult whole = runTool({"measure", "--format", "csv", project});
  for (const rlim_t files : {rlim_t{4}, rlim_t{5}, rlim_t{8}, rlim_t{16}, rlim_t{40}}) {
    const ToolResult result = runToolWithFiles(files, {"measure", "--format", "csv", project});
    EXPECT_EQ(result.status, 0) << files;
    EXPECT_EQ(result.output, whole.output) << files;
    EXPECT_EQ(result.errors, "") << files;
  }
}

TEST(Faults, TooFewDescriptorsAreAFailureThatSaysWhy) {
  const TemporaryFolder folder;
  const testing::DeepTree tree(folder.path(), 2100);  // such a long path takes two at a time
  folder.file("a.m");
  const std::string project = writeProject(folder, {"a.m"});
  for (const char* command : {"measure", "cleanup"}) {
    const ToolResult result = runToolWithFiles(4, {command, project});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.output, "");
    EXPECT_TRUE(result.errors.ends_with(": Too many open files\n")) << result.errors;
    EXPECT_EQ(runToolWithFiles(5, {command, project}).status, 0);
  }
}

class FaultsOfPermission : public ::testing::Test {
 protected:
  FaultsOfPermission() {
    folder.file("main.c", "int x;\n");
    folder.file("secret.c", "int x;\n");
    folder.file("closed/other.c", "int x;\n");
    bundle = writeProject(folder, {"main.c", "secret.c"});
    EXPECT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(::chmod(outputs.path().c_str(), 0755), 0);
    EXPECT_EQ(::chmod((folder / "secret.c").c_str(), 0), 0);
    EXPECT_EQ(::chmod((folder / "closed").c_str(), 0), 0);
  }
  ~FaultsOfPermission() override { ::chmod((folder / "closed").c_str(), 0755); }

  TemporaryFolder folder;
  TemporaryFolder outputs;
  std::string bundle;
};

TEST_F(FaultsOfPermission, OfAProjectAreTheOnlyReasonThatIsGiven) {
  const std::string description = bundle + "/project.pbxproj";
  const auto expectReason = [&](const std::string& path) {
    const testing::Unprivileged unprivileged;
    const ToolResult result = runTool({"measure", bundle});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.errors, "quillmeter-cli: " + path + ": Permission denied\n");
  };
  EXPECT_EQ(::chmod(description.c_str(), 0), 0);
  expectReason(description);
  EXPECT_EQ(::chmod(folder.path().c_str(), 0), 0);
  expectReason(bundle);
  EXPECT_EQ(::chmod(folder.path().c_str(), 0755), 0);
}

TEST_F(FaultsOfPermission, AreToldOnceWithTheirNumberAndTheFirst) {
  const testing::Unprivileged unprivileged;
  const ToolResult result = runTool({"measure", "--format", "json", bundle});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "quillmeter-cli: 2 files or folders could not be read, the first of them " +
                               (folder / "closed") + ": Permission denied\n");
  const json measured = json::parse(result.output);
  ASSERT_EQ(measured["files"].size(), 2U);
  EXPECT_EQ(measured["files"][1]["noLinesTotal"], 0);
}

TEST_F(FaultsOfPermission, AreToldByEveryCommandThatReadsAProject) {
  const std::string before =
      outputs.file("before.json", runTool({"measure", "--format", "json", bundle}).output);
  const testing::Unprivileged unprivileged;
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"cleanup", bundle},
                                                    {"export", "--csv", "-", bundle},
                                                    {"report", "--html", "-", bundle},
                                                    {"references", bundle},
                                                    {"compare", before, bundle},
                                                    {"compare", bundle, before}}) {
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.status, 0) << arguments.front();
    EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1)
        << arguments.front() << ": " << result.errors;
    EXPECT_NE(result.errors.find("2 files or folders could not be read"), std::string::npos)
        << arguments.front() << ": " << result.errors;
  }
}

TEST(Faults, OneIsToldAsOne) {
  const TemporaryFolder folder;
  ASSERT_EQ(::symlink("/proc/self/status", (folder / "endless.m").c_str()), 0);
  folder.file("a.m");
  const ToolResult result = runTool({"measure", writeProject(folder, {"a.m", "endless.m"})});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "quillmeter-cli: one file or folder could not be read: " + (folder / "endless.m") +
                               ": Operation not permitted\n");
}

TEST(Faults, OfTheDiskLetCleanupGiveNoList) {
  const TemporaryFolder folder;
  folder.file("a.m");
  folder.file("left.m");
  // The first page of a process is never there: reading it is an input/output error.
  ASSERT_EQ(::symlink("/proc/self/mem", (folder / "bad.m").c_str()), 0);
  const std::string project = writeProject(folder, {"a.m", "bad.m"});
  const ToolResult result = runTool({"cleanup", "--check", project});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find((folder / "bad.m") + ": Input/output error\n"), std::string::npos)
      << result.errors;
  EXPECT_NE(result.errors.find("no list"), std::string::npos) << result.errors;
  const ToolResult measured = runTool({"measure", project});
  EXPECT_EQ(measured.status, 0) << "measuring goes on with a warning";
  EXPECT_NE(measured.errors.find("Input/output error"), std::string::npos) << measured.errors;
}

TEST(Faults, ADescriptionThatIsTooLargeIsNamed) {
  const TemporaryFolder folder;
  const std::string project = writeProject(folder, {"a.m"});
  ASSERT_EQ(::truncate((project + "/project.pbxproj").c_str(), (off_t{1} << 30) + 1), 0);
  const ToolResult result = runTool({"measure", project});
  EXPECT_EQ(result.status, 3);
  EXPECT_NE(result.errors.find(project + "/project.pbxproj: it is larger than 1 GiB"), std::string::npos)
      << result.errors;
}

}  // namespace
}  // namespace quillmeter
