#include <algorithm>
#include <cmath>

#include "charts/ChartAdvice.h"
#include "charts/ChartGeometry.h"
#include "charts/Ratio.h"
#include "support/Number.h"
#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

constexpr double kPlotLeft = 80;
constexpr double kPlotTop = 70;
constexpr double kPlotHeight = 410;
constexpr double kPlotRight = 610;
constexpr double kPlotBottom = kPlotTop + kPlotHeight;
constexpr double kAxisTop = 69;

constexpr double kBarWidth = 26;
constexpr double kFirstBarX = 86;
constexpr double kBarAdvance = 32;

constexpr double kLenseInset = 6;
constexpr double kLenseY = 485;
constexpr double kLenseSide = 12;

constexpr int kGridLines = 10;
constexpr double kGridLabelGap = 5;
constexpr double kAverageFontSize = 10;
constexpr double kAverageLabelRise = 16;

/// The value of grid line `i`, counted from the bottom: a tenth more at each, the maximum itself at the top.
std::int64_t gridValue(int i, std::int64_t maximum) {
  if (i == kGridLines - 1) return maximum;
  return clampedToInt64((i + 1) * (static_cast<double>(maximum) / 10.0));
}

void addGrid(BarChartDrawing& drawing, const ChartContents& contents, const TextMeasure& measure) {
  const auto maximum = static_cast<double>(contents.maxNumberOfLines);
  for (int i = kGridLines - 1; i >= 0; --i) {
    const std::int64_t value = gridValue(i, contents.maxNumberOfLines);
    const double y = kPlotTop + (1.0 - ratio(static_cast<double>(value), maximum)) * kPlotHeight;
    if (!std::isfinite(y)) continue;
    drawing.grid.push_back({{kPlotLeft, y}, {kPlotRight, y}});
    if (value == 0) continue;
    ChartLabel label;
    label.text = gridLabelText(contents.kind, value);
    const ChartSize size = measure(label.text, label.fontSize);
    label.frame = {kPlotLeft - kGridLabelGap - size.width, y - size.height / 2 - 1, size.width, size.height};
    drawing.gridLabels.push_back(std::move(label));
  }
}

void addBars(BarChartDrawing& drawing, const ChartContents& contents) {
  const FileList& files = *contents.arrayValues;
  const std::size_t count = std::min(files.size(), kMostBars);
  drawing.bars.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double x = kFirstBarX + kBarAdvance * static_cast<double>(i);
    const double value = doubleValue(barMeasure(contents.kind, *files[i]));
    const double height = ratio(value * kPlotHeight, static_cast<double>(contents.maxNumberOfLines));
    ChartBar bar;
    bar.index = i;
    if (std::isfinite(height)) bar.rectangle = ChartRect{x, kPlotBottom - height, kBarWidth, height};
    bar.lense = {x + kLenseInset, kLenseY, kLenseSide, kLenseSide};
    drawing.bars.push_back(bar);
  }
}

void addAverageLine(BarChartDrawing& drawing, const ChartContents& contents, const TextMeasure& measure) {
  const double rise =
      ratio(contents.averageNumberOfLines * kPlotHeight, static_cast<double>(contents.maxNumberOfLines));
  if (contents.maxNumberOfLines == 0 || !std::isfinite(rise)) return;
  const double y = kPlotBottom - rise;
  drawing.averageLine = ChartLine{{kPlotLeft, y}, {kPlotRight, y}};
  ChartLabel label;
  label.text = "average";
  label.fontSize = kAverageFontSize;
  const ChartSize size = measure(label.text, label.fontSize);
  label.frame = {kPlotRight - size.width, y - kAverageLabelRise, size.width, size.height};
  drawing.averageLabel = std::move(label);
}

}  // namespace

ChartLabel chartTitleLabel(ChartKind kind) {
  return {std::string(chartTitle(kind)), {30, 10, 500, 20}, 12, ChartTextWrap::words};
}

std::string gridLabelText(ChartKind kind, std::int64_t value) {
  return measuresLines(kind) ? std::to_string(value) : sizeInKilobytes(static_cast<double>(value));
}

BarChartDrawing barChartDrawing(const ChartContents& contents, const TextMeasure& measure) {
  BarChartDrawing drawing;
  drawing.axes = {{kPlotLeft, kAxisTop}, {kPlotLeft, kPlotBottom}, {kPlotRight, kPlotBottom}};
  drawing.title = chartTitleLabel(contents.kind);
  addGrid(drawing, contents, measure);
  if (contents.arrayValues) addBars(drawing, contents);
  if (contents.shouldDrawAverageLine) addAverageLine(drawing, contents, measure);
  return drawing;
}

std::optional<std::size_t> lenseAt(const std::vector<ChartBar>& bars, ChartPoint point) {
  const auto hit =
      std::find_if(bars.begin(), bars.end(), [&](const ChartBar& bar) { return bar.lense.contains(point); });
  return hit == bars.end() ? std::nullopt : std::optional(hit->index);
}

std::optional<std::size_t> barAt(const std::vector<ChartBar>& bars, ChartPoint point) {
  const auto hit = std::find_if(bars.begin(), bars.end(), [&](const ChartBar& bar) {
    const double top = bar.rectangle ? std::min(bar.rectangle->y, kPlotBottom) : bar.lense.y;
    const double left = bar.lense.x - kLenseInset;
    return ChartRect{left, top, kBarWidth, bar.lense.bottom() - top}.contains(point);
  });
  return hit == bars.end() ? std::nullopt : std::optional(hit->index);
}

double canvasScale(ChartSize room) {
  constexpr double smallest = 0.75;
  constexpr double largest = 2;
  return std::clamp(std::min(room.width / kCanvasWidth, room.height / kCanvasHeight), smallest, largest);
}

std::int32_t detailsPanelX(ChartPoint lenseOrigin, double panelWidth) {
  constexpr std::int32_t nudge = 8;
  return clampedToInt32(lenseOrigin.x - panelWidth * 0.5) + nudge;
}

std::int32_t detailsPanelY(double scale, std::int32_t panelHeight, std::int32_t pageEnd) {
  constexpr double belowMagnifiers = 503;
  return std::min(clampedToInt32(belowMagnifiers * scale), pageEnd - panelHeight);
}

}  // namespace quillmeter
