#include <gmock/gmock.h>

#include <filesystem>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using testing::readFile;
using testing::runTool;
using ::testing::StartsWith;
using testing::TemporaryFolder;
using testing::ToolResult;
using testing::writeProject;

const std::string kHeader =
    "\"Type\",\"Filename\",\"Lines of code\",\"Lines of code without empty "
    "lines\",\"Words\",\"Chars\",\"Size(KB)\"";
const std::string kRows =
    "\n\"source\",\"a.m\",\"3\",\"2\",\"5\",\"13\",\"0.01\""
    "\n\"image\",\"B.png\",\"\",\"\",\"\",\"\",\"0.00\""
    "\n\"source\",\"c.c\",\"2\",\"1\",\"2\",\"6\",\"0.01\"";

class ExportCommand : public ::testing::Test {
 protected:
  ExportCommand() {
    project.file("a.m", "// one\nint  a;\n");
    project.file("B.png", "1234");
    project.file("c.c", "int c;\n");
    bundle = writeProject(project, {"c.c", "B.png", "a.m"});
  }

  TemporaryFolder project;
  TemporaryFolder folder;
  std::string bundle;
};

TEST_F(ExportCommand, WritesTheTableToAFile) {
  const ToolResult result = runTool({"export", "--csv", folder / "out.csv", project.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output + result.errors, "");
  EXPECT_EQ(readFile(folder / "out.csv"), kHeader + kRows);
}

TEST_F(ExportCommand, DashIsStandardOutput) {
  const ToolResult result = runTool({"export", "--csv", "-", bundle});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, kHeader + kRows);
}

TEST_F(ExportCommand, ExportsTheChosenKinds) {
  EXPECT_EQ(runTool({"export", "--csv", "-", "--kinds", "images", bundle}).output,
            kHeader + "\n\"image\",\"B.png\",\"\",\"\",\"\",\"\",\"0.00\"");
  EXPECT_EQ(runTool({"export", "--csv", "-", "--kinds", "xib,headers", bundle}).output, kHeader);
}

TEST_F(ExportCommand, MistakesAreWrongUsage) {
  const std::vector<std::vector<std::string>> mistakes = {
      {"export"},
      {"export", bundle},
      {"export", "--csv", "-", "--kinds", "swift", bundle},
      {"export", "--csv", "-", "--kinds", "", bundle},
      {"export", "--csv", "-", "--pdf", "-", bundle},
      {"export", "--csv", "-", "--unknown", bundle},
  };
  for (const auto& arguments : mistakes) {
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.status, 2) << arguments.size();
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors, "");
  }
}

TEST_F(ExportCommand, ProjectWithoutFilesIsNotExported) {
  const ToolResult result = runTool({"export", "--csv", folder / "out.csv", folder / "missing"});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.errors, HasSubstr("no such file or folder"));
  EXPECT_FALSE(std::filesystem::exists(folder / "out.csv"));
}

TEST_F(ExportCommand, PlaceThatCannotBeWrittenIsNamed) {
  const ToolResult result = runTool({"export", "--csv", folder / "missing/out.csv", bundle});
  EXPECT_EQ(result.status, 4);
  EXPECT_THAT(result.errors,
              AllOf(HasSubstr(folder / "missing/out.csv"), HasSubstr("No such file or directory")));
}

TEST_F(ExportCommand, FullDiskIsAFailedOutput) {
  const ToolResult result = runTool({"export", "--csv", "-", bundle}, {.standardOutput = "/dev/full"});
  EXPECT_EQ(result.status, 4);
  EXPECT_THAT(result.errors, HasSubstr("standard output"));
}

TEST_F(ExportCommand, HelpTellsTheOptions) {
  const ToolResult result = runTool({"export", "--help"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.output, AllOf(HasSubstr("--csv"), HasSubstr("--pdf"), HasSubstr("--kinds")));
}

TEST_F(ExportCommand, MissingApplicationIsAFailedOutput) {
  // A copy of the tool in a folder of its own has no application beside it.
  const std::string tool = folder / "quillmeter-cli";
  std::filesystem::copy_file(QUILLMETER_BINARY_DIR "/bin/quillmeter-cli", tool);
  folder.file("out.pdf", "old");
  const std::string command = "'" + tool + "' export --pdf '" + (folder / "out.pdf") + "' --csv '" +
                              (folder / "out.csv") + "' '" + bundle + "' 2>'" + (folder / "errors") + "'";
  const int status = std::system(command.c_str());
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 4);
  EXPECT_THAT(readFile(folder / "errors"), AllOf(HasSubstr("cannot make the PDF report"),
                                                 HasSubstr("missing"), HasSubstr(folder / "quillmeter")));
  EXPECT_EQ(readFile(folder / "out.pdf"), "old");
  EXPECT_EQ(readFile(folder / "out.csv"), kHeader + kRows);
}

#ifdef QUILLMETER_HAS_APPLICATION

TEST_F(ExportCommand, WritesTheReportWithoutADisplay) {
  const ToolResult result = runTool({"export", "--pdf", folder / "out.pdf", project.path()},
                                    {.variables = {"DISPLAY=", "WAYLAND_DISPLAY=", "QT_QPA_PLATFORM=xcb"}});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output + result.errors, "");
  EXPECT_THAT(readFile(folder / "out.pdf"), StartsWith("%PDF-"));
}

TEST_F(ExportCommand, ReportToStandardOutputIsTheWholeDocument) {
  const ToolResult result = runTool({"export", "--pdf", "-", bundle});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.output, AllOf(StartsWith("%PDF-"), ::testing::EndsWith("%%EOF\n")));
}

TEST_F(ExportCommand, BothAtOnceIsFine) {
  const ToolResult result = runTool({"export", "--pdf", folder / "out.pdf", "--csv", "-", bundle});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, kHeader + kRows);
  EXPECT_THAT(readFile(folder / "out.pdf"), StartsWith("%PDF-"));
}

TEST_F(ExportCommand, RelativeDestinationsAreTakenFromTheWorkingFolder) {
  const ToolResult result =
      runTool({"export", "--pdf", "out.pdf", "--csv", "out.csv", bundle}, {.folder = folder.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(std::filesystem::exists(folder / "out.pdf"));
  EXPECT_TRUE(std::filesystem::exists(folder / "out.csv"));
}

TEST_F(ExportCommand, ReportThatCannotBeWrittenIsNamed) {
  folder.folder("out.pdf");
  const ToolResult result = runTool({"export", "--pdf", folder / "out.pdf", bundle});
  EXPECT_EQ(result.status, 4);
  EXPECT_THAT(result.errors, AllOf(HasSubstr(folder / "out.pdf"), HasSubstr("directory")));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "out.pdf"));
  const ToolResult full = runTool({"export", "--pdf", "-", bundle}, {.standardOutput = "/dev/full"});
  EXPECT_EQ(full.status, 4);
  EXPECT_THAT(full.errors, HasSubstr("standard output"));
}

TEST_F(ExportCommand, ReportNamesNeedNotBeUtf8) {
  const ToolResult result = runTool({"export", "--pdf", folder / "\xFF.pdf", bundle});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(readFile(folder / "\xFF.pdf"), StartsWith("%PDF-"));
}

#endif

}  // namespace
}  // namespace quillmeter
