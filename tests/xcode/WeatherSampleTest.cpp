#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/ParseProject.h"
#include "xcode/CurrentProject.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;

const std::string kSample = QUILLMETER_SOURCE_DIR "/samples/Weather";

/// The second sample project: what its figures are by either set of rules.
class WeatherSample : public ::testing::Test {
 protected:
  void SetUp() override {
    current_.parseFileAtPathAndDelegate(kSample + "/Weather.xcodeproj", nullptr);
    classic_.parseFileAtPathAndDelegate(kSample + "/Weather.xcodeproj", nullptr);
  }

  static std::string shown(const std::string& path) { return path.substr(kSample.size() + 1); }
  static std::vector<std::string> paths(const FileList& files) {
    std::vector<std::string> result;
    for (const auto& file : files)
      result.push_back(shown(*file->filePath()));
    return result;
  }
  std::vector<std::string> filesOfTarget(std::size_t target) const {
    std::vector<std::string> result;
    for (const auto file : current_.findings().targets.at(target).files)
      result.push_back(paths(current_.files()).at(file));
    return result;
  }

  CurrentProject current_;
  ParseProject classic_;
};

TEST_F(WeatherSample, HasFifteenFilesByTheCurrentRules) {
  EXPECT_EQ(current_.findings().error, "");
  EXPECT_EQ(current_.projectTitle(), "Weather");
  EXPECT_THAT(paths(current_.files()),
              ElementsAre("Weather/Assets.xcassets/Logo.imageset/logo.pdf",
                          "Weather/Assets.xcassets/Sun.imageset/sun.svg", "Weather/Model/Forecast.swift",
                          "Weather/Model/ForecastStore.swift", "Weather/Model/PreviewData.swift",
                          "Weather/Views/ForecastRow.swift", "Weather/Views/ForecastView.swift",
                          "Weather/WeatherApp.swift", "Weather/en.lproj/Launch.storyboard",
                          "WeatherTests/WeatherTests.swift", "Bridge.h", "Units/Package.swift",
                          "Units/Sources/Units/Speed.swift", "Units/Sources/Units/Temperature.swift",
                          "Units/Tests/UnitsTests/UnitsTests.swift"));
}

TEST_F(WeatherSample, AddsUpToItsTotals) {
  std::int64_t size = 0;
  std::int64_t lines = 0;
  std::int64_t comments = 0;
  std::int64_t words = 0;
  for (const auto& file : current_.files()) {
    size += integerValue(file->fileSize());
    lines += integerValue(file->noLinesTotal());
    comments += integerValue(file->noLinesComments());
    words += integerValue(file->noWords());
  }
  EXPECT_EQ(size, 5825);
  EXPECT_EQ(lines, 211);
  EXPECT_EQ(comments, 22);
  EXPECT_EQ(words, 580);
}

TEST_F(WeatherSample, BuildsTwoTargetsThatShareAFile) {
  ASSERT_THAT(current_.findings().targets, SizeIs(2));
  EXPECT_EQ(current_.findings().targets[0].name, "Weather");
  EXPECT_THAT(filesOfTarget(0),
              ElementsAre("Weather/Assets.xcassets/Logo.imageset/logo.pdf",
                          "Weather/Assets.xcassets/Sun.imageset/sun.svg", "Weather/Model/Forecast.swift",
                          "Weather/Model/ForecastStore.swift", "Weather/Views/ForecastRow.swift",
                          "Weather/Views/ForecastView.swift", "Weather/WeatherApp.swift",
                          "Weather/en.lproj/Launch.storyboard"));
  EXPECT_EQ(current_.findings().targets[1].name, "WeatherTests");
  EXPECT_THAT(filesOfTarget(1), ElementsAre("Weather/Model/Forecast.swift", "Weather/Model/PreviewData.swift",
                                            "WeatherTests/WeatherTests.swift"));
}

TEST_F(WeatherSample, LeavesOutWhatIsMissingOrOfOtherKinds) {
  ASSERT_THAT(current_.findings().missing, SizeIs(1));
  EXPECT_EQ(shown(current_.findings().missing[0].location), "WeatherTests/RadarTests.swift");
  EXPECT_EQ(current_.findings().missing[0].identifier, "4A2000042E10000100A1B2C3");
  EXPECT_EQ(current_.findings().foreign, 0U);
  EXPECT_THAT(current_.findings().otherCase, IsEmpty());
  EXPECT_THAT(current_.findings().other.counts(), ElementsAre(Pair("json", 3), Pair("plist", 1)));
}

TEST_F(WeatherSample, HasOneLeftoverOnDisk) {
  EXPECT_THAT(paths(current_.unreferencedFiles()), ElementsAre("WeatherTests/Draft.swift"));
}

TEST_F(WeatherSample, IsLittleMoreThanNothingByTheClassicRules) {
  EXPECT_THAT(paths(classic_.files()), ElementsAre("Bridge.h"));
  EXPECT_EQ(classic_.getNumberCodeFiles(), 1U);
  EXPECT_EQ(classic_.files()[0]->noLinesTotal(), Number(13));
  EXPECT_THAT(paths(classic_.unreferencedFiles()), IsEmpty());
}

}  // namespace
}  // namespace quillmeter
