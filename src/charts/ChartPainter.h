#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <vector>

#include "charts/ChartGeometry.h"

class QPainter;
class QPainterPath;

/// Paints the parts of a chart where the geometry puts them. Each function leaves the painter as it found it,
/// and works at any scale: whatever the painter's transformation, one unit is one point of the canvas.
namespace quillmeter {

[[nodiscard]] QColor toColor(ChartColor color);

/// The charts' typeface; the size is in points of the canvas.
[[nodiscard]] QFont chartFont(double size);

/// How the texts of the charts measure, for the geometry.
[[nodiscard]] ChartSize measuredText(const std::string& text, double fontSize);

/// How many device pixels the painter has for a point.
[[nodiscard]] double deviceScale(const QPainter& painter);

void paintLabel(QPainter& painter, const ChartLabel& label, const QColor& color);

/// Straight lines through `points`, cut square at both ends.
void paintPolyline(QPainter& painter, const std::vector<ChartPoint>& points, double width,
                   const QColor& color);

/// A thin line; dashed when `dash`, its length on and off, is not 0.
void paintLine(QPainter& painter, const ChartLine& line, const QColor& color, double dash = 0);

/// A bar with its shadow: framed inside in the frame colour and filled from top to bottom.
void paintBar(QPainter& painter, const ChartRect& bar, const QColor& frame);

/// A slice with its shadow: outlined, then filled.
void paintSlice(QPainter& painter, const PieChartDrawing& pie, const ChartSlice& slice,
                const QColor& outline);

void paintLegendRow(QPainter& painter, const ChartLegendRow& row, const QColor& textColor);

/// The shadow of a shape that is about to be painted in the axis colour's shade. `paintRectShadow` leaves out
/// what the rectangle itself will cover.
void paintRectShadow(QPainter& painter, const ChartRect& rect, const ChartShadow& shadow);
void paintPathShadow(QPainter& painter, const QPainterPath& path, const ChartShadow& shadow);

/// A rectangle filled with one colour at its top that turns into another one at its bottom.
void paintRectGradient(QPainter& painter, const ChartRect& rect, ChartColor top, ChartColor bottom);

}  // namespace quillmeter
