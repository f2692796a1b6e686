#include "charts/ChartAdvice.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "charts/ChartKind.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::record;

constexpr auto kTooLittle = "too little code/responsability; try adding more";
constexpr auto kNormalCode = "code level is in\nnormal range";
constexpr auto kTooMuch = "too much code/responsability; try distributing it to other classes";
constexpr auto kNormalSize = "size level is in\nnormal range";
constexpr auto kLargeXIB = "size level is above average; try optimizing the XIB file";
constexpr auto kLargeImage = "size level is above average; try optimizing the image";

std::optional<std::string> codeAdvice(std::int64_t lines, double average) {
  return chartAdvice(ChartKind::sourceFilesBars, *record({.name = "a.m", .lines = lines}), average)->advice;
}

std::optional<std::string> sizeAdvice(ChartKind chart, std::int64_t size, double average) {
  return chartAdvice(chart, *record({.name = "a", .size = size}), average)->advice;
}

TEST(ChartAdvice, NamesFileLinesAndAverage) {
  const auto advice =
      chartAdvice(ChartKind::sourceFilesBars, *record({.name = "Window.m", .lines = 1234}), 617.25);
  EXPECT_EQ(advice->fileName, "Window.m");
  EXPECT_EQ(advice->value, "LOC: 1234 lines");
  EXPECT_EQ(advice->average, "Average: 617.2 lines");
  EXPECT_EQ(advice->advice, kNormalCode);
}

TEST(ChartAdvice, ExactlyFourTenthsOfTheAverageIsNormalAndJustBelowIsTooLittle) {
  EXPECT_EQ(codeAdvice(4, 10.0), kNormalCode);
  EXPECT_EQ(codeAdvice(400, 1000.0), kNormalCode);
  EXPECT_EQ(codeAdvice(399, 1000.0), kTooLittle);
  EXPECT_EQ(codeAdvice(4, std::nextafter(10.0, 11.0)), kTooLittle);
}

TEST(ChartAdvice, ExactlyTwiceTheAverageIsNormalAndJustAboveIsTooMuch) {
  EXPECT_EQ(codeAdvice(20, 10.0), kNormalCode);
  EXPECT_EQ(codeAdvice(20, std::nextafter(10.0, 9.0)), kTooMuch);
  EXPECT_EQ(codeAdvice(2001, 1000.0), kTooMuch);
}

TEST(ChartAdvice, SizesAreNeverTooSmall) {
  EXPECT_EQ(sizeAdvice(ChartKind::xibFilesBars, 1, 1000.0), kNormalSize);
  EXPECT_EQ(sizeAdvice(ChartKind::xibFilesBars, 2000, 1000.0), kNormalSize);
  EXPECT_EQ(sizeAdvice(ChartKind::xibFilesBars, 2001, 1000.0), kLargeXIB);
  EXPECT_EQ(sizeAdvice(ChartKind::imageFilesBars, 2000, 1000.0), kNormalSize);
  EXPECT_EQ(sizeAdvice(ChartKind::imageFilesBars, 2001, 1000.0), kLargeImage);
}

TEST(ChartAdvice, MegabytesBeginAtExactlyOne) {
  EXPECT_EQ(chartAdvice(ChartKind::xibFilesBars, *record({.name = "a.xib", .size = 1'048'576}), 1)->value,
            "File size: 1.0 MB");
  EXPECT_EQ(chartAdvice(ChartKind::xibFilesBars, *record({.name = "a.xib", .size = 1'048'575}), 1)->value,
            "File size: 1024.0 KB");
  EXPECT_EQ(chartAdvice(ChartKind::imageFilesBars, *record({.name = "a.png"}), 1'048'576)->average,
            "Average: 1.0 MB");
  EXPECT_EQ(chartAdvice(ChartKind::imageFilesBars, *record({.name = "a.png"}), 1'048'575)->average,
            "Average: 1024.0 KB");
}

TEST(ChartAdvice, ZeroAgainstAnAverageOfZeroHasNoAdvice) {
  const auto advice = chartAdvice(ChartKind::sourceFilesBars, *record({.name = "empty.m"}), 0.0);
  ASSERT_TRUE(advice.has_value());
  EXPECT_EQ(advice->value, "LOC: 0 lines");
  EXPECT_EQ(advice->advice, std::nullopt);
  EXPECT_EQ(sizeAdvice(ChartKind::xibFilesBars, 0, 0.0), std::nullopt);
  EXPECT_EQ(sizeAdvice(ChartKind::imageFilesBars, 0, 0.0), std::nullopt);
}

TEST(ChartAdvice, SomethingAgainstAnAverageOfZeroIsTooMuch) {
  EXPECT_EQ(codeAdvice(1, 0.0), kTooMuch);
  EXPECT_EQ(sizeAdvice(ChartKind::imageFilesBars, 1, 0.0), kLargeImage);
}

TEST(ChartAdvice, AverageThatIsNoNumberHasNoAdvice) {
  EXPECT_EQ(codeAdvice(1, std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(ChartAdvice, PartlyGrownLinesAreShownAndJudgedAsWholeLines) {
  auto file = record({.name = "a.m"});
  file->setNoLinesTotal(Number(20.9));
  EXPECT_EQ(chartAdvice(ChartKind::sourceFilesBars, *file, 10)->value, "LOC: 20 lines");
  EXPECT_EQ(chartAdvice(ChartKind::sourceFilesBars, *file, 10)->advice, kNormalCode);
}

TEST(ChartAdvice, PartlyGrownSizesAreShownAndJudgedAsWholeBytes) {
  auto file = record({.name = "a.xib"});
  file->setFileSize(Number(1024.0 * 1024.0 - 0.1));
  EXPECT_EQ(chartAdvice(ChartKind::xibFilesBars, *file, 1024)->value, "File size: 1024.0 KB");
  file->setFileSize(Number(2048.9));
  EXPECT_EQ(chartAdvice(ChartKind::xibFilesBars, *file, 1024)->advice, kNormalSize);
}

TEST(ChartAdvice, FileWithoutNameOrCountersIsMetWithNothingAndZeros) {
  const auto advice = chartAdvice(ChartKind::imageFilesBars, FileObject(), 1024.0);
  EXPECT_EQ(advice->fileName, "");
  EXPECT_EQ(advice->value, "File size: 0.0 KB");
}

TEST(ChartAdvice, PiesHaveNone) {
  const auto file = record({.name = "a.m", .lines = 5});
  EXPECT_FALSE(chartAdvice(ChartKind::codeLinesPie, *file, 1).has_value());
  EXPECT_FALSE(chartAdvice(ChartKind::fileKindsPie, *file, 1).has_value());
}

}  // namespace
}  // namespace quillmeter
