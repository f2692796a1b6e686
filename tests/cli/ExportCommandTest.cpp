#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::readFile;
using testing::runTool;
using ::testing::StartsWith;
using testing::TemporaryFolder;
using testing::ToolResult;
using testing::writeProject;

/// A command for the shell that gives the tool the arguments; to run it in surroundings that a shell sets up.
std::string toolCommand(const std::string& arguments) {
  return "'" QUILLMETER_BINARY_DIR "/bin/quillmeter-cli' export --quiet " + arguments;
}

/// Runs a command of the shell; gives the status as `waitpid` does.
int runShell(const std::string& command) {
  return std::system(command.c_str());
}

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

  /// The bundle of a project whose table and report are far longer than one block of a disk.
  [[nodiscard]] std::string longProject() const {
    return writeProject(project, std::vector<std::string>(500, "a.m"));
  }

  /// The names in the folder of the outputs, hidden ones included.
  [[nodiscard]] std::vector<std::string> entries() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
      names.push_back(entry.path().filename().string());
    return names;
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
      {"export", "--csv", folder / "out", "--pdf", folder / "out", bundle},
      {"export", "--csv", folder / "out", "--pdf", folder / "./out", bundle},
      {"export", "--csv", "-", "--unknown", bundle},
  };
  for (const auto& arguments : mistakes) {
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.status, 2) << arguments.size();
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors, "");
  }
  EXPECT_THAT(entries(), ::testing::IsEmpty());
}

TEST_F(ExportCommand, AWrongKindIsNamedWithTheNearest) {
  const auto told = [&](const std::string& kinds) {
    return runTool({"export", "--csv", "-", "--kinds", kinds, bundle}).errors;
  };
  const std::string known = "' is none of c, headers, objc, images, xib";
  EXPECT_EQ(told("foo"), "quillmeter-cli: export: --kinds: 'foo" + known + "\n");
  EXPECT_EQ(told("c,header,foo"),
            "quillmeter-cli: export: --kinds: 'header" + known + ", did you mean headers?\n");
  EXPECT_EQ(told("c,"), "quillmeter-cli: export: --kinds: '" + known + "\n");
  EXPECT_EQ(told("two\nlines"), "quillmeter-cli: export: --kinds: 'two lines" + known + "\n");
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
  EXPECT_THAT(result.errors, HasSubstr("standard output: No space left on device"));
}

TEST_F(ExportCommand, OldTableSurvivesAToolThatIsKilledWhileItWrites) {
  folder.file("out.csv", "old");
  // The system kills a process at the first byte that it writes beyond the limit.
  const int status = runShell("ulimit -c 0; ulimit -f 1; exec " +
                              toolCommand("--csv '" + (folder / "out.csv") + "' '" + longProject() + "'"));
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
  EXPECT_EQ(readFile(folder / "out.csv"), "old");
  // Where files need a name while they are written, the next export removes what is left.
  EXPECT_EQ(runTool({"export", "--csv", folder / "other.csv", bundle}).status, 0);
  EXPECT_THAT(entries(), ::testing::UnorderedElementsAre("out.csv", "other.csv"));
}

TEST_F(ExportCommand, OldTableSurvivesAFullDisk) {
  // A disk of two blocks, which only this command and its children see. The old file takes one of them.
  const std::string inside = "mount -t tmpfs -o size=8k none '" + folder.path() + "' || exit 77; cd '" +
                             folder.path() + "' || exit 78; printf old > out.csv; " +
                             toolCommand("--csv out.csv '" + longProject() + "'") +
                             "; echo \"status $?\" >&3; cat out.csv >&3; ls -A >&3";
  const std::string log = project / "log";
  const int status = runShell("unshare --user --map-root-user --mount sh -c \"$(cat <<'END'\n" + inside +
                              "\nEND\n)\" 3>'" + log + "' 2>>'" + (project / "errors") + "'");
  if (readFile(log).empty()) GTEST_SKIP() << "this system lets nobody mount a disk of his own";
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(readFile(log), "status 4\noldout.csv\n");
  EXPECT_THAT(readFile(project / "errors"), HasSubstr("out.csv: No space left on device"));
}

TEST_F(ExportCommand, ClosedStandardOutputIsAFailedOutput) {
  const std::string errors = " >&- 2>'" + (project / "errors") + "'";
  EXPECT_EQ(WEXITSTATUS(runShell(toolCommand("--csv - '" + bundle + "'") + errors)), 4);
  EXPECT_THAT(readFile(project / "errors"), HasSubstr("cannot write standard output: Bad file descriptor"));
}

TEST_F(ExportCommand, FileIsNotTakenForAClosedStandardStream) {
  for (const std::string closed : {" >&-", " 2>&-", " <&- >&- 2>&-"}) {
    const std::string file = folder / "out.csv";
    EXPECT_EQ(WEXITSTATUS(runShell(toolCommand("--csv '" + file + "' '" + bundle + "'") + closed)), 0)
        << closed;
    EXPECT_EQ(readFile(file), kHeader + kRows) << closed;
    std::filesystem::remove(file);
    // What is said of a project that cannot be read goes nowhere, and not into the file.
    EXPECT_EQ(WEXITSTATUS(runShell(toolCommand("--csv '" + file + "' /missing") + closed)), 3) << closed;
    EXPECT_FALSE(std::filesystem::exists(file)) << closed;
  }
}

TEST_F(ExportCommand, ReaderThatGoesAwayIsAFailedOutput) {
  const int status =
      runShell("{ " + toolCommand("--csv - '" + longProject() + "' 2>'" + (project / "errors") + "'") +
               "; echo $? >'" + (project / "status") + "'; } | true");
  EXPECT_EQ(status, 0);
  EXPECT_EQ(readFile(project / "status"), "4\n");
  EXPECT_THAT(readFile(project / "errors"), HasSubstr("cannot write standard output: Broken pipe"));
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

/// A copy of the tool with a script in the application's place.
class ScriptedReport : public ExportCommand {
 protected:
  ScriptedReport() {
    std::filesystem::copy_file(QUILLMETER_BINARY_DIR "/bin/quillmeter-cli", folder / "quillmeter-cli");
  }

  void script(const std::string& commands) const {
    folder.file("quillmeter", "#!/bin/sh\n" + commands + "\n");
    std::filesystem::permissions(folder / "quillmeter", std::filesystem::perms::owner_all);
  }

  [[nodiscard]] std::string command(const std::string& arguments) const {
    return "'" + (folder / "quillmeter-cli") + "' export --quiet " + arguments + " '" + bundle + "' 2>'" +
           (folder / "errors") + "'";
  }
};

TEST_F(ScriptedReport, StatusOfTheApplicationIsTheTools) {
  for (const int status : {0, 3, 4}) {
    script("exit " + std::to_string(status));
    EXPECT_EQ(WEXITSTATUS(runShell(command("--pdf out.pdf"))), status);
    EXPECT_EQ(readFile(folder / "errors"), "") << "the application has told why";
  }
}

TEST_F(ScriptedReport, FailedTableBesideAGoodReportIsAFailure) {
  script("touch '" + (folder / "reported") + "'");
  EXPECT_EQ(WEXITSTATUS(runShell(command("--pdf out.pdf --csv '" + (folder / "missing/out.csv") + "'"))), 4);
  EXPECT_TRUE(std::filesystem::exists(folder / "reported")) << "the report is made all the same";
}

TEST_F(ScriptedReport, GetsNothingThatWasMeantForAClosedStandardOutput) {
  // What the tool opens first, to tell the application of the project, must not take the place of a stream.
  script("for last; do :; done; echo \"$last\" >'" + (folder / "asked") + "'");
  EXPECT_EQ(WEXITSTATUS(runShell(command("--pdf out.pdf --csv -") + " <&- >&-")), 4);
  EXPECT_THAT(readFile(folder / "errors"), HasSubstr("cannot write standard output: Bad file descriptor"));
  EXPECT_EQ(readFile(folder / "asked"), bundle + "\n");
}

TEST_F(ScriptedReport, StatusThatIsNoneOfTheApplicationsIsNamed) {
  script("exit 9");
  EXPECT_EQ(WEXITSTATUS(runShell(command("--pdf out.pdf"))), 4);
  EXPECT_EQ(readFile(folder / "errors"),
            "quillmeter-cli: cannot make the PDF report: the application ended with status 9\n");
}

TEST_F(ScriptedReport, PathsInTheToolsMessagesStayOnOneLine) {
  const std::string tool = folder / "two\nlines/quillmeter-cli";
  folder.folder("two\nlines");
  std::filesystem::rename(folder / "quillmeter-cli", tool);
  EXPECT_EQ(WEXITSTATUS(runShell("'" + tool + "' export --quiet --pdf out.pdf '" + bundle + "' 2>'" +
                                 (folder / "errors") + "'")),
            4);
  EXPECT_EQ(readFile(folder / "errors"),
            "quillmeter-cli: cannot make the PDF report: the application is missing, it belongs at " +
                (folder / "two lines/quillmeter") + "\n");
}

TEST_F(ScriptedReport, EndsWithAToolThatIsKilled) {
  const std::string application = folder / "pid";
  script("echo $$ >'" + application + ".new'; mv '" + application + ".new' '" + application +
         "'; exec sleep 600");
  EXPECT_EQ(
      runShell(
          "{ " + command("--pdf out.pdf") + " & } ; for i in $(seq 3000); do test -e '" + application +
          "' && break; sleep 0.01; done; kill -KILL $!; wait $!; for i in $(seq 3000); do kill -0 $(cat '" +
          application + "') 2>&- || exit 0; case $(cut -d' ' -f3 /proc/$(cat '" + application +
          "')/stat) in Z) exit 0;; esac; sleep 0.01; done; kill $(cat '" + application + "'); exit 1"),
      0);
}

TEST_F(ExportCommand, ApplicationThatDoesNotStartIsAFailedOutput) {
  // As the system ends a program whose libraries are missing.
  const std::string tool = folder / "quillmeter-cli";
  std::filesystem::copy_file(QUILLMETER_BINARY_DIR "/bin/quillmeter-cli", tool);
  folder.file("quillmeter", "#!/bin/sh\nexit 127\n");
  std::filesystem::permissions(folder / "quillmeter", std::filesystem::perms::owner_all);
  const int status = runShell("'" + tool + "' export --quiet --pdf '" + (folder / "out.pdf") + "' '" +
                              bundle + "' 2>'" + (folder / "errors") + "'");
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 4);
  EXPECT_EQ(readFile(folder / "errors"),
            "quillmeter-cli: cannot make the PDF report: the application ended with status 127\n");
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

TEST_F(ExportCommand, ReportByTheCurrentRulesSaysSoAndListsSwiftAndStoryboards) {
  const std::string weather = QUILLMETER_SOURCE_DIR "/samples/Weather";
  const std::string report = folder / "out.pdf";
  ASSERT_EQ(runTool({"export", "--rules", "current", "--pdf", report, weather}).status, 0);
  ASSERT_EQ(runShell("{ pdfinfo '" + report + "'; pdftotext -layout '" + report + "' -; } >'" +
                     (folder / "text") + "'"),
            0);
  EXPECT_THAT(readFile(folder / "text"),
              AllOf(ContainsRegex("Subject: +Measured by the current rules\n"), HasSubstr("swift files"),
                    ContainsRegex("Forecast\\.swift +22 +17 +0\\.4 KB"), HasSubstr("storyboard")));
  ASSERT_EQ(runTool({"export", "--pdf", report, weather}).status, 0);
  ASSERT_EQ(runShell("{ pdfinfo '" + report + "'; pdftotext -layout '" + report + "' -; } >'" +
                     (folder / "text") + "'"),
            0);
  EXPECT_THAT(readFile(folder / "text"), Not(AnyOf(HasSubstr("rules"), HasSubstr("swift"))));
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
  EXPECT_THAT(full.errors, HasSubstr("standard output: No space left on device"));
}

TEST_F(ExportCommand, PathsInMessagesOfTheReportStayOnOneLine) {
  const ToolResult result = runTool({"export", "--pdf", folder / "two\nlines\x1B[31m/out.pdf", bundle});
  EXPECT_EQ(result.status, 4);
  EXPECT_THAT(result.errors, StartsWith("quillmeter: "));
  EXPECT_THAT(result.errors, HasSubstr(folder / "two lines [31m/out.pdf"));
  EXPECT_EQ(result.errors.find('\n'), result.errors.size() - 1);
}

TEST_F(ExportCommand, OldReportSurvivesAnApplicationThatIsKilled) {
  folder.file("out.pdf", "old");
  const int status = runShell("ulimit -c 0; ulimit -f 1; " +
                              toolCommand("--pdf '" + (folder / "out.pdf") + "' '" + longProject() + "'") +
                              " 2>&1 | cat >'" + (project / "errors") + "'; test \"$(cat '" +
                              (folder / "out.pdf") + "')\" = old");
  EXPECT_EQ(status, 0);
  EXPECT_EQ(readFile(project / "errors"),
            "quillmeter-cli: cannot make the PDF report: the application was ended by a signal\n");
}

TEST_F(ExportCommand, ReportNamesNeedNotBeUtf8) {
  const ToolResult result = runTool({"export", "--pdf", folder / "\xFF.pdf", bundle});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(readFile(folder / "\xFF.pdf"), StartsWith("%PDF-"));
}

#endif

}  // namespace
}  // namespace quillmeter
