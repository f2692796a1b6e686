#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/RunTool.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;

/// What the tool says to a project that is none, behind its name.
std::string answerTo(const std::string& project) {
  const ToolResult result = runTool({"measure", project});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.output, "");
  const std::string prefix = "quillmeter-cli: ";
  EXPECT_TRUE(result.errors.starts_with(prefix) && result.errors.ends_with("\n")) << result.errors;
  return result.errors.substr(prefix.size(), result.errors.size() - prefix.size() - 1);
}

/// A folder "Notebook" with a project in it.
class WrongProject : public ::testing::Test {
 protected:
  WrongProject() {
    notebook.file("Notebook/Model/Note.m", "int a;\n");
    project = notebook / "Notebook";
    std::filesystem::create_directories(project + "/App.xcodeproj");
    notebook.file("Notebook/App.xcodeproj/project.pbxproj", "");
  }

  TemporaryFolder notebook;
  std::string project;
};

TEST_F(WrongProject, AMisspeltFolderNamesTheNearest) {
  EXPECT_EQ(answerTo(notebook / "Notbook"),
            notebook / "Notbook" + ": no such file or folder, did you mean " + project + "?");
  EXPECT_EQ(answerTo(notebook / "zebra"), notebook / "zebra" + ": no such file or folder");
}

TEST_F(WrongProject, AFileNamesTheProjectThatItLiesIn) {
  const std::string file = project + "/Model/Note.m";
  EXPECT_EQ(answerTo(file),
            file + " is no folder, so it holds no .xcodeproj bundle, did you mean " + project + "?");
  const std::string description = project + "/App.xcodeproj/project.pbxproj";
  EXPECT_EQ(answerTo(description), description +
                                       " is no folder, so it holds no .xcodeproj bundle, did you mean " +
                                       project + "/App.xcodeproj?");
}

TEST_F(WrongProject, AFolderInsideNamesTheProject) {
  EXPECT_EQ(answerTo(project + "/Model"),
            project + "/Model holds no .xcodeproj bundle, did you mean " + project + "?");
}

TEST_F(WrongProject, AFolderOfProjectsNamesTheFirstOfThem) {
  EXPECT_EQ(answerTo(notebook.path()),
            notebook.path() + " holds no .xcodeproj bundle, did you mean " + project + "?");
  for (const std::string name : {"A", "B", "C"})
    std::filesystem::create_directories(notebook / name + "/" + name + ".xcodeproj");
  EXPECT_EQ(answerTo(notebook.path()), notebook.path() + " holds no .xcodeproj bundle, did you mean " +
                                           (notebook / "A") + " or " + (notebook / "B") + " or " +
                                           (notebook / "C") + "?");
}

}  // namespace
}  // namespace quillmeter
