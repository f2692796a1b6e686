#include "page/ChartSvg.h"

#include <cmath>
#include <numbers>

#include "charts/ChartAdvice.h"
#include "charts/ChartGeometry.h"
#include "charts/ChartKind.h"
#include "page/HtmlText.h"
#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

constexpr ChartSize kCanvas{660, 540};
constexpr double kFullCircle = 360;

std::string number(double value) {
  std::string text = fixed(value, 2);
  while (text.ends_with('0'))
    text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string attribute(std::string_view name, double value) {
  return " " + std::string(name) + "=\"" + number(value) + "\"";
}

std::string color(ChartColor value) {
  return "rgb(" + std::to_string(value.red) + "," + std::to_string(value.green) + "," +
         std::to_string(value.blue) + ")";
}

std::string rectangle(const ChartRect& rect, const std::string& attributes) {
  return "<rect" + attribute("x", rect.x) + attribute("y", rect.y) + attribute("width", rect.width) +
         attribute("height", rect.height) + attributes;
}

std::string line(const ChartLine& drawn, const std::string& attributes) {
  return "<line" + attribute("x1", drawn.from.x) + attribute("y1", drawn.from.y) +
         attribute("x2", drawn.to.x) + attribute("y2", drawn.to.y) + attributes + "/>\n";
}

std::string text(ChartPoint at, const std::string& attributes, std::string_view content) {
  return "<text" + attribute("x", at.x) + attribute("y", at.y) + attributes + ">" + htmlText(content) +
         "</text>\n";
}

std::string title(const ChartLabel& label) {
  return text({label.frame.x, label.frame.y + label.fontSize}, " class=\"title\"", label.text);
}

/// The browser measures texts. All that the geometry aligns ends at its frame's right edge.
ChartSize withoutWidth(const std::string& /*text*/, double fontSize) {
  return {0, fontSize};
}

std::string rightAligned(const ChartLabel& label, const std::string& attributes) {
  return text({label.frame.right(), label.frame.y + label.frame.height / 2},
              " text-anchor=\"end\" dominant-baseline=\"central\"" + attributes, label.text);
}

std::string bars(const BarChartDrawing& drawing, const ChartContents& contents) {
  std::string svg;
  for (const ChartBar& bar : drawing.bars) {
    const FileObject& file = *(*contents.arrayValues)[bar.index];
    const std::string name = file.fileName().value_or("") + ": " + barValueText(contents.kind, file);
    if (bar.rectangle && bar.rectangle->height > 0) {
      svg += rectangle(*bar.rectangle, " class=\"outline\" fill=\"url(#bar" +
                                           std::to_string(graphTypeOf(contents.kind)) + ")\"><title>" +
                                           htmlText(name) + "</title></rect>\n");
    }
    svg += text({bar.lense.x + bar.lense.width / 2, bar.lense.bottom()},
                " class=\"small\" text-anchor=\"middle\"", std::to_string(bar.index + 1));
  }
  return svg;
}

std::string barChart(const ChartContents& contents) {
  const BarChartDrawing drawing = barChartDrawing(contents, withoutWidth);
  std::string svg = "<defs><linearGradient id=\"bar" + std::to_string(graphTypeOf(contents.kind)) +
                    "\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"" +
                    color(kBarStartColor) + "\"/><stop offset=\"1\" stop-color=\"" + color(kBarEndColor) +
                    "\"/></linearGradient></defs>\n";
  svg += title(drawing.title);
  for (const ChartLine& grid : drawing.grid)
    svg += line(grid, " class=\"grid\"");
  for (const ChartLabel& label : drawing.gridLabels)
    svg += rightAligned(label, "");
  svg += bars(drawing, contents);
  if (drawing.averageLine) svg += line(*drawing.averageLine, " stroke=\"" + color(kAverageColor) + "\"");
  if (drawing.averageLabel) svg += rightAligned(*drawing.averageLabel, " class=\"small\"");
  svg += "<polyline class=\"axis\" points=\"";
  for (const ChartPoint point : drawing.axes)
    svg += number(point.x) + "," + number(point.y) + " ";
  return svg + "\"/>\n";
}

ChartPoint onCircle(const PieChartDrawing& pie, double degrees) {
  const double angle = degrees * std::numbers::pi / 180.0;
  return {pie.centre.x + pie.radius * std::cos(angle), pie.centre.y + pie.radius * std::sin(angle)};
}

/// A slice of the whole circle has no two ends to draw an arc between.
std::string sliceShape(const PieChartDrawing& pie, const ChartSlice& slice) {
  const double sweep = slice.endAngle - slice.startAngle;
  if (sweep >= kFullCircle) {
    return "<circle" + attribute("cx", pie.centre.x) + attribute("cy", pie.centre.y) +
           attribute("r", pie.radius);
  }
  const ChartPoint from = onCircle(pie, slice.startAngle);
  const ChartPoint to = onCircle(pie, slice.endAngle);
  const std::string radius = number(pie.radius);
  return "<path d=\"M" + number(pie.centre.x) + "," + number(pie.centre.y) + " L" + number(from.x) + "," +
         number(from.y) + " A" + radius + "," + radius + " 0 " + (sweep > kFullCircle / 2 ? "1" : "0") +
         " 1 " + number(to.x) + "," + number(to.y) + " Z\"";
}

std::string pieChart(const ChartContents& contents) {
  const PieChartDrawing pie = pieChartDrawing(contents, kCanvas);
  std::string svg = title(pie.title);
  for (const ChartSlice& slice : pie.slices) {
    if (!(slice.endAngle > slice.startAngle)) continue;
    const std::string shape = sliceShape(pie, slice);
    svg += shape + " class=\"outline\" fill=\"" + color(slice.color) + "\"><title>" +
           htmlText(pie.legend[slice.row].label.text) + "</title></" +
           (shape.starts_with("<circle") ? "circle" : "path") + ">\n";
  }
  for (const ChartLegendRow& row : pie.legend) {
    svg += rectangle(row.box,
                     " stroke=\"" + color(kLegendBoxColor) + "\" fill=\"" + color(row.color) + "\"/>\n");
    svg += text({row.label.frame.x, row.box.y + row.box.height / 2}, " dominant-baseline=\"central\"",
                row.label.text);
  }
  return svg;
}

}  // namespace

std::string chartSvg(const ChartContents& contents) {
  const std::string id = "chart" + std::to_string(graphTypeOf(contents.kind));
  return "<svg role=\"img\" aria-labelledby=\"" + id + "\" viewBox=\"0 0 " + number(kCanvas.width) + " " +
         number(kCanvas.height) + "\">\n<title id=\"" + id + "\">" + htmlText(chartTitle(contents.kind)) +
         "</title>\n" + (isPieChart(contents.kind) ? pieChart(contents) : barChart(contents)) + "</svg>\n";
}

}  // namespace quillmeter
