#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "charts/ChartGeometry.h"

namespace quillmeter {
namespace {

constexpr ChartSize kBounds{660, 540};

ChartContents pie(double first, double second, ChartKind kind = ChartKind::codeLinesPie) {
  ChartContents contents;
  contents.kind = kind;
  contents.CIRCLE_RADIUS = 200;
  contents.pieChart1Perc1 = contents.pieChart2Perc1 = first;
  contents.pieChart1Perc2 = contents.pieChart2Perc2 = second;
  return contents;
}

std::vector<std::size_t> rows(const PieChartDrawing& drawing) {
  std::vector<std::size_t> result;
  for (const ChartSlice& slice : drawing.slices)
    result.push_back(slice.row);
  return result;
}

std::vector<std::string> legend(const ChartContents& contents) {
  std::vector<std::string> texts;
  for (const ChartLegendRow& row : pieChartDrawing(contents, kBounds).legend)
    texts.push_back(row.label.text);
  return texts;
}

using Rows = std::vector<std::size_t>;
using Texts = std::vector<std::string>;

void expectColor(ChartColor color, int red, int green, int blue) {
  EXPECT_EQ(color.red, red);
  EXPECT_EQ(color.green, green);
  EXPECT_EQ(color.blue, blue);
}

TEST(PieChartGeometry, LiesInTheMiddleOfItsBounds) {
  const auto drawing = pieChartDrawing(pie(0.5, 0.25), {400, 300});
  EXPECT_EQ(drawing.centre.x, 200);
  EXPECT_EQ(drawing.centre.y, 150);
  EXPECT_EQ(drawing.radius, 200);
}

TEST(PieChartGeometry, SlicesFollowEachOtherRoundTheCircle) {
  const auto drawing = pieChartDrawing(pie(0.5, 0.25), kBounds);
  ASSERT_EQ(rows(drawing), (Rows{0, 1, 2}));
  EXPECT_EQ(drawing.slices[0].startAngle, 0);
  EXPECT_EQ(drawing.slices[0].endAngle, 180);
  EXPECT_EQ(drawing.slices[1].startAngle, 180);
  EXPECT_EQ(drawing.slices[1].endAngle, 270);
  EXPECT_EQ(drawing.slices[2].startAngle, 270);
  EXPECT_EQ(drawing.slices[2].endAngle, 360);
}

TEST(PieChartGeometry, SecondShareOfZeroLeavesFirstAndThirdSlice) {
  EXPECT_EQ(rows(pieChartDrawing(pie(0.4, 0), kBounds)), (Rows{0, 2}));
}

TEST(PieChartGeometry, SharesThatFillTheCircleLeaveNoThirdSlice) {
  for (const auto& contents : {pie(0.5, 0.5), pie(0.75, 0.5)}) {
    const auto drawing = pieChartDrawing(contents, kBounds);
    EXPECT_EQ(rows(drawing), (Rows{0, 1}));
    EXPECT_EQ(drawing.slices[1].endAngle, 360);
    EXPECT_EQ(legend(contents)[2], "Empty lines (0.00%)");
  }
}

TEST(PieChartGeometry, WholeCircleOfOneShareIsOneSlice) {
  const auto drawing = pieChartDrawing(pie(1, 0), kBounds);
  EXPECT_EQ(rows(drawing), Rows{0});
  EXPECT_EQ(drawing.slices[0].endAngle, 360);
}

TEST(PieChartGeometry, FirstSliceIsThereAlsoWithoutExtent) {
  EXPECT_EQ(rows(pieChartDrawing(pie(0, 0), kBounds)), (Rows{0, 2}));
}

TEST(PieChartGeometry, SharesThatAreNoNumbersLeaveTitleAndLegend) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const auto drawing = pieChartDrawing(pie(none, none), kBounds);
  EXPECT_TRUE(drawing.slices.empty());
  EXPECT_FALSE(drawing.title.text.empty());
  EXPECT_EQ(legend(pie(none, none)),
            (Texts{"Code lines (nan%)", "Comment lines (nan%)", "Empty lines (nan%)"}));
}

TEST(PieChartGeometry, RadiusThatIsNotPositiveHasNoSlices) {
  ChartContents contents = pie(0.5, 0.25);
  contents.CIRCLE_RADIUS = 0;
  EXPECT_TRUE(pieChartDrawing(contents, kBounds).slices.empty());
  contents.CIRCLE_RADIUS = -5;
  EXPECT_TRUE(pieChartDrawing(contents, kBounds).slices.empty());
  EXPECT_EQ(pieChartDrawing(contents, kBounds).legend.size(), 3U);
}

TEST(PieChartGeometry, LegendTellsSharesInHundredths) {
  EXPECT_EQ(legend(pie(0.5, 0.125)),
            (Texts{"Code lines (50.00%)", "Comment lines (12.50%)", "Empty lines (37.50%)"}));
  EXPECT_EQ(legend(pie(1.0 / 3, 0.5, ChartKind::fileKindsPie)),
            (Texts{"Source files (33.33%)", "XIB files (50.00%)", "Image files (16.67%)"}));
}

TEST(PieChartGeometry, LegendRowsStandTwentyPointsApart) {
  const auto drawing = pieChartDrawing(pie(0.5, 0.25), kBounds);
  for (std::size_t row = 0; row < 3; ++row) {
    const ChartLegendRow& entry = drawing.legend[row];
    const double y = 50 + 20 * static_cast<double>(row);
    EXPECT_EQ(entry.box.x, 30);
    EXPECT_EQ(entry.box.y, y);
    EXPECT_EQ(entry.box.width, 16);
    EXPECT_EQ(entry.box.height, 16);
    EXPECT_EQ(entry.label.frame.x, 50);
    EXPECT_EQ(entry.label.frame.y, y - 3);
    EXPECT_EQ(entry.label.frame.width, 200);
    EXPECT_EQ(entry.label.frame.height, 20);
    EXPECT_EQ(entry.label.fontSize, 12);
    EXPECT_EQ(entry.label.wrap, ChartTextWrap::characters);
  }
}

TEST(PieChartGeometry, EachPieHasItsOwnColours) {
  const auto code = pieChartDrawing(pie(0.5, 0.25), kBounds);
  expectColor(code.slices[0].color, 115, 177, 223);
  expectColor(code.slices[1].color, 12, 141, 255);
  expectColor(code.slices[2].color, 0, 149, 184);
  expectColor(code.legend[2].color, 0, 149, 184);
  const auto kinds = pieChartDrawing(pie(0.5, 0.25, ChartKind::fileKindsPie), kBounds);
  expectColor(kinds.slices[0].color, 10, 139, 174);
  expectColor(kinds.slices[1].color, 162, 193, 172);
  expectColor(kinds.slices[2].color, 91, 138, 169);
  expectColor(kinds.legend[0].color, 10, 139, 174);
}

TEST(SliceAt, AnglesGrowClockwiseFromTheRight) {
  const auto drawing = pieChartDrawing(pie(0.25, 0.25), kBounds);
  EXPECT_EQ(sliceAt(drawing, {400, 340}), 0U);  // right below
  EXPECT_EQ(sliceAt(drawing, {260, 340}), 1U);  // left below
  EXPECT_EQ(sliceAt(drawing, {260, 200}), 2U);  // left above
  EXPECT_EQ(sliceAt(drawing, {400, 200}), 2U);  // right above
  EXPECT_EQ(sliceAt(drawing, {531, 270}), std::nullopt);
}

}  // namespace
}  // namespace quillmeter
