#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "charts/ChartContents.h"

/// Where everything on the canvas lies, as plain values. All lengths are in points in the canvas's own space:
/// the origin is the top left corner and y grows downwards. Whatever has no defined place (a value against a
/// maximum of 0, a share that is not a number) is left out.
namespace quillmeter {

struct ChartPoint {
  double x = 0;
  double y = 0;
};

struct ChartSize {
  double width = 0;
  double height = 0;
};

struct ChartRect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  [[nodiscard]] double right() const { return x + width; }
  [[nodiscard]] double bottom() const { return y + height; }
  /// The left and top edges lie inside, the right and bottom edges outside.
  [[nodiscard]] bool contains(ChartPoint point) const {
    return point.x >= x && point.x < right() && point.y >= y && point.y < bottom();
  }
};

struct ChartColor {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

inline constexpr ChartColor kAxisColor{60, 68, 76};
inline constexpr ChartColor kAverageColor{255, 55, 1};
inline constexpr ChartColor kBarStartColor{18, 91, 184};
inline constexpr ChartColor kBarEndColor{24, 157, 248};
inline constexpr ChartColor kLegendBoxColor{0, 0, 0};

/// A soft shadow. The offset is measured in a space whose y grows upwards: a positive height casts it up.
struct ChartShadow {
  double offsetWidth = 0;
  double offsetHeight = 0;
  double blurRadius = 0;
  double opacity = 1;
};

inline constexpr ChartShadow kBarShadow{1, -1, 3, 1.0};
inline constexpr ChartShadow kSliceShadow{-1, 1, 5, 0.5};

enum class ChartTextWrap { none, words, characters };

/// A text and the rectangle that it starts in the top left corner of, drawn in the axis colour.
struct ChartLabel {
  std::string text;
  ChartRect frame;
  double fontSize = 12;
  ChartTextWrap wrap = ChartTextWrap::none;
};

struct ChartLine {
  ChartPoint from;
  ChartPoint to;
};

inline constexpr double kAxisWidth = 3;
inline constexpr double kThinWidth = 1;  ///< grid, average line, outlines
inline constexpr double kGridDash = 2;   ///< as long on as off

/// The size that a text of one line takes at a font size.
using TextMeasure = std::function<ChartSize(const std::string& text, double fontSize)>;

/// The title, at the same place in every chart.
[[nodiscard]] ChartLabel chartTitleLabel(ChartKind kind);

struct ChartBar {
  std::size_t index = 0;               ///< into the chart's values
  std::optional<ChartRect> rectangle;  ///< absent when the bar's height is not defined
  ChartRect lense;                     ///< the magnifier icon, which is also the hit area
};

/// A bar chart from bottom to top: axes, title, grid with labels, bars, average line, and the axes once more.
struct BarChartDrawing {
  std::vector<ChartPoint> axes;
  ChartLabel title;
  std::vector<ChartLine> grid;
  std::vector<ChartLabel> gridLabels;
  std::vector<ChartBar> bars;
  std::optional<ChartLine> averageLine;
  std::optional<ChartLabel> averageLabel;
};

[[nodiscard]] BarChartDrawing barChartDrawing(const ChartContents& contents, const TextMeasure& measure);

/// The text beside a grid line: "12", "2.7 MB".
[[nodiscard]] std::string gridLabelText(ChartKind kind, std::int64_t value);

/// The index of the bar whose magnifier contains the point.
[[nodiscard]] std::optional<std::size_t> lenseAt(const std::vector<ChartBar>& bars, ChartPoint point);

/// The index of the bar that contains the point with its bar, its magnifier or the gap between the two.
[[nodiscard]] std::optional<std::size_t> barAt(const std::vector<ChartBar>& bars, ChartPoint point);

/// Angles in degrees from the positive x axis, growing clockwise on screen.
struct ChartSlice {
  std::size_t row = 0;  ///< of the legend
  double startAngle = 0;
  double endAngle = 0;
  ChartColor color;
};

struct ChartLegendRow {
  ChartRect box;
  ChartColor color;
  ChartLabel label;
};

struct PieChartDrawing {
  ChartLabel title;
  ChartPoint centre;
  double radius = 0;
  std::vector<ChartSlice> slices;
  std::vector<ChartLegendRow> legend;
};

/// A pie centred in `bounds`. Slices that have no extent by their share are left out, and all of them when
/// the radius is not positive.
[[nodiscard]] PieChartDrawing pieChartDrawing(const ChartContents& contents, ChartSize bounds);

/// The legend row of the slice under the point.
[[nodiscard]] std::optional<std::size_t> sliceAt(const PieChartDrawing& pie, ChartPoint point);

/// How large a canvas is in its own space.
inline constexpr double kCanvasWidth = 660;
inline constexpr double kCanvasHeight = 540;

/// By how much a canvas is enlarged or made smaller as a whole to fit into `room`: as far as it can still be
/// read and does not look coarse.
[[nodiscard]] double canvasScale(ChartSize room);

/// The left edge of a details panel of a width, for the magnifier at `lenseOrigin`; both in the canvas's
/// space.
[[nodiscard]] std::int32_t detailsPanelX(ChartPoint lenseOrigin, double panelWidth);

/// Its top edge, in points of the screen below the top of a canvas that is shown at `scale`: just below the
/// magnifiers, or as far above that as a page needs that ends at `pageEnd`.
[[nodiscard]] std::int32_t detailsPanelY(double scale, std::int32_t panelHeight, std::int32_t pageEnd);

}  // namespace quillmeter
