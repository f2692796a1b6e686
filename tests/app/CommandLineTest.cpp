#include "app/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <vector>

#include "helpers/TemporaryFolder.h"
#include "support/Addresses.h"

namespace quillmeter {
namespace {

CommandLine read(const std::vector<const char*>& arguments) {
  return readCommandLine(arguments);
}

TEST(CommandLine, NothingAsksForNothing) {
  const CommandLine line = read({});
  EXPECT_FALSE(line.project || line.output || line.error);
}

TEST(CommandLine, ProjectBecomesAnAbsolutePathWithoutASlashAtTheEnd) {
  const std::string here = std::filesystem::current_path().string();
  EXPECT_EQ(read({"/a/b//"}).project, "/a/b");
  EXPECT_EQ(read({"."}).project, here);
  EXPECT_EQ(read({"./x/../y"}).project, here + "/y");
  EXPECT_EQ(read({"/"}).project, "/");
}

TEST(CommandLine, StepsUpGoFromWhereALinkLeads) {
  const testing::TemporaryFolder folder;
  folder.folder("real/inner");
  ASSERT_EQ(::symlink("real/inner", (folder / "link").c_str()), 0);
  EXPECT_EQ(read({(folder / "link/..").c_str()}).project, folder / "real");
}

TEST(CommandLine, BytesOfAPathAreKept) {
  EXPECT_EQ(read({"/latin\xE4"}).project, "/latin\xE4");
}

TEST(CommandLine, HelpAndVersionAreWritten) {
  EXPECT_THAT(read({"--help"}).output.value(),
              ::testing::StartsWith("Usage: quillmeter [--rules classic|current] [PROJECT]"));
  EXPECT_EQ(read({"/a", "-h"}).output, read({"--help"}).output);
  EXPECT_EQ(read({"--version"}).output, std::string("quillmeter ") + kVersion + "\n");
}

TEST(CommandLine, PathBehindTwoDashesMayLookLikeAnOption) {
  EXPECT_EQ(read({"--", "/a"}).project, "/a");
  EXPECT_THAT(read({"--", "--help"}).project.value(), ::testing::EndsWith("/--help"));
}

TEST(CommandLine, ToolkitsOptionsMayStandAnywhereAndAreHandedOn) {
  const CommandLine line =
      read({"-platform", "offscreen", "--style=Fusion", "-reverse", "--display", ":1", "--", "-plugin"});
  EXPECT_EQ(line.error, std::nullopt);
  EXPECT_THAT(line.project.value(), ::testing::EndsWith("/-plugin"));
  EXPECT_THAT(line.toolkitArguments, ::testing::ElementsAre("-platform", "offscreen", "--style=Fusion",
                                                            "-reverse", "--display", ":1"));
  EXPECT_EQ(read({"-platform", "offscreen", "/a", "-qwindowtitle", "--help"}).project, "/a");
}

TEST(CommandLine, HelpAndWrongUsageAreFoundBehindTheToolkitsOptions) {
  EXPECT_EQ(read({"-platform", "offscreen", "--help"}).output, read({"--help"}).output);
  EXPECT_EQ(read({"--version", "-display", ":7"}).output, read({"--version"}).output);
  EXPECT_EQ(read({"-style", "Fusion", "--colour"}).error, "unknown option: --colour");
  EXPECT_EQ(read({"/a", "-platform"}).error, "-platform needs a value");
}

TEST(CommandLine, WrongUsageIsTold) {
  EXPECT_EQ(read({"--colour"}).error, "unknown option: --colour");
  EXPECT_EQ(read({"/a", "/b"}).error, "only one project can be opened");
  EXPECT_EQ(read({""}).error, "the project's path is empty");
}

TEST(CommandLine, AnUnknownOptionNamesTheNearest) {
  EXPECT_EQ(read({"--rulse", "current"}).error, "unknown option: --rulse, did you mean --rules?");
  EXPECT_EQ(read({"--rule=current"}).error, "unknown option: --rule=current, did you mean --rules?");
  EXPECT_EQ(read({"--versoin"}).error, "unknown option: --versoin, did you mean --version?");
  EXPECT_EQ(read({"-help"}).error, "unknown option: -help, did you mean --help?");
}

TEST(CommandLine, RulesAreTakenByName) {
  EXPECT_EQ(read({"/a"}).rules, std::nullopt);
  EXPECT_EQ(read({"--rules", "current", "/a"}).rules, ProjectRules::current);
  EXPECT_EQ(read({"--rules", "current", "/a"}).project, "/a");
  EXPECT_EQ(read({"/a", "--rules=classic"}).rules, ProjectRules::classic);
  EXPECT_THAT(read({"--", "--rules"}).project.value(), ::testing::EndsWith("/--rules"));
}

TEST(CommandLine, OtherRulesAreWrongUsage) {
  for (const auto& arguments : std::vector<std::vector<const char*>>{
           {"--rules", "modern"}, {"--rules=", "/a"}, {"--rules=Current"}, {"/a", "--rules"}})
    EXPECT_EQ(read(arguments).error, "--rules takes classic or current");
  EXPECT_EQ(read({"--rulesof", "/a"}).error, "unknown option: --rulesof, did you mean --rules?");
}

}  // namespace
}  // namespace quillmeter
