#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "charts/ChartGeometry.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::record;

/// Every letter as wide as half the font size, every line as high as the font size.
ChartSize plainMeasure(const std::string& text, double fontSize) {
  return {static_cast<double>(text.size()) * fontSize / 2, fontSize};
}

ChartContents bars(std::vector<std::int64_t> lines, ChartKind kind = ChartKind::sourceFilesBars) {
  ChartContents contents;
  contents.kind = kind;
  contents.arrayValues = FileList();
  for (const std::int64_t value : lines) {
    contents.maxNumberOfLines = std::max(contents.maxNumberOfLines, value);
    contents.arrayValues->push_back(record({.name = "file", .size = value, .lines = value}));
  }
  return contents;
}

std::vector<std::string> gridTexts(const ChartContents& contents) {
  std::vector<std::string> texts;
  for (const ChartLabel& label : barChartDrawing(contents, plainMeasure).gridLabels)
    texts.push_back(label.text);
  return texts;
}

using Texts = std::vector<std::string>;

TEST(BarChartGeometry, AxesRunDownThePlotAndAlongItsFoot) {
  const auto axes = barChartDrawing(bars({10}), plainMeasure).axes;
  ASSERT_EQ(axes.size(), 3U);
  EXPECT_EQ(axes[0].x, 80);
  EXPECT_EQ(axes[0].y, 69);
  EXPECT_EQ(axes[1].x, 80);
  EXPECT_EQ(axes[1].y, 480);
  EXPECT_EQ(axes[2].x, 610);
  EXPECT_EQ(axes[2].y, 480);
}

TEST(BarChartGeometry, TitleTellsTheChart) {
  const auto title = [](std::int32_t number) { return chartTitleLabel(chartKindOf(number).value()).text; };
  EXPECT_EQ(title(0), "Chart type: code lines distribution");
  EXPECT_EQ(title(1), "Chart type: source/images/XIB distribution");
  EXPECT_EQ(title(2), "Chart type: top 15 source files by lines of code");
  EXPECT_EQ(title(3), "Chart type: top 15 XIB files by size");
  EXPECT_EQ(title(4), "Chart type: top 15 image files by size (excluding .icns)");
  const ChartLabel label = chartTitleLabel(ChartKind::sourceFilesBars);
  EXPECT_EQ(label.frame.x, 30);
  EXPECT_EQ(label.frame.y, 10);
  EXPECT_EQ(label.frame.width, 500);
  EXPECT_EQ(label.frame.height, 20);
  EXPECT_EQ(label.fontSize, 12);
  EXPECT_EQ(label.wrap, ChartTextWrap::words);
}

TEST(BarChartGeometry, GridStandsAtTenthsOfTheMaximumFromTheTop) {
  const auto drawing = barChartDrawing(bars({1000}), plainMeasure);
  ASSERT_EQ(drawing.grid.size(), 10U);
  for (std::size_t i = 0; i < 10; ++i) {
    EXPECT_EQ(drawing.grid[i].from.x, 80);
    EXPECT_EQ(drawing.grid[i].to.x, 610);
    EXPECT_NEAR(drawing.grid[i].from.y, 70 + 41.0 * static_cast<double>(i), 1e-9);
    EXPECT_EQ(drawing.grid[i].to.y, drawing.grid[i].from.y);
  }
  EXPECT_EQ(gridTexts(bars({1000})),
            (Texts{"1000", "900", "800", "700", "600", "500", "400", "300", "200", "100"}));
}

TEST(BarChartGeometry, MaximumOfSevenCutsTenthsToWholeLinesAndLeavesZeroUnlabelled) {
  EXPECT_EQ(gridTexts(bars({7})), (Texts{"7", "6", "5", "4", "4", "3", "2", "2", "1"}));
  const auto drawing = barChartDrawing(bars({7}), plainMeasure);
  ASSERT_EQ(drawing.grid.size(), 10U);
  // The line of value 0 lies on the axis.
  EXPECT_DOUBLE_EQ(drawing.grid.back().from.y, 480);
  EXPECT_DOUBLE_EQ(drawing.grid[8].from.y, 70 + (1 - 1.0 / 7) * 410);
}

TEST(BarChartGeometry, SizesAreLabelledInKilobytesAndMegabytes) {
  const Texts texts = gridTexts(bars({3'145'728}, ChartKind::xibFilesBars));
  EXPECT_EQ(texts[0], "3.0 MB");
  EXPECT_EQ(texts[1], "2.7 MB");
  EXPECT_EQ(texts.back(), "307.2 KB");
  EXPECT_EQ(gridLabelText(ChartKind::imageFilesBars, 1'048'575), "1024.0 KB");
  EXPECT_EQ(gridLabelText(ChartKind::imageFilesBars, 1'048'576), "1.0 MB");
  EXPECT_EQ(gridLabelText(ChartKind::sourceFilesBars, 1'048'576), "1048576");
}

TEST(BarChartGeometry, GridLabelsEndFivePointsBeforeTheAxisCentredOnTheirLine) {
  const auto drawing = barChartDrawing(bars({1000}), plainMeasure);
  const ChartLabel& top = drawing.gridLabels.front();
  EXPECT_EQ(top.frame.width, 24);
  EXPECT_EQ(top.frame.right(), 75);
  EXPECT_EQ(top.frame.y, 70 - 6 - 1);
  EXPECT_EQ(top.fontSize, 12);
}

TEST(BarChartGeometry, BarsStandSixPointsApartOnTheFootOfThePlot) {
  const auto drawing = barChartDrawing(bars({1000, 500, 0}), plainMeasure);
  ASSERT_EQ(drawing.bars.size(), 3U);
  const ChartRect first = drawing.bars[0].rectangle.value();
  EXPECT_EQ(first.x, 86);
  EXPECT_EQ(first.y, 70);
  EXPECT_EQ(first.width, 26);
  EXPECT_EQ(first.height, 410);
  const ChartRect second = drawing.bars[1].rectangle.value();
  EXPECT_EQ(second.x, 118);
  EXPECT_EQ(second.y, 275);
  EXPECT_EQ(second.bottom(), 480);
  EXPECT_EQ(drawing.bars[2].rectangle->height, 0);
}

TEST(BarChartGeometry, MagnifierHangsBelowEachBar) {
  const auto drawing = barChartDrawing(bars({5, 4, 3, 2, 1}), plainMeasure);
  for (std::size_t i = 0; i < 5; ++i) {
    const ChartRect& lense = drawing.bars[i].lense;
    EXPECT_EQ(lense.x, 92 + 32 * static_cast<double>(i));
    EXPECT_EQ(lense.y, 485);
    EXPECT_EQ(lense.width, 12);
    EXPECT_EQ(lense.height, 12);
    EXPECT_EQ(drawing.bars[i].index, i);
  }
}

TEST(BarChartGeometry, SixteenthValueHasNoBar) {
  const auto drawing = barChartDrawing(bars(std::vector<std::int64_t>(40, 9)), plainMeasure);
  ASSERT_EQ(drawing.bars.size(), 15U);
  EXPECT_EQ(drawing.bars.back().rectangle->x, 534);
}

TEST(BarChartGeometry, SizeChartsMeasureBytesAndTheSourceChartLines) {
  ChartContents contents = bars({100});
  contents.arrayValues = FileList{record({.name = "a", .size = 50, .lines = 25})};
  EXPECT_EQ(barChartDrawing(contents, plainMeasure).bars[0].rectangle->height, 102.5);
  contents.kind = ChartKind::imageFilesBars;
  EXPECT_EQ(barChartDrawing(contents, plainMeasure).bars[0].rectangle->height, 205);
}

TEST(BarChartGeometry, AverageLineStandsAtItsValueWithItsWordAtTheRightEnd) {
  ChartContents contents = bars({1000});
  contents.averageNumberOfLines = 250;
  contents.shouldDrawAverageLine = true;
  const auto drawing = barChartDrawing(contents, plainMeasure);
  EXPECT_EQ(drawing.averageLine->from.x, 80);
  EXPECT_EQ(drawing.averageLine->to.x, 610);
  EXPECT_EQ(drawing.averageLine->from.y, 377.5);
  EXPECT_EQ(drawing.averageLabel->text, "average");
  EXPECT_EQ(drawing.averageLabel->fontSize, 10);
  EXPECT_EQ(drawing.averageLabel->frame.right(), 610);
  EXPECT_EQ(drawing.averageLabel->frame.y, 361.5);
}

TEST(BarChartGeometry, AverageLineIsDrawnOnlyOnDemand) {
  ChartContents contents = bars({1000});
  contents.averageNumberOfLines = 250;
  EXPECT_FALSE(barChartDrawing(contents, plainMeasure).averageLine.has_value());
}

TEST(BarChartGeometry, MaximumOfZeroLeavesAxesTitleAndMagnifiers) {
  ChartContents contents = bars({0, 0, 0});
  contents.shouldDrawAverageLine = true;
  const auto drawing = barChartDrawing(contents, plainMeasure);
  EXPECT_EQ(drawing.axes.size(), 3U);
  EXPECT_FALSE(drawing.title.text.empty());
  EXPECT_TRUE(drawing.grid.empty());
  EXPECT_TRUE(drawing.gridLabels.empty());
  EXPECT_FALSE(drawing.averageLine.has_value());
  EXPECT_FALSE(drawing.averageLabel.has_value());
  ASSERT_EQ(drawing.bars.size(), 3U);
  for (const ChartBar& bar : drawing.bars)
    EXPECT_FALSE(bar.rectangle.has_value());
}

TEST(BarChartGeometry, AbsentValuesAreNoBars) {
  ChartContents contents = bars({10});
  contents.arrayValues.reset();
  EXPECT_TRUE(barChartDrawing(contents, plainMeasure).bars.empty());
}

TEST(BarChartGeometry, ValuesThatAreNoNumbersHaveNoBarAndNoAverageLine) {
  ChartContents contents = bars({10});
  contents.arrayValues->front()->setNoLinesTotal(Number(std::numeric_limits<double>::quiet_NaN()));
  contents.averageNumberOfLines = std::numeric_limits<double>::infinity();
  contents.shouldDrawAverageLine = true;
  const auto drawing = barChartDrawing(contents, plainMeasure);
  EXPECT_FALSE(drawing.bars[0].rectangle.has_value());
  EXPECT_FALSE(drawing.averageLine.has_value());
}

TEST(BarChartGeometry, LargestMaximumKeepsItsGridInRange) {
  const Texts texts = gridTexts(bars({std::numeric_limits<std::int64_t>::max()}));
  EXPECT_EQ(texts.front(), "9223372036854775807");
  EXPECT_EQ(texts.size(), 10U);
}

TEST(LenseAt, LeftAndTopEdgesAreInsideRightAndBottomEdgesOutside) {
  const auto drawing = barChartDrawing(bars({3, 2, 1}), plainMeasure);
  EXPECT_EQ(lenseAt(drawing.bars, {124, 485}), 1U);
  EXPECT_EQ(lenseAt(drawing.bars, {135.9, 496.9}), 1U);
  EXPECT_EQ(lenseAt(drawing.bars, {123.9, 490}), std::nullopt);
  EXPECT_EQ(lenseAt(drawing.bars, {136, 490}), std::nullopt);
  EXPECT_EQ(lenseAt(drawing.bars, {130, 484.9}), std::nullopt);
  EXPECT_EQ(lenseAt(drawing.bars, {130, 497}), std::nullopt);
}

TEST(BarAt, FindsTheBarDownToItsMagnifierButNotAboveIt) {
  const auto drawing = barChartDrawing(bars({100, 50}), plainMeasure);
  EXPECT_EQ(barAt(drawing.bars, {90, 71}), 0U);
  EXPECT_EQ(barAt(drawing.bars, {120, 276}), 1U);
  EXPECT_EQ(barAt(drawing.bars, {120, 274}), std::nullopt);
  EXPECT_EQ(barAt(drawing.bars, {130, 490}), 1U);
  EXPECT_EQ(barAt(drawing.bars, {114, 400}), std::nullopt);
  EXPECT_EQ(barAt(drawing.bars, {130, 500}), std::nullopt);
}

TEST(CanvasScale, FitsTheSmallerSideAndStaysReadable) {
  EXPECT_DOUBLE_EQ(canvasScale({660, 540}), 1);
  EXPECT_DOUBLE_EQ(canvasScale({990, 10000}), 1.5);
  EXPECT_DOUBLE_EQ(canvasScale({10000, 675}), 1.25);
  EXPECT_DOUBLE_EQ(canvasScale({100, 100}), 0.75);
  EXPECT_DOUBLE_EQ(canvasScale({5000, 5000}), 2);
}

TEST(DetailsPanel, LiesBelowItsMagnifierAndNeverBelowThePage) {
  EXPECT_EQ(detailsPanelY(1, 90, 700), 503);
  EXPECT_EQ(detailsPanelY(1.5, 90, 1000), 754);
  EXPECT_EQ(detailsPanelY(1, 90, 580), 490);
}

TEST(DetailsPanel, IsCentredOnTheMagnifierByWholePoints) {
  EXPECT_EQ(detailsPanelX({92, 485}, 264), 92 - 132 + 8);
  EXPECT_EQ(detailsPanelX({540, 485}, 264), 540 - 132 + 8);
  // The fraction goes toward zero, also on the left of the canvas.
  EXPECT_EQ(detailsPanelX({92, 485}, 265), -40 + 8);
}

}  // namespace
}  // namespace quillmeter
