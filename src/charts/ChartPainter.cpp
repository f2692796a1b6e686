#include "charts/ChartPainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace quillmeter {
namespace {

QRectF toRect(const ChartRect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QPointF toPoint(ChartPoint point) {
  return {point.x, point.y};
}

/// Leaves a painter as it was.
class SavedState {
 public:
  explicit SavedState(QPainter& painter) : painter_(painter) { painter_.save(); }
  ~SavedState() { painter_.restore(); }
  SavedState(const SavedState&) = delete;
  SavedState& operator=(const SavedState&) = delete;

 private:
  QPainter& painter_;
};

QPen chartPen(const QColor& color, double width) {
  return {QBrush(color), width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

/// The closed wedge of a slice. The toolkit's angles grow counter-clockwise on screen, ours clockwise.
QPainterPath wedge(const PieChartDrawing& pie, const ChartSlice& slice) {
  const double sweep = std::clamp(slice.endAngle - slice.startAngle, 0.0, 360.0);
  const QRectF circle(pie.centre.x - pie.radius, pie.centre.y - pie.radius, 2 * pie.radius, 2 * pie.radius);
  QPainterPath path(toPoint(pie.centre));
  path.arcTo(circle, -slice.startAngle, -sweep);
  path.closeSubpath();
  return path;
}

}  // namespace

QColor toColor(ChartColor color) {
  return {color.red, color.green, color.blue};
}

QFont chartFont(double size) {
  QFont font;
  font.setFamilies(
      {QStringLiteral("Helvetica Neue"), QStringLiteral("Nimbus Sans"), QStringLiteral("Liberation Sans")});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(qRound(size));
  return font;
}

ChartSize measuredText(const std::string& text, double fontSize) {
  const QFontMetricsF metrics(chartFont(fontSize));
  return {metrics.horizontalAdvance(QString::fromStdString(text)), metrics.height()};
}

double deviceScale(const QPainter& painter) {
  return std::sqrt(std::abs(painter.deviceTransform().determinant()));
}

void paintLabel(QPainter& painter, const ChartLabel& label, const QColor& color) {
  const SavedState state(painter);
  painter.setFont(chartFont(label.fontSize));
  painter.setPen(color);
  int flags = Qt::AlignLeft | Qt::AlignTop;
  if (label.wrap == ChartTextWrap::none) flags |= Qt::TextDontClip | Qt::TextSingleLine;
  if (label.wrap == ChartTextWrap::words) flags |= Qt::TextWordWrap;
  if (label.wrap == ChartTextWrap::characters) flags |= Qt::TextWrapAnywhere;
  painter.drawText(toRect(label.frame), flags, QString::fromStdString(label.text));
}

void paintPolyline(QPainter& painter, const std::vector<ChartPoint>& points, double width,
                   const QColor& color) {
  const SavedState state(painter);
  QPolygonF line;
  for (const ChartPoint point : points)
    line << toPoint(point);
  painter.setPen(chartPen(color, width));
  painter.drawPolyline(line);
}

void paintLine(QPainter& painter, const ChartLine& line, const QColor& color, double dash) {
  const SavedState state(painter);
  QPen pen = chartPen(color, kThinWidth);
  if (dash > 0) pen.setDashPattern({dash / kThinWidth, dash / kThinWidth});
  painter.setPen(pen);
  painter.drawLine(toPoint(line.from), toPoint(line.to));
}

void paintBar(QPainter& painter, const ChartRect& bar, const QColor& frame) {
  if (!(bar.height > 0)) return;
  const SavedState state(painter);
  paintRectShadow(painter, bar, kBarShadow);
  const QRectF rect = toRect(bar);
  const double inset = std::min({kThinWidth / 2, bar.width / 2, bar.height / 2});
  painter.setPen(chartPen(frame, 2 * inset));
  painter.drawRect(rect.adjusted(inset, inset, -inset, -inset));
  paintRectGradient(painter, bar, kBarStartColor, kBarEndColor);
}

void paintSlice(QPainter& painter, const PieChartDrawing& pie, const ChartSlice& slice,
                const QColor& outline) {
  const SavedState state(painter);
  const QPainterPath path = wedge(pie, slice);
  paintPathShadow(painter, path, kSliceShadow);
  painter.strokePath(path, chartPen(outline, kThinWidth));
  painter.fillPath(path, toColor(slice.color));
}

void paintLegendRow(QPainter& painter, const ChartLegendRow& row, const QColor& textColor) {
  const SavedState state(painter);
  painter.setPen(chartPen(toColor(kLegendBoxColor), kThinWidth));
  painter.setBrush(toColor(row.color));
  painter.drawRect(toRect(row.box));
  paintLabel(painter, row.label, textColor);
}

}  // namespace quillmeter
