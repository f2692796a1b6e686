#include "page/ChartSvg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "charts/ChartKind.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using testing::record;

ChartContents linesPie(double code, double comments) {
  ChartContents contents;
  contents.kind = ChartKind::codeLinesPie;
  contents.CIRCLE_RADIUS = 200;
  contents.pieChart1Perc1 = code;
  contents.pieChart1Perc2 = comments;
  return contents;
}

TEST(ChartSvg, DrawsTheSlicesOfAPieInTheirColours) {
  const std::string svg = chartSvg(linesPie(0.5, 0.25));
  EXPECT_THAT(
      svg,
      HasSubstr(
          R"svg(d="M330,270 L530,270 A200,200 0 0 1 130,270 Z" class="outline" fill="rgb(115,177,223)")svg"));
  EXPECT_THAT(
      svg,
      HasSubstr(
          R"svg(d="M330,270 L130,270 A200,200 0 0 1 330,70 Z" class="outline" fill="rgb(12,141,255)")svg"));
  EXPECT_THAT(svg, HasSubstr(R"svg(fill="rgb(0,149,184)"><title>Empty lines (25.00%)</title></path>)svg"));
}

TEST(ChartSvg, ASliceOfMoreThanHalfTakesTheLongWay) {
  EXPECT_THAT(chartSvg(linesPie(0.75, 0.25)), HasSubstr("A200,200 0 1 1 330,70 Z"));
}

TEST(ChartSvg, AWholePieIsACircle) {
  EXPECT_THAT(chartSvg(linesPie(1, 0)), HasSubstr(R"svg(<circle cx="330" cy="270" r="200")svg"));
}

TEST(ChartSvg, SharesThatAreNoNumbersDrawNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const std::string svg = chartSvg(linesPie(nan, nan));
  EXPECT_THAT(svg, Not(HasSubstr("<path")));
  EXPECT_THAT(svg, HasSubstr("Code lines (nan%)"));
}

TEST(ChartSvg, DrawsBarsWithTheirRanksAndAverage) {
  ChartContents contents;
  contents.kind = ChartKind::sourceFilesBars;
  contents.shouldDrawAverageLine = true;
  contents.maxNumberOfLines = 820;
  contents.averageNumberOfLines = 410;
  contents.arrayValues =
      FileList{record({.name = "<a>.m", .lines = 820}), record({.name = "b.m", .lines = 0})};
  const std::string svg = chartSvg(contents);
  EXPECT_THAT(
      svg, HasSubstr(R"svg(<title id="chart2">Chart type: top 15 source files by lines of code</title>)svg"));
  EXPECT_THAT(svg, HasSubstr(R"svg(<rect x="86" y="70" width="26" height="410")svg"));
  EXPECT_THAT(svg, HasSubstr("<title>&lt;a&gt;.m: 820 lines</title>"));
  EXPECT_THAT(svg, Not(HasSubstr("b.m")));
  EXPECT_THAT(svg, HasSubstr(R"svg(<text x="130" y="497" class="small" text-anchor="middle">2</text>)svg"));
  EXPECT_THAT(svg, HasSubstr(R"svg(<line x1="80" y1="275" x2="610" y2="275" stroke="rgb(255,55,1)"/>)svg"));
  EXPECT_THAT(
      svg,
      HasSubstr(R"svg(<text x="75" y="69" text-anchor="end" dominant-baseline="central">820</text>)svg"));
  EXPECT_THAT(svg, HasSubstr(R"svg(<line x1="80" y1="70" x2="610" y2="70" class="grid"/>)svg"));
  EXPECT_THAT(
      svg,
      HasSubstr(
          R"svg(<text x="610" y="264" text-anchor="end" dominant-baseline="central" class="small">average</text>)svg"));
  EXPECT_THAT(svg, HasSubstr(R"svg(<polyline class="axis" points="80,69 80,480 610,480 "/>)svg"));
}

TEST(ChartSvg, NamesEachSliceBesideItsColourBelowTheTitle) {
  const std::string svg = chartSvg(linesPie(0.5, 0.25));
  EXPECT_THAT(svg, HasSubstr(R"svg(<text x="30" y="22" class="title">Chart type: code lines)svg"));
  EXPECT_THAT(svg, HasSubstr(R"svg(<rect x="30" y="70" width="16" height="16" stroke="rgb(0,0,0)" )svg"
                             R"svg(fill="rgb(12,141,255)"/>)svg"));
  EXPECT_THAT(svg, HasSubstr(R"svg(<text x="50" y="78" dominant-baseline="central">Comment lines)svg"));
}

TEST(ChartSvg, WritesTwoDecimalsAtMost) {
  EXPECT_THAT(chartSvg(linesPie(1.0 / 3, 1.0 / 3)),
              HasSubstr(R"svg(d="M330,270 L530,270 A200,200 0 0 1 230,443.21 Z")svg"));
}

TEST(ChartSvg, ChartsOnOnePageDoNotShareIdentifiers) {
  ChartContents lines;
  lines.kind = ChartKind::sourceFilesBars;
  ChartContents images;
  images.kind = ChartKind::imageFilesBars;
  EXPECT_THAT(chartSvg(lines), HasSubstr("id=\"bar2\""));
  EXPECT_THAT(chartSvg(images), HasSubstr("id=\"bar4\""));
}

}  // namespace
}  // namespace quillmeter
