#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

#include "charts/ChartGeometry.h"
#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

constexpr double kFullCircle = 360;

constexpr ChartRect kFirstLegendBox{30, 50, 16, 16};
constexpr double kLegendAdvance = 20;
constexpr double kLegendTextX = 50;
constexpr double kLegendTextRise = 3;
constexpr double kLegendTextWidth = 200;
constexpr double kLegendTextHeight = 20;

constexpr std::size_t kRows = 3;
using Colors = std::array<ChartColor, kRows>;
using Names = std::array<std::string_view, kRows>;

constexpr Colors kCodeLinesColors{{{115, 177, 223}, {12, 141, 255}, {0, 149, 184}}};
constexpr Colors kFileKindsColors{{{10, 139, 174}, {162, 193, 172}, {91, 138, 169}}};
constexpr Names kCodeLinesNames{"Code lines", "Comment lines", "Empty lines"};
constexpr Names kFileKindsNames{"Source files", "XIB files", "Image files"};

/// The two shares that a pie is given. What follows from them keeps a not-a-number, so that the legend says
/// so.
struct Shares {
  double first;
  double second;

  [[nodiscard]] double both() const { return std::min(first + second, 1.0); }
  [[nodiscard]] double third() const { return std::max(1.0 - first - second, 0.0); }
};

void addSlice(PieChartDrawing& pie, std::size_t row, double from, double to, ChartColor color) {
  if (!std::isfinite(from) || !std::isfinite(to)) return;
  pie.slices.push_back({row, kFullCircle * from, kFullCircle * to, color});
}

ChartLegendRow legendRow(std::size_t row, std::string_view name, double share, ChartColor color) {
  ChartLegendRow legend;
  legend.box = kFirstLegendBox;
  legend.box.y += kLegendAdvance * static_cast<double>(row);
  legend.color = color;
  legend.label.text = std::string(name) + " (" + fixed(share * 100.0, 2) + "%)";
  legend.label.frame = {kLegendTextX, legend.box.y - kLegendTextRise, kLegendTextWidth, kLegendTextHeight};
  legend.label.wrap = ChartTextWrap::characters;
  return legend;
}

}  // namespace

PieChartDrawing pieChartDrawing(const ChartContents& contents, ChartSize bounds) {
  const bool codeLines = contents.kind == ChartKind::codeLinesPie;
  const Shares shares = codeLines ? Shares{contents.pieChart1Perc1, contents.pieChart1Perc2}
                                  : Shares{contents.pieChart2Perc1, contents.pieChart2Perc2};
  const Colors& colors = codeLines ? kCodeLinesColors : kFileKindsColors;
  const Names& names = codeLines ? kCodeLinesNames : kFileKindsNames;

  PieChartDrawing pie;
  pie.title = chartTitleLabel(contents.kind);
  pie.centre = {bounds.width / 2, bounds.height / 2};
  pie.radius = contents.CIRCLE_RADIUS;
  if (pie.radius > 0) {
    const double both = shares.both();
    addSlice(pie, 0, 0, shares.first, colors[0]);
    if (shares.second != 0) addSlice(pie, 1, shares.first, both, colors[1]);
    if (both != 1) addSlice(pie, 2, both, 1, colors[2]);
  }
  const std::array<double, kRows> values{shares.first, shares.second, shares.third()};
  for (std::size_t row = 0; row < kRows; ++row) {
    pie.legend.push_back(legendRow(row, names[row], values[row], colors[row]));
  }
  return pie;
}

std::optional<std::size_t> sliceAt(const PieChartDrawing& pie, ChartPoint point) {
  const double x = point.x - pie.centre.x;
  const double y = point.y - pie.centre.y;
  if (std::hypot(x, y) > pie.radius) return std::nullopt;
  double angle = std::atan2(y, x) * 180.0 / std::numbers::pi;
  if (angle < 0) angle += kFullCircle;
  const auto hit = std::find_if(pie.slices.begin(), pie.slices.end(), [&](const ChartSlice& slice) {
    return angle >= slice.startAngle && angle < slice.endAngle;
  });
  return hit == pie.slices.end() ? std::nullopt : std::optional(hit->row);
}

}  // namespace quillmeter
