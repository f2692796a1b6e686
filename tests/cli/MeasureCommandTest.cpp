#include <gtest/gtest.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using nlohmann::json;
using testing::readFile;
using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;
using testing::writeProject;

/// A project of a source and an image.
class MeasureCommand : public ::testing::Test {
 protected:
  MeasureCommand() {
    folder.file("a.m", "// one\nint  a;\n");
    folder.file("b.png", "1234");
    bundle = writeProject(folder, {"b.png", "a.m"});
  }
  TemporaryFolder folder;
  std::string bundle;
};

TEST_F(MeasureCommand, WritesEveryFileAsJson) {
  const ToolResult result = runTool({"measure", "--format", "json", folder.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output.find("{\"version\": 1, "), 0U);
  const json expected = {
      {"version", 1},
      {"rules", "classic"},
      {"projectTitle", "App"},
      {"initialPath", bundle},
      {"files",
       {{{"fileName", "b.png"},
         {"filePath", folder / "b.png"},
         {"fileSize", 4},
         {"noLinesTotal", 0},
         {"noLinesComments", nullptr},
         {"noLinesWithoutSpaces", 0},
         {"noWords", nullptr},
         {"noCharactersWithoutSpaces", nullptr},
         {"noCharactersTotal", nullptr}},
        {{"fileName", "a.m"},
         {"filePath", folder / "a.m"},
         {"fileSize", 15},
         {"noLinesTotal", 3},
         {"noLinesComments", 1},
         {"noLinesWithoutSpaces", 2},
         {"noWords", 5},
         {"noCharactersWithoutSpaces", 10},
         {"noCharactersTotal", 13}}}},
      {"totals",
       {{"getNumberCodeFiles", 1},
        {"getNumberImageFiles", 1},
        {"getNumberXIBFiles", 0},
        {"getNumberInstanceMethods", 0},
        {"getNumberStaticMethods", 0}}},
  };
  EXPECT_EQ(json::parse(result.output), expected);
}

TEST_F(MeasureCommand, WritesOneRowAFileAsCsv) {
  EXPECT_EQ(runTool({"measure", "--format", "csv", folder.path()}).output,
            "fileName,filePath,fileSize,noLinesTotal,noLinesComments,noLinesWithoutSpaces,noWords,"
            "noCharactersWithoutSpaces,noCharactersTotal\n"
            "b.png," +
                folder / "b.png" + ",4,0,,0,,,\n" + "a.m," + folder / "a.m" + ",15,3,1,2,5,10,13\n");
}

TEST_F(MeasureCommand, QuotesCsvFieldsThatNeedIt) {
  folder.file("App.xcodeproj/project.pbxproj", testing::projectText({"c,\"d.m"}));
  folder.file("c,\"d.m", "");
  EXPECT_NE(runTool({"measure", "--format", "csv", folder.path()}).output.find("\n\"c,\"\"d.m\",\""),
            std::string::npos);
}

TEST_F(MeasureCommand, QuotesCsvFieldsThatHoldALineBreak) {
  // No reference holds a line break, but the folder that the project lies in may.
  for (const std::string name : {"two\nlines", "two\rlines"}) {
    folder.file(name + "/App.xcodeproj/project.pbxproj", testing::projectText({"a.m"}));
    folder.file(name + "/a.m");
    EXPECT_NE(runTool({"measure", "--format", "csv", folder / name})
                  .output.find("\na.m,\"" + (folder / name) + "/a.m\",0,"),
              std::string::npos)
        << name;
  }
}

TEST_F(MeasureCommand, AlignsColumnsByCharactersAndTakesTheLocaleAsTheLibraryDoes) {
  folder.file("a.m", "// one\nint  a;\n" + std::string(1500, '\n'));
  // A French group is parted by a space of three bytes, so its "503" ends where a short number does.
  const ToolResult result = runTool({"measure", folder.path()},
                                    {.variables = {"LC_ALL=", "LC_NUMERIC=fr_FR.UTF-8", "LANG=de_DE.UTF-8"}});
  EXPECT_NE(result.output.find("Lines in total                  1\u202F503\n"
                               "Thousand lines (KLOC)            1.50\n"),
            std::string::npos)
      << result.output;
  EXPECT_NE(result.output.find("Code                       1  1\u202F503          2 "), std::string::npos)
      << result.output;
  EXPECT_NE(result.output.find("Images                     1      -          - "), std::string::npos)
      << result.output;
}

TEST_F(MeasureCommand, TakesBundlesRelativePathsAndTrailingSlashes) {
  const std::string output = runTool({"measure", "--format", "json", folder.path()}).output;
  EXPECT_EQ(runTool({"measure", "--format", "json", bundle}).output, output);
  EXPECT_EQ(runTool({"measure", "--format", "json", bundle + "/"}).output, output);
  EXPECT_EQ(runTool({"measure", "--format", "json", folder.path() + "//"}).output, output);
  EXPECT_EQ(runTool({"measure", "--format", "json", "."}, {.folder = folder.path()}).output, output);
  EXPECT_EQ(runTool({"measure", "--format", "json", "App.xcodeproj"}, {.folder = folder.path()}).output,
            output);
  EXPECT_EQ(runTool({"measure", "--format", "json", ".."}, {.folder = bundle}).output, output);
}

TEST_F(MeasureCommand, RefusesAnEmptyPath) {
  const ToolResult result = runTool({"measure", ""}, {.folder = bundle});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("the project's path is empty"), std::string::npos) << result.errors;
}

TEST_F(MeasureCommand, ShowsTotalsAsATableByDefault) {
  folder.file("a.m", "// one\nint  a;\n" + std::string(1500, '\n'));
  const ToolResult result = runTool({"measure", folder.path()}, {.variables = {"LC_ALL=en_US.UTF-8"}});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "App\n" + bundle + R"(

Size on disk                   1.5 KB
Lines in total                  1,503
Thousand lines (KLOC)            1.50
Non-empty lines                     2
Comment lines                       1
Non-empty lines per code file       2
Code files                          1
Image files                         1
Interface files (XIB)               0
Comment lines per code file         1

Kind                   Files  Lines  Non-empty  Comments  Words  Characters    Size
Code                       1  1,503          2         1      5          13  1.5 KB
Interface files (XIB)      0      0          0         0      0           0     0 B
Images                     1      -          -         -      -           -     4 B
)");
}

TEST_F(MeasureCommand, NoNameBreaksALineOfTheTable) {
  const std::string odd = writeProject(folder, {"a.m"}, "two\nlines\x1B[31m");
  EXPECT_EQ(runTool({"measure", odd}).output.find("two lines [31m\n" + folder / "two lines [31m.xcodeproj\n"),
            0U);
}

TEST_F(MeasureCommand, WritesToAFile) {
  const ToolResult result =
      runTool({"measure", "--format", "json", "-o", folder / "out.json", folder.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(json::parse(readFile(folder / "out.json"))["projectTitle"], "App");
}

TEST_F(MeasureCommand, FailsWhenTheOutputCannotBeWritten) {
  const ToolResult missing = runTool({"measure", "-o", folder / "missing/out", folder.path()});
  EXPECT_EQ(missing.status, 4);
  EXPECT_NE(missing.errors.find("cannot write"), std::string::npos);
  const ToolResult full = runTool({"measure", folder.path()}, {.standardOutput = "/dev/full"});
  EXPECT_EQ(full.status, 4);
  EXPECT_NE(full.errors.find("No space left"), std::string::npos);
}

TEST_F(MeasureCommand, LeavesAnOldOutputFileWholeWhenNothingCouldBeMeasured) {
  folder.file("out.json", "old");
  const ToolResult result = runTool({"measure", "-o", folder / "out.json", folder / "missing"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors, "quillmeter-cli: " + (folder / "missing") + ": no such file or folder\n");
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(readFile(folder / "out.json"), "old");
}

TEST_F(MeasureCommand, EscapesNamesThatAreNotUtf8Reversibly) {
  const TemporaryFolder odd;
  odd.file("\xff\x80/App.xcodeproj/project.pbxproj", testing::projectText({"a.m"}));
  odd.file("\xff\x80/a.m");
  const std::string output = runTool({"measure", "--format", "json", odd / "\xff\x80"}).output;
  EXPECT_NE(output.find(odd.path() + "/\\udcff\\udc80/a.m\""), std::string::npos) << output;
}

TEST_F(MeasureCommand, EscapesWhatNamesMayHoldInJson) {
  const std::string name = "q\" b\\ n\n r\r t\t c\x01 d\x7F größe \U0001F600";
  const std::string odd = writeProject(folder, {"a.m"}, name);
  const std::string output = runTool({"measure", "--format", "json", odd}).output;
  EXPECT_EQ(json::parse(output)["projectTitle"], name);
  EXPECT_NE(output.find(R"("q\" b\\ n\n r\r t\t c\u0001 d\u007f größe )"), std::string::npos) << output;
}

TEST_F(MeasureCommand, WritesAnyNumberOfFilesOfAnyLengthOfName) {
  std::vector<std::string> names;
  for (int i = 100; i < 800; ++i)
    names.push_back(std::string(200, 'n') + std::to_string(i) + ".m");
  for (const std::string& name : names)
    folder.file(name);
  writeProject(folder, names);
  const ToolResult result = runTool({"measure", "--format", "json", folder.path()});
  const json files = json::parse(result.output)["files"];
  ASSERT_EQ(files.size(), names.size());
  for (std::size_t i = 0; i < names.size(); ++i)
    ASSERT_EQ(files[i]["fileName"], names[i]);
  EXPECT_EQ(runTool({"measure", "--format", "json", "-o", folder / "out.json", folder.path()}).status, 0);
  EXPECT_EQ(readFile(folder / "out.json"), result.output);
}

TEST_F(MeasureCommand, ShowsNoProgressWhereStandardErrorIsNoTerminal) {
  EXPECT_EQ(runTool({"measure", folder.path()}).errors, "");
  EXPECT_EQ(runTool({"measure", "--quiet", folder.path()}).errors, "");
}

#ifdef QUILLMETER_SLOW_DISK

TEST_F(MeasureCommand, ShowsProgressOfALongReadOnATerminalUnlessItIsToBeQuiet) {
  const testing::ToolSurroundings terminal{.variables = {"LD_PRELOAD=" QUILLMETER_SLOW_DISK},
                                           .terminal = true};
  const std::string progress = runTool({"measure", folder.path()}, terminal).errors;
  EXPECT_NE(progress.find("\rMeasuring ["), std::string::npos) << progress;
  EXPECT_TRUE(progress.ends_with("\r\033[K")) << progress;
  const ToolResult quiet = runTool({"measure", "--quiet", folder.path()}, terminal);
  EXPECT_EQ(quiet.errors, "");
  EXPECT_EQ(quiet.output, runTool({"measure", folder.path()}).output);
}

#endif

TEST_F(MeasureCommand, SaysWhatItReadsWhenAsked) {
  EXPECT_EQ(runTool({"measure", "--verbose", folder.path()}).errors,
            "parsing file b.png\nparsing file a.m\n");
  folder.file("two \x1B[31m.m");
  EXPECT_EQ(runTool({"measure", "--verbose", writeProject(folder, {"two \x1B[31m.m"})}).errors,
            "parsing file two  [31m.m\n");
}

TEST(Tool, RefusesWrongUsage) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                    {"measure"},
                                                    {"unknown"},
                                                    {"measure", "--format", "xml", "/"},
                                                    {"measure", "a", "b"}}) {
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors, "");
  }
}

TEST(Tool, SaysWhenItsHelpCannotBeWritten) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--help"}, {"--version"}, {"measure", "--help"}}) {
    const ToolResult result = runTool(arguments, {.standardOutput = "/dev/full"});
    EXPECT_EQ(result.status, 4);
    EXPECT_EQ(result.errors, "quillmeter-cli: cannot write standard output: No space left on device\n");
  }
}

TEST(Tool, ExplainsItself) {
  const ToolResult help = runTool({"--help"});
  EXPECT_EQ(help.status, 0);
  for (const char* command : {"measure", "compare", "cleanup", "export", "report", "methods"}) {
    EXPECT_NE(help.output.find(command), std::string::npos) << command;
    EXPECT_NE(runTool({command, "--help"}).output.find("Examples:"), std::string::npos) << command;
  }
  const ToolResult version = runTool({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.output.find("quillmeter-cli 1."), 0U);
}

}  // namespace
}  // namespace quillmeter
