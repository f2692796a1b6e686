#include "stats/CanvasReportChart.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace quillmeter {
namespace {

using Pixel = std::array<int, 4>;

ReportPicture pie(double first, double second) {
  ReportChartRequest request;
  request.circleRadius = 150;
  request.pieChart2Perc1 = first;
  request.pieChart2Perc2 = second;
  request.width = 800;
  request.height = 370;
  return CanvasReportChart().picture(request);
}

/// The pixel at a point of the canvas, from its top left corner.
Pixel pixelAt(const ReportPicture& picture, int x, int y) {
  const auto at = static_cast<std::size_t>(y * kReportChartScale * picture.width + x * kReportChartScale) * 4;
  return {picture.rgba.at(at), picture.rgba.at(at + 1), picture.rgba.at(at + 2), picture.rgba.at(at + 3)};
}

TEST(CanvasReportChart, PaintsThreePixelsAPoint) {
  const ReportPicture picture = pie(0.5, 0.25);
  EXPECT_EQ(picture.width, 2400);
  EXPECT_EQ(picture.height, 1110);
  EXPECT_EQ(picture.rgba.size(), std::size_t{2400} * 1110 * 4);
}

TEST(CanvasReportChart, ShowsTheSharesOnATransparentGround) {
  const ReportPicture picture = pie(0.5, 0.25);
  EXPECT_EQ(pixelAt(picture, 400, 185 + 100), (Pixel{10, 139, 174, 255}));       // the lower half: code
  EXPECT_EQ(pixelAt(picture, 400 - 50, 185 - 50), (Pixel{162, 193, 172, 255}));  // upper left: XIB
  EXPECT_EQ(pixelAt(picture, 400 + 50, 185 - 50), (Pixel{91, 138, 169, 255}));   // upper right: images
  EXPECT_EQ(pixelAt(picture, 700, 300)[3], 0);
  EXPECT_EQ(pixelAt(picture, 700, 300), (Pixel{60, 68, 76, 0}));  // no light seams when it is scaled down
}

TEST(CanvasReportChart, GroundHasTheColourThatTheEdgesFadeFromUpToTheEdges) {
  const ReportPicture picture = pie(0.5, 0.25);
  for (std::size_t at = 0; at < picture.rgba.size(); at += 4) {
    if (picture.rgba[at + 3] == 0) {
      ASSERT_EQ((Pixel{picture.rgba[at], picture.rgba[at + 1], picture.rgba[at + 2], 0}),
                (Pixel{60, 68, 76, 0}))
          << at;
    }
  }
}

TEST(CanvasReportChart, ProjectWithoutFilesIsPaintedToo) {
  const double nothing = std::numeric_limits<double>::quiet_NaN();
  const ReportPicture picture = pie(nothing, nothing);
  EXPECT_EQ(picture.rgba.size(), std::size_t{2400} * 1110 * 4);
}

}  // namespace
}  // namespace quillmeter
