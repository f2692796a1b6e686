#include "charts/ChartParts.h"

#include <gtest/gtest.h>

#include <limits>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::record;

TEST(ChartParts, OfBarsAreTheFilesWithWhatTheChartMeasures) {
  ChartContents contents;
  contents.kind = ChartKind::sourceFilesBars;
  contents.arrayValues = {record({.name = "a.m", .size = 2048, .lines = 12}),
                          record({.name = "b.m", .size = 1024, .lines = 7})};
  const auto lines = chartParts(contents);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].name, "a.m");
  EXPECT_EQ(lines[0].value, "12 lines");
  EXPECT_EQ(lines[1].value, "7 lines");
  contents.kind = ChartKind::imageFilesBars;
  EXPECT_EQ(chartParts(contents)[0].value, "2.0 KB");
}

TEST(ChartParts, OfAPieAreTheRowsOfItsLegend) {
  ChartContents contents;
  contents.kind = ChartKind::fileKindsPie;
  contents.pieChart2Perc1 = 0.5;
  contents.pieChart2Perc2 = 0.25;
  const auto slices = chartParts(contents);
  ASSERT_EQ(slices.size(), 3U);
  EXPECT_EQ(slices[0].name, "Source files (50.00%)");
  EXPECT_EQ(slices[2].name, "Image files (25.00%)");
  EXPECT_EQ(slices[0].value, "");
}

TEST(ChartParts, AreNoneForBarsThatAreNotThereYet) {
  ChartContents contents;
  contents.kind = ChartKind::xibFilesBars;
  EXPECT_TRUE(chartParts(contents).empty());
  contents.arrayValues = FileList();
  EXPECT_TRUE(chartParts(contents).empty());
}

}  // namespace
}  // namespace quillmeter
