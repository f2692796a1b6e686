#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::readFile;
using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;
using testing::writeProject;

const std::vector<std::string> kEnglish{"LC_ALL=en_US.UTF-8"};

/// Two states of a project in checkouts at different places.
class CompareCommand : public ::testing::Test {
 protected:
  CompareCommand() {
    before.file("grows.m", std::string(9, '\n'));
    before.file("old/moves.m", "int a;\n");
    before.file("leaves.m", "\n\n\n");
    writeProject(before, {"grows.m", "moves.m", "leaves.m"});
    after.file("grows.m", std::string(29, '\n'));
    after.file("new/moves.m", "int a;\n");
    after.file("comes.m", "\n");
    writeProject(after, {"comes.m", "moves.m", "grows.m"});
    baseline = before / "numbers.json";
    EXPECT_EQ(runTool({"measure", "--format", "json", "-o", baseline, before.path()}).status, 0);
  }

  [[nodiscard]] ToolResult compare(std::vector<std::string> more) const {
    more.insert(more.begin(), {"compare", baseline, after.path()});
    return runTool(more, {.variables = kEnglish});
  }

  TemporaryFolder before;
  TemporaryFolder after;
  std::string baseline;
};

TEST_F(CompareCommand, ShowsTotalsAndTheLargestChangesFirst) {
  const ToolResult result = compare({});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output,
            "App\nbefore: " + before / "App.xcodeproj" + "\nafter:  " + after / "App.xcodeproj" + R"(

                           Before  After  Change
Size on disk                 19 B   37 B   +18 B   +94.7 %
Lines in total                 16     34     +18  +112.5 %
Non-empty lines                 1      1       0
Comment lines                   0      0       0
Words                           2      2       0
Characters                      6      6       0
Characters without spaces       5      5       0
Code files                      3      3       0
Image files                     0      0       0
Interface files (XIB)           0      0       0

1 file added, 1 removed, 1 moved, 1 grown

Change   Lines   Size  File
grown      +20  +20 B  grows.m
removed     -4   -3 B  leaves.m
added       +2   +1 B  comes.m
moved        0    0 B  old/moves.m -> new/moves.m
)");
}

TEST_F(CompareCommand, WritesPerCentAsTheOtherNumbersOfALocale) {
  after.file("comes.m", std::string(1500, '\n'));
  for (const std::string format : {"table", "markdown"}) {
    const ToolResult result = runTool({"compare", "--format", format, baseline, after.path()},
                                      {.variables = {"LC_ALL=de_DE.UTF-8"}});
    EXPECT_THAT(result.output, HasSubstr("1.533"));
    EXPECT_THAT(result.output, HasSubstr("+9.481,2 %"));
  }
}

TEST_F(CompareCommand, TakesProjectsAndFilesOnBothSides) {
  const std::string expected = compare({"--format", "json"}).output;
  const std::string file = after / "numbers.json";
  EXPECT_EQ(runTool({"measure", "--format", "json", "-o", file, after.path()}).status, 0);
  EXPECT_EQ(runTool({"compare", "--format", "json", baseline, file}).output, expected);
  EXPECT_EQ(runTool({"compare", "--format", "json", before.path(), file}).output, expected);
  EXPECT_EQ(runTool({"compare", "--format", "json", before.path(), after / "App.xcodeproj"}).output,
            expected);
}

TEST_F(CompareCommand, MeasureShowsTheSameAgainstABaseline) {
  for (const std::string format : {"table", "json", "markdown"}) {
    EXPECT_EQ(runTool({"measure", "--baseline", baseline, "--format", format, after.path()},
                      {.variables = kEnglish})
                  .output,
              compare({"--format", format}).output);
  }
}

TEST_F(CompareCommand, FilesOutsideTheFolderAndOddNamesComeBackFromJson) {
  after.file("../" + std::filesystem::path(after.path()).filename().string() + "-shared.m", "x\n");
  const std::string shared = after.path() + "-shared.m";
  after.file("f\xff/odd.m", "y\n");
  writeProject(after, {"../" + std::filesystem::path(shared).filename().string(), "odd.m"});
  const std::string file = after / "numbers.json";
  EXPECT_EQ(runTool({"measure", "--format", "json", "-o", file, after.path()}).status, 0);
  const ToolResult result = runTool({"compare", file, after.path()});
  std::filesystem::remove(shared);
  EXPECT_THAT(result.output, HasSubstr("\n2 files unchanged\n"));
}

TEST_F(CompareCommand, ListsAsManyFilesAsAsked) {
  EXPECT_THAT(compare({"--top", "1"}).output, HasSubstr("grows.m\nand 3 more (--top all lists them)\n"));
  EXPECT_THAT(compare({"--top", "all"}).output, Not(HasSubstr("more")));
  EXPECT_EQ(json::parse(compare({"--top", "2", "--format", "json"}).output)["files"].size(), 2U);
  EXPECT_EQ(compare({"--top", "many"}).status, 2);
}

TEST_F(CompareCommand, WritesJson) {
  const json output = json::parse(compare({"--format", "json"}).output);
  EXPECT_EQ(output["version"], 1);
  EXPECT_EQ(output["rules"], "classic");
  EXPECT_EQ(output["before"]["initialPath"], before / "App.xcodeproj");
  EXPECT_EQ(output["totals"]["noLinesTotal"], (json{{"before", 16}, {"after", 34}, {"difference", 18}}));
  EXPECT_EQ(output["totals"]["getNumberCodeFiles"], (json{{"before", 3}, {"after", 3}, {"difference", 0}}));
  EXPECT_EQ(output["numbers"]["moved"], 1);
  ASSERT_EQ(output["files"].size(), 4U);
  EXPECT_EQ(output["files"][3]["change"], "moved");
  EXPECT_EQ(output["files"][3]["filePathBefore"], "old/moves.m");
  EXPECT_EQ(output["files"][1]["after"], nullptr);
  EXPECT_EQ(output["files"][0]["after"]["noLinesTotal"], 30);
}

TEST_F(CompareCommand, WritesMarkdownInWhichNoNameFormatsAnything) {
  const std::string name = "a|b `c` *d* @all #1 <img src=x> [e](f) www.g.h.m";
  after.file(name, "z\n");
  writeProject(after, {"grows.m", "moves.m", name});
  const std::string output = compare({"--format", "markdown"}).output;
  EXPECT_THAT(
      output,
      HasSubstr(
          "### <code>App</code>: +18 lines\n\n|  | Before | After | Change |  |\n|:--|--:|--:|--:|--:|\n"));
  EXPECT_THAT(output, HasSubstr("| Lines in total | 16 | 34 | +18 | +112.5 % |\n"));
  EXPECT_THAT(output,
              HasSubstr("| moved | 0 | 0 B | <code>old/moves.m</code> → <code>new/moves.m</code> |\n"));
  EXPECT_THAT(output,
              HasSubstr("<code>a&#124;b &#96;c&#96; &#42;d&#42; &#64;all &#35;1 &#60;img src&#61;x&#62; "
                        "&#91;e&#93;&#40;f&#41; www&#46;g.h.m</code>"));
}

TEST_F(CompareCommand, WritesToAFile) {
  const ToolResult result = compare({"-o", after / "out.txt"});
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(readFile(after / "out.txt"), compare({}).output);
  EXPECT_EQ(compare({"-o", after / "missing/out"}).status, 4);
}

TEST_F(CompareCommand, ALimitThatIsPassedEndsWithStatusOne) {
  const ToolResult result = compare(
      {"--fail-if", "noLinesTotal>+5%", "--fail-if", "noWords>5", "--fail-if", "file:noLinesTotal>=30"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.output, HasSubstr("Lines in total"));
  EXPECT_EQ(result.errors,
            "quillmeter-cli: limit noLinesTotal>+5% passed: noLinesTotal is 34, was 16 (+18, +112.50 %)\n"
            "quillmeter-cli: limit file:noLinesTotal>=30 passed: noLinesTotal of grows.m is 30\n");
}

TEST_F(CompareCommand, LimitsThatHoldSayNothing) {
  const ToolResult result = compare({"--fail-if", "noLinesTotal>+200%", "--fail-if", "getNumberCodeFiles>3"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
}

TEST_F(CompareCommand, MeasureChecksValuesWithoutABaseline) {
  const ToolResult result =
      runTool({"measure", "--format", "json", "--fail-if", "noLinesTotal>30", after.path()});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "quillmeter-cli: limit noLinesTotal>30 passed: noLinesTotal is 34\n");
  EXPECT_EQ(json::parse(result.output)["version"], 1);
  EXPECT_EQ(runTool({"measure", "--fail-if", "noLinesTotal>34", after.path()}).status, 0);
  const ToolResult relative = runTool({"measure", "--fail-if", "noLinesTotal>+5%", after.path()});
  EXPECT_EQ(relative.status, 2);
  EXPECT_THAT(relative.errors, HasSubstr("the limit noLinesTotal>+5% needs --baseline"));
}

TEST_F(CompareCommand, RefusesOptionsThatMakeNoSenseTogether) {
  EXPECT_EQ(runTool({"measure", "--top", "3", after.path()}).status, 2);
  EXPECT_EQ(runTool({"measure", "--format", "markdown", after.path()}).status, 2);
  EXPECT_EQ(runTool({"measure", "--format", "csv", "--baseline", baseline, after.path()}).status, 2);
}

TEST_F(CompareCommand, RefusesToCompareNumbersOfDifferentRules) {
  std::string text = readFile(baseline);
  text.replace(text.find("\"projectTitle\""), 0, "\"rules\": \"current\", ");
  const std::string current = before.file("current.json", text);
  const ToolResult result = runTool({"compare", current, after.path()});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors,
            "quillmeter-cli: these numbers cannot be compared: the earlier ones are by the current rules, "
            "the later "
            "ones by the classic rules; measure both with --rules current, or both without\n");
  const ToolResult same = runTool({"compare", current, current});
  EXPECT_EQ(same.status, 0);
  EXPECT_THAT(same.output, HasSubstr("\nInterface files (XIB, storyboard)"));
}

TEST_F(CompareCommand, SaysWhichFileIsNoMeasurement) {
  const std::string cut = before.file("cut.json", readFile(baseline).substr(0, 200));
  const ToolResult result = runTool({"compare", cut, after.path()});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.errors,
              HasSubstr("quillmeter-cli: " + cut + ": is not JSON, or only the beginning of it"));
  const std::string comparison = after / "comparison.json";
  EXPECT_EQ(compare({"--format", "json", "-o", comparison}).status, 0);
  EXPECT_EQ(runTool({"compare", comparison, after.path()}).errors,
            "quillmeter-cli: " + comparison + ": is no measurement, but a comparison of two\n");
  EXPECT_EQ(runTool({"measure", "--baseline", before / "missing.json", after.path()}).errors,
            "quillmeter-cli: " + before / "missing.json" + ": No such file or directory\n");
  EXPECT_EQ(runTool({"compare", baseline, after / "missing"}).status, 3);
}

}  // namespace
}  // namespace quillmeter
