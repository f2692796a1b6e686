#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using nlohmann::json;
using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;
using testing::writeProject;

/// A project that references one file.
class CleanupCommand : public ::testing::Test {
 protected:
  CleanupCommand() {
    folder.file("main.c", "int x;\n");
    bundle = writeProject(folder, {"main.c"});
  }
  TemporaryFolder folder;
  std::string bundle;
};

TEST_F(CleanupCommand, ListsWhatIsNotReferencedInTheOrderOfNames) {
  folder.file("z/b.m", std::string(1234567, 'x'));
  folder.file("A.png", std::string(1500, 'x'));
  folder.file("a.h");
  folder.file(".hidden.c");
  folder.file("notes.txt");
  const ToolResult result = runTool({"cleanup", folder.path()}, {.variables = {"LC_ALL=en_US.UTF-8"}});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output, "Size (KB)  Path\n        0  " + (folder / "a.h") + "\n      1.5  " +
                               (folder / "A.png") + "\n 1,234.57  " + (folder / "z/b.m") + "\n");
}

TEST_F(CleanupCommand, AlignsSizesByCharacters) {
  // A French group is parted by a space of three bytes.
  folder.file("A.png", std::string(1500, 'x'));
  std::filesystem::resize_file(folder.file("b.m"), 123'456'789);
  EXPECT_EQ(runTool({"cleanup", folder.path()}, {.variables = {"LC_ALL=fr_FR.UTF-8"}}).output,
            " Size (KB)  Path\n       1,5  " + (folder / "A.png") + "\n123\u202F456,79  " + (folder / "b.m") +
                "\n");
}

TEST_F(CleanupCommand, CongratulatesACleanProject) {
  const ToolResult result = runTool({"cleanup", "--check", bundle});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output,
            "Your project is clean and safe.\nThere are no inconsistencies, congratulations!\n");
}

TEST_F(CleanupCommand, WritesJson) {
  folder.file("b.m", "12345");
  folder.file("A.png");
  const ToolResult result = runTool({"cleanup", "--format", "json", folder.path()});
  EXPECT_EQ(result.status, 0);
  const json expected = {{"files",
                          {{{"fileName", "A.png"}, {"filePath", folder / "A.png"}, {"fileSize", 0}},
                           {{"fileName", "b.m"}, {"filePath", folder / "b.m"}, {"fileSize", 5}}}}};
  EXPECT_EQ(json::parse(result.output), expected);
  EXPECT_TRUE(result.output.ends_with("\n]}\n")) << "and no empty line behind it";
}

TEST_F(CleanupCommand, ACleanProjectIsAnEmptyListAsJson) {
  const ToolResult result = runTool({"cleanup", "--format", "json", folder.path()});
  EXPECT_EQ(json::parse(result.output), json::parse(R"({"files": []})"));
}

TEST_F(CleanupCommand, ACheckFailsOnAnyFindingAndStillListsIt) {
  folder.file("left.c");
  for (const char* format : {"table", "json"}) {
    const ToolResult result = runTool({"cleanup", "--check", "--format", format, folder.path()});
    EXPECT_EQ(result.status, 1) << format;
    EXPECT_NE(result.output.find("left.c"), std::string::npos) << format;
  }
}

TEST_F(CleanupCommand, NoNameBreaksALineOfTheTable) {
  folder.file("two\nlines\x1B[31m.c");
  const ToolResult result = runTool({"cleanup", folder.path()});
  EXPECT_EQ(result.output, "Size (KB)  Path\n        0  " + (folder / "two lines [31m.c") + "\n");
}

TEST_F(CleanupCommand, ANameThatIsNotUtf8SurvivesInJson) {
  folder.file("a\xFF.c");
  const ToolResult result = runTool({"cleanup", "--format", "json", folder.path()});
  EXPECT_NE(result.output.find("a\\udcff.c"), std::string::npos) << result.output;
}

TEST_F(CleanupCommand, AFolderWithoutAProjectCannotBeCleanedUp) {
  const TemporaryFolder empty;
  const ToolResult result = runTool({"cleanup", empty.path()});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors, "");
}

TEST_F(CleanupCommand, WrongUsageIsToldApart) {
  EXPECT_EQ(runTool({"cleanup"}).status, 2);
  EXPECT_EQ(runTool({"cleanup", "--format", "csv", folder.path()}).status, 2);
}

TEST_F(CleanupCommand, AnOutputThatCannotBeWrittenIsAnError) {
  folder.file("left.c");
  const ToolResult result = runTool({"cleanup", "--check", folder.path()}, {.standardOutput = "/dev/full"});
  EXPECT_EQ(result.status, 4) << "also where the check would have failed";
}

}  // namespace
}  // namespace quillmeter
