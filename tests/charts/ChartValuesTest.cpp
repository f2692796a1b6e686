#include "charts/ChartValues.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "analysis/ParseProject.h"
#include "charts/ChartKind.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::projectWith;
using testing::record;

FileList sources(int count) {
  FileList files;
  for (int i = 1; i <= count; ++i) {
    files.push_back(record({.name = "File" + std::to_string(i) + ".m", .size = 1, .lines = i}));
  }
  return files;
}

std::vector<std::string> names(const FileList& files) {
  std::vector<std::string> result;
  for (const auto& file : files)
    result.push_back(file->fileName().value_or("(none)"));
  return result;
}

using Names = std::vector<std::string>;

TEST(ChartValues, ThreeSourceFilesMakeThreeBarsAndTheirAverage) {
  const auto values = barChartValues(ChartKind::sourceFilesBars, *projectWith(sources(3)));
  EXPECT_EQ(names(values.files), (Names{"File3.m", "File2.m", "File1.m"}));
  EXPECT_DOUBLE_EQ(values.averageNumberOfLines, 2.0);
  EXPECT_EQ(values.maxNumberOfLines, 3);
  EXPECT_EQ(grownBars(ChartKind::sourceFilesBars, values.files, 1.0F).size(), 3U);
}

TEST(ChartValues, AverageOfFortyFilesIsOverAllOfThemThoughFifteenAreShown) {
  const auto values = barChartValues(ChartKind::sourceFilesBars, *projectWith(sources(40)));
  EXPECT_EQ(values.files.size(), 40U);
  EXPECT_DOUBLE_EQ(values.averageNumberOfLines, 20.5);
  EXPECT_EQ(values.maxNumberOfLines, 40);
  const FileList bars = grownBars(ChartKind::sourceFilesBars, values.files, 1.0F);
  ASSERT_EQ(bars.size(), 15U);
  EXPECT_EQ(bars.front()->fileName(), "File40.m");
  EXPECT_EQ(bars.back()->fileName(), "File26.m");
}

TEST(ChartValues, SingleFileIsItsOwnAverageAndMaximum) {
  const auto values =
      barChartValues(ChartKind::sourceFilesBars, *projectWith({record({.name = "main.c", .lines = 7})}));
  EXPECT_EQ(names(values.files), Names{"main.c"});
  EXPECT_DOUBLE_EQ(values.averageNumberOfLines, 7.0);
  EXPECT_EQ(values.maxNumberOfLines, 7);
}

TEST(ChartValues, EachBarChartTakesItsOwnKindAndMeasure) {
  const auto project = projectWith({
      record({.name = "a.m", .size = 900, .lines = 5}),
      record({.name = "b.XIB", .size = 30, .lines = 80}),
      record({.name = "c.png", .size = 70}),
      record({.name = "d.icns", .size = 999}),
      record({.name = "e.jpg", .size = 71}),
      record({.name = "f.txt", .size = 5000, .lines = 5000}),
  });
  EXPECT_EQ(names(barChartValues(ChartKind::sourceFilesBars, *project).files), Names{"a.m"});
  EXPECT_EQ(barChartValues(ChartKind::sourceFilesBars, *project).maxNumberOfLines, 5);
  EXPECT_EQ(names(barChartValues(ChartKind::xibFilesBars, *project).files), Names{"b.XIB"});
  EXPECT_EQ(barChartValues(ChartKind::xibFilesBars, *project).maxNumberOfLines, 30);
  EXPECT_EQ(names(barChartValues(ChartKind::imageFilesBars, *project).files), (Names{"e.jpg", "c.png"}));
  EXPECT_DOUBLE_EQ(barChartValues(ChartKind::imageFilesBars, *project).averageNumberOfLines, 70.5);
}

TEST(ChartValues, FilesOfEqualMeasureKeepTheOrderOfTheProject) {
  FileList files;
  Names expected;
  for (int i = 0; i < 200; ++i) {
    files.push_back(record({.name = std::to_string(i) + ".h", .lines = 12}));
    expected.push_back(std::to_string(i) + ".h");
  }
  files.push_back(record({.name = "longest.h", .lines = 13}));
  expected.insert(expected.begin(), "longest.h");
  EXPECT_EQ(names(barChartValues(ChartKind::sourceFilesBars, *projectWith(files)).files), expected);
}

TEST(ChartValues, FileReferencedTwiceHasTwoBars) {
  const auto file = record({.name = "twice.m", .lines = 4});
  const auto values = barChartValues(ChartKind::sourceFilesBars, *projectWith({file, file}));
  EXPECT_EQ(names(values.files), (Names{"twice.m", "twice.m"}));
  EXPECT_DOUBLE_EQ(values.averageNumberOfLines, 4.0);
}

TEST(ChartValues, NoFilesOfTheKindGiveAverageAndMaximumZero) {
  for (const ChartKind chart :
       {ChartKind::sourceFilesBars, ChartKind::xibFilesBars, ChartKind::imageFilesBars}) {
    const auto values = barChartValues(chart, *projectWith({record({.name = "readme.txt", .size = 4})}));
    EXPECT_TRUE(values.files.empty());
    EXPECT_EQ(values.averageNumberOfLines, 0.0);
    EXPECT_EQ(values.maxNumberOfLines, 0);
  }
}

TEST(ChartValues, ProjectThatWasNeverReadHasNoBars) {
  EXPECT_TRUE(barChartValues(ChartKind::sourceFilesBars, ParseProject()).files.empty());
}

TEST(ChartValues, PieHasNoBars) {
  EXPECT_TRUE(barChartValues(ChartKind::codeLinesPie, *projectWith(sources(3))).files.empty());
  EXPECT_TRUE(barChartValues(ChartKind::fileKindsPie, *projectWith(sources(3))).files.empty());
}

TEST(ChartValues, AbsentMeasureCountsAsZeroAndComesLast) {
  const auto values = barChartValues(
      ChartKind::sourceFilesBars,
      *projectWith({record({.name = "unread.m", .lines = -1}), record({.name = "read.m", .lines = 8})}));
  EXPECT_EQ(names(values.files), (Names{"read.m", "unread.m"}));
  EXPECT_DOUBLE_EQ(values.averageNumberOfLines, 4.0);
}

TEST(ChartValues, SumBeyondSixtyFourBitsStaysAtItsEnd) {
  constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
  const auto values = barChartValues(
      ChartKind::xibFilesBars,
      *projectWith({record({.name = "a.xib", .size = largest}), record({.name = "b.xib", .size = largest})}));
  EXPECT_DOUBLE_EQ(values.averageNumberOfLines, static_cast<double>(largest) / 2);
}

TEST(ChartValues, HundredThousandFilesAreSortedWhole) {
  FileList files;
  for (int i = 0; i < 100'000; ++i) {
    files.push_back(record({.name = "f.m", .lines = (i * 7919) % 100'003}));
  }
  const auto values = barChartValues(ChartKind::sourceFilesBars, *projectWith(std::move(files)));
  ASSERT_EQ(values.files.size(), 100'000U);
  EXPECT_TRUE(std::is_sorted(values.files.begin(), values.files.end(), [](const auto& a, const auto& b) {
    return integerValue(a->noLinesTotal()) > integerValue(b->noLinesTotal());
  }));
}

TEST(PieFractions, SharesOfFilesLeaveTheRestToTheThird) {
  const auto project = projectWith({record({.name = "a.m"}), record({.name = "b.xib"}),
                                    record({.name = "c.png"}), record({.name = "d.icns"})});
  const PieFractions fractions = pieFractions(*project, {});
  EXPECT_DOUBLE_EQ(fractions.pieChart2Perc1, 0.25);
  EXPECT_DOUBLE_EQ(fractions.pieChart2Perc2, 0.25);
  EXPECT_DOUBLE_EQ(fractions.pieChart2Perc3, 0.5);
}

TEST(PieFractions, SharesOfLinesComeFromTheTotals) {
  const PieFractions fractions = pieFractions(*projectWith({record({.name = "a.m"})}), {200, 50, 30});
  EXPECT_DOUBLE_EQ(fractions.pieChart1Perc3, 0.25);
  EXPECT_DOUBLE_EQ(fractions.pieChart1Perc2, 0.15);
  EXPECT_DOUBLE_EQ(fractions.pieChart1Perc1, 0.6);
}

TEST(PieFractions, NothingToShareOutGivesNoNumbers) {
  const PieFractions fractions = pieFractions(*projectWith({}), {});
  for (const double share : {fractions.pieChart1Perc1, fractions.pieChart1Perc2, fractions.pieChart1Perc3,
                             fractions.pieChart2Perc1, fractions.pieChart2Perc2, fractions.pieChart2Perc3,
                             fractions.pieChart3Perc1}) {
    EXPECT_TRUE(std::isnan(share));
  }
}

TEST(GrownBars, GrowOnlyTheChartsOwnMeasure) {
  const FileList files{record({.name = "a.m", .size = 500, .lines = 200})};
  const auto lines = grownBars(ChartKind::sourceFilesBars, files, 0.5F).front();
  EXPECT_EQ(doubleValue(lines->noLinesTotal()), 100.0);
  EXPECT_EQ(integerValue(lines->fileSize()), 500);
  EXPECT_EQ(lines->fileName(), "a.m");
  const auto size = grownBars(ChartKind::xibFilesBars, files, 0.5F).front();
  EXPECT_EQ(doubleValue(size->fileSize()), 250.0);
  EXPECT_EQ(integerValue(size->noLinesTotal()), 200);
}

TEST(GrownBars, AreCopiesThatLeaveTheProjectAlone) {
  const FileList files{record({.name = "a.m", .lines = 200})};
  const FileList bars = grownBars(ChartKind::sourceFilesBars, files, 0.0F);
  EXPECT_EQ(integerValue(bars.front()->noLinesTotal()), 0);
  EXPECT_EQ(integerValue(files.front()->noLinesTotal()), 200);
}

TEST(GrownBars, PassThroughSinglePrecisionAlsoAtFullSize) {
  const FileList files{record({.name = "a.png", .size = 16'777'217}), record({.name = "b.png", .size = 3})};
  EXPECT_EQ(doubleValue(grownBars(ChartKind::imageFilesBars, files, 1.0F)[0]->fileSize()), 16'777'216.0);
  // 3 × 0.2 in single precision, which is not the double 0.6.
  const double fifth = doubleValue(grownBars(ChartKind::imageFilesBars, files, 0.2F)[1]->fileSize());
  EXPECT_EQ(fifth, static_cast<double>(3.0F * 0.2F));
  EXPECT_NE(fifth, 0.6);
}

TEST(GrownBars, MeasureBeyondSinglePrecisionStaysFinite) {
  auto file = record({.name = "a.m"});
  file->setNoLinesTotal(Number(1e300));
  EXPECT_TRUE(
      std::isfinite(doubleValue(grownBars(ChartKind::sourceFilesBars, {file}, 1.0F)[0]->noLinesTotal())));
}

}  // namespace
}  // namespace quillmeter
