#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/RunTool.h"
#include "helpers/ProjectFixture.h"

/// The tool by the current rules, on the sample that shows them.
namespace quillmeter {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using testing::runTool;
using testing::TemporaryFolder;
using testing::ToolResult;

const std::string kWeather = QUILLMETER_SOURCE_DIR "/samples/Weather";
const std::string kNotebook = QUILLMETER_SOURCE_DIR "/samples/Notebook";

json measured(std::vector<std::string> options) {
  options.insert(options.begin(), {"measure", "--format", "json"});
  const ToolResult result = runTool(std::move(options));
  EXPECT_EQ(result.status, 0) << result.errors;
  return json::parse(result.output);
}

TEST(CurrentRules, MeasureWhatTheClassicOnesLeaveOut) {
  const json current = measured({"--rules", "current", kWeather});
  EXPECT_EQ(current["rules"], "current");
  EXPECT_EQ(current["totals"]["getNumberCodeFiles"], 12);
  EXPECT_EQ(current["totals"]["getNumberXIBFiles"], 1) << "the storyboard";
  EXPECT_EQ(current["other"], json({{"json", 3}, {"plist", 1}}));
  EXPECT_EQ(current["missing"][0]["identifier"], "4A2000042E10000100A1B2C3");
  EXPECT_EQ(current["foreign"], 0);
  const json classic = measured({kWeather});
  EXPECT_EQ(classic["rules"], "classic");
  EXPECT_EQ(classic["totals"]["getNumberCodeFiles"], 1);
  EXPECT_FALSE(classic.contains("targets"));
}

TEST(CurrentRules, TargetsAddUpToTheRecords) {
  const json output = measured({"--rules", "current", "--by", "target", kWeather});
  ASSERT_EQ(output["targets"].size(), 2U);
  std::vector<int> inTargets(output["files"].size(), 0);
  for (std::size_t target = 0; target < 2; ++target) {
    std::int64_t lines = 0;
    for (const std::size_t index : output["targets"][target]["files"]) {
      ++inTargets[index];
      const json& count = output["files"][index]["noLinesTotal"];
      lines += count.is_null() ? 0 : count.get<std::int64_t>();
    }
    EXPECT_EQ(output["targets"][target]["noLinesTotal"], lines);
    EXPECT_EQ(output["groups"][target]["noLinesTotal"], lines);
    EXPECT_EQ(output["groups"][target]["files"], output["targets"][target]["files"].size());
  }
  EXPECT_EQ(output["groups"][2]["name"], "no target");
  EXPECT_EQ(output["groups"][2]["files"], std::count(inTargets.begin(), inTargets.end(), 0));
}

TEST(CurrentRules, FoldersAndKindsAddUpToAllFiles) {
  for (const char* by : {"folder", "kind"}) {
    for (const char* rules : {"classic", "current"}) {
      const json output = measured({"--rules", rules, "--by", by, kWeather});
      EXPECT_EQ(output["by"], by);
      std::size_t files = 0;
      for (const json& group : output["groups"])
        files += group["files"].get<std::size_t>();
      EXPECT_EQ(files, output["files"].size()) << by << ' ' << rules;
    }
  }
  const json folders = measured({"--rules", "current", "--by", "folder", kWeather})["groups"];
  ASSERT_EQ(folders.size(), 4U);
  EXPECT_EQ(folders[0]["name"], ".");
  EXPECT_EQ(folders[2]["name"], "Weather");
}

TEST(CurrentRules, AFileElsewhereIsOutside) {
  const TemporaryFolder folder;
  folder.file("Shared/a.m", "int a;\n");
  folder.file("App/outside/b.m", "int b;\n");
  folder.file("App/c.m", "int c;\n");
  std::filesystem::create_directories(folder / "App/App.xcodeproj");
  folder.file("App/App.xcodeproj/project.pbxproj",
              "/* Begin PBXFileReference section */\n"
              "1 /* a.m */ = {isa = PBXFileReference; path = ../Shared/a.m; };\n"
              "2 /* b.m */ = {isa = PBXFileReference; path = b.m; };\n"
              "3 /* c.m */ = {isa = PBXFileReference; path = c.m; };\n"
              "/* End PBXFileReference section */\n");
  const json groups = measured({"--by", "folder", folder / "App"})["groups"];
  ASSERT_EQ(groups.size(), 3U);
  EXPECT_EQ(groups[0]["name"], ".");
  EXPECT_EQ(groups[1]["name"], "outside") << "a folder of that name";
  EXPECT_EQ(groups[2]["name"], "outside") << "what lies elsewhere";
  EXPECT_EQ(groups[2]["files"], 1);
}

TEST(CurrentRules, TablesSayThatTheyFollowThem) {
  const ToolResult current = runTool({"measure", "--rules", "current", "--by", "target", kWeather});
  EXPECT_EQ(current.status, 0);
  EXPECT_EQ(current.errors, "");
  EXPECT_THAT(current.output, HasSubstr("Measured by the current rules\n"));
  EXPECT_THAT(current.output, HasSubstr("\nWeather           8    124        104        11"));
  EXPECT_THAT(current.output, HasSubstr("\nno target"));
}

TEST(CurrentRules, TheToolHintsAtThemWhenMuchIsLeftOut) {
  const ToolResult weather = runTool({"measure", kWeather});
  EXPECT_EQ(weather.status, 0);
  EXPECT_EQ(
      weather.errors,
      "quillmeter-cli: the classic rules leave out 11 source files (11 .swift); '--rules current' measures "
      "them\n");
  EXPECT_EQ(runTool({"measure", kNotebook}).errors, "");
  EXPECT_EQ(runTool({"measure", "--rules", "current", kWeather}).errors, "");
}

TEST(CurrentRules, ReasonsNameAFewExtensionsAlone) {
  const auto reason = [](int extensions) {
    const TemporaryFolder folder;
    std::vector<std::string> paths;
    for (int i = 0; i < extensions; ++i)
      paths.push_back("a.x" + std::to_string(i));
    return runTool({"measure", testing::writeProject(folder, paths)}).errors;
  };
  const std::string seven = "it references 1 .x0, 1 .x1, 1 .x2, 1 .x3, 1 .x4, 1 .x5, 1 .x6";
  EXPECT_THAT(reason(8), HasSubstr(seven + " and 1 .x7\n"));
  EXPECT_THAT(reason(9), HasSubstr(seven + " and 2 others\n"));
  EXPECT_THAT(reason(20), HasSubstr(seven + " and 13 others\n"));
}

TEST(CurrentRules, AFaultOfTheDescriptionIsNamedWithItsLine) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder / "App.xcodeproj");
  folder.file("App.xcodeproj/project.pbxproj", "{\n  a = 1\n}\n");
  const ToolResult result = runTool({"measure", "--rules", "current", folder.path()});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors, "quillmeter-cli: " + (folder / "App.xcodeproj") +
                               "/project.pbxproj:3: expected ';' after the value\n");
}

TEST(CurrentRules, CleanUpListsWhatTheyLeaveOver) {
  const ToolResult result = runTool({"cleanup", "--rules", "current", "--check", kWeather});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.output, HasSubstr("/WeatherTests/Draft.swift\n"));
}

TEST(CurrentRules, ExportsNameSwiftAndStoryboards) {
  const ToolResult all = runTool({"export", "--rules", "current", "--csv", "-", kWeather});
  EXPECT_EQ(all.status, 0) << all.errors;
  EXPECT_THAT(all.output, HasSubstr("\"storyboard\",\""));
  EXPECT_THAT(all.output, HasSubstr("\"source\",\""));
  const ToolResult swift =
      runTool({"export", "--rules", "current", "--kinds", "swift", "--csv", "-", kWeather});
  EXPECT_EQ(std::count(swift.output.begin(), swift.output.end(), '\n'), 11);
  const ToolResult classic = runTool({"export", "--kinds", "swift", "--csv", "-", kWeather});
  EXPECT_EQ(classic.status, 2) << "the classic rules know no Swift";
}

TEST(CurrentRules, AreComparedWithThemselvesOnly) {
  const TemporaryFolder folder;
  const std::string baseline = folder / "current.json";
  ASSERT_EQ(runTool({"measure", "--rules", "current", "--format", "json", "-o", baseline, kWeather}).status,
            0);
  const ToolResult same = runTool({"compare", "--rules", "current", "--format", "json", baseline, kWeather});
  EXPECT_EQ(same.status, 0) << same.errors;
  EXPECT_EQ(json::parse(same.output)["rules"], "current");
  EXPECT_EQ(json::parse(same.output)["files"], json::array());
  EXPECT_EQ(runTool({"compare", baseline, kWeather}).status, 2);
  EXPECT_EQ(runTool({"measure", "--baseline", baseline, kWeather}).status, 2);
}

TEST(CurrentRules, AreNamedInEveryComparison) {
  const TemporaryFolder folder;
  const std::string baseline = folder / "current.json";
  for (const std::string rules : {"current", "classic"}) {
    ASSERT_EQ(runTool({"measure", "--rules", rules, "--format", "json", "-o", baseline, kWeather}).status, 0);
    for (const std::string format : {"table", "markdown"}) {
      const std::string output =
          runTool({"compare", "--rules", rules, "--format", format, baseline, kWeather}).output;
      const bool isNamed = output.find("\nMeasured by the current rules\n") != std::string::npos;
      EXPECT_EQ(isNamed, rules == "current") << output;
    }
  }
}

TEST(CurrentRules, TargetsNeedThem) {
  const ToolResult result = runTool({"measure", "--by", "target", kNotebook});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.errors, HasSubstr("--by target needs --rules current"));
}

TEST(References, AreListedUnderBothRules) {
  const ToolResult current =
      runTool({"references", "--rules", "current", "--format", "json", "--check", kWeather});
  EXPECT_EQ(current.status, 1);
  const json output = json::parse(current.output);
  EXPECT_EQ(output["version"], 1);
  ASSERT_EQ(output["missing"].size(), 1U);
  EXPECT_THAT(output["missing"][0]["location"].get<std::string>(),
              HasSubstr("WeatherTests/RadarTests.swift"));
  EXPECT_EQ(output["otherCase"], json::array());
  const ToolResult classic = runTool({"references", kNotebook});
  EXPECT_EQ(classic.status, 0);
  EXPECT_THAT(classic.output, HasSubstr("missing  4E42EC44271A15A1C3D70042  AttachmentCell.m\n"));
}

TEST(References, AreToldWhenTheirNamesExistInOtherCaseOnly) {
  const TemporaryFolder folder;
  folder.file("Main.m", "int a;\n");
  testing::writeProject(folder, {"main.m"});
  const ToolResult result = runTool({"references", "--format", "json", "--check", folder.path()});
  EXPECT_EQ(result.status, 1);
  const json output = json::parse(result.output);
  EXPECT_EQ(output["missing"], json::array());
  EXPECT_EQ(output["otherCase"][0]["location"], "main.m");
  EXPECT_EQ(output["otherCase"][0]["filePath"], folder / "Main.m");
}

TEST(References, AreFineWhenAllLeadSomewhere) {
  const TemporaryFolder folder;
  folder.file("main.m", "int a;\n");
  testing::writeProject(folder, {"main.m"});
  const ToolResult result = runTool({"references", "--check", folder.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "Every reference leads to what it names.\n");
}

/// Each reason why nothing can be measured, in words of its own.
TEST(NothingMeasured, IsExplained) {
  const TemporaryFolder folder;
  const auto said = [](const std::string& project) {
    const ToolResult result = runTool({"measure", project});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.output, "");
    return result.errors;
  };
  EXPECT_EQ(said(folder / "none"), "quillmeter-cli: " + (folder / "none") + ": no such file or folder\n");
  EXPECT_EQ(said(folder.path()), "quillmeter-cli: " + folder.path() + " holds no .xcodeproj bundle\n");
  std::filesystem::create_directories(folder / "App.xcodeproj");
  const std::string bundle = folder / "App.xcodeproj";
  EXPECT_EQ(said(folder.path()), "quillmeter-cli: " + bundle + " holds no project.pbxproj\n");
  folder.file("read.me");
  testing::writeProject(folder, {"read.me", "gone.m", "App.app"});
  EXPECT_EQ(said(bundle),
            "quillmeter-cli: " + bundle +
                ": the project references no file of a known kind that is there; it references 1 .me "
                "and 1 .app; nothing is found for 1 reference\n");
}

TEST(SeveralProjects, AreNamed) {
  const TemporaryFolder folder;
  folder.file("main.m", "int a;\n");
  testing::writeProject(folder, {"main.m"});
  std::filesystem::create_directories(folder / "Other.xcodeproj");
  const ToolResult result = runTool({"measure", folder.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "quillmeter-cli: " + folder.path() +
                               " holds several projects: this is App.xcodeproj, not Other.xcodeproj\n");
}

}  // namespace
}  // namespace quillmeter
