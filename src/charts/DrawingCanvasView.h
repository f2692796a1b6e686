#pragma once

#include <QColor>
#include <QPixmap>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "charts/ChartContents.h"
#include "charts/ChartGeometry.h"
#include "charts/ChartParts.h"

class QPainter;

namespace quillmeter {

/// What a canvas reports: presses on it and on the magnifiers of its bars. Main thread only.
class DrawingCanvasViewDelegate {
 public:
  virtual ~DrawingCanvasViewDelegate() = default;
  /// On every press, before anything else.
  virtual void dismissInfoForItem() = 0;
  /// A magnifier was hit: the bar's file as the canvas shows it and the icon's origin in the canvas's space.
  virtual void showInfoPopoverForItemFromStartingPoint(const std::shared_ptr<FileObject>& file,
                                                       ChartPoint point) = 0;
};

/// Draws one of the five charts from the properties it is given; it knows no project. The space is flipped:
/// the origin is the top left corner and y grows downwards, in points.
///
/// On screen the whole chart can be shown larger or smaller: `setScale` changes the widget's size and nothing
/// of the drawing, and every point that comes or goes is one of the drawing's own space.
///
/// Changing a property draws nothing by itself; whoever changes properties calls `update` when done. On
/// screen the chart lies on white paper; `paintOn` draws the chart alone, onto any device, also of a canvas
/// that was never shown. Main thread only. The delegate is not owned and must outlive the canvas or be taken
/// back.
class DrawingCanvasView : public QWidget {
  Q_OBJECT

 public:
  explicit DrawingCanvasView(QWidget* parent = nullptr);

  [[nodiscard]] bool shouldDrawAverageLine() const { return contents_.shouldDrawAverageLine; }
  void setShouldDrawAverageLine(bool draw) { contents_.shouldDrawAverageLine = draw; }
  [[nodiscard]] std::int64_t maxNumberOfLines() const { return contents_.maxNumberOfLines; }
  void setMaxNumberOfLines(std::int64_t maximum) { contents_.maxNumberOfLines = maximum; }
  [[nodiscard]] double averageNumberOfLines() const { return contents_.averageNumberOfLines; }
  void setAverageNumberOfLines(double average) { contents_.averageNumberOfLines = average; }
  /// The bars in order; absent draws none. No entry may be null.
  [[nodiscard]] const std::optional<FileList>& arrayValues() const { return contents_.arrayValues; }
  void setArrayValues(std::optional<FileList> files) { contents_.arrayValues = std::move(files); }
  /// 0 to 4; any other number draws nothing.
  [[nodiscard]] std::int32_t graphType() const { return graphType_; }
  void setGraphType(std::int32_t graphType);
  [[nodiscard]] std::int32_t CIRCLE_RADIUS() const { return contents_.CIRCLE_RADIUS; }
  void setCIRCLE_RADIUS(std::int32_t radius) { contents_.CIRCLE_RADIUS = radius; }
  [[nodiscard]] double pieChart1Perc1() const { return contents_.pieChart1Perc1; }
  void setPieChart1Perc1(double share) { contents_.pieChart1Perc1 = share; }
  [[nodiscard]] double pieChart1Perc2() const { return contents_.pieChart1Perc2; }
  void setPieChart1Perc2(double share) { contents_.pieChart1Perc2 = share; }
  [[nodiscard]] double pieChart2Perc1() const { return contents_.pieChart2Perc1; }
  void setPieChart2Perc1(double share) { contents_.pieChart2Perc1 = share; }
  [[nodiscard]] double pieChart2Perc2() const { return contents_.pieChart2Perc2; }
  void setPieChart2Perc2(double share) { contents_.pieChart2Perc2 = share; }
  [[nodiscard]] double pieChart3Perc1() const { return contents_.pieChart3Perc1; }
  void setPieChart3Perc1(double share) { contents_.pieChart3Perc1 = share; }

  void setDelegate(DrawingCanvasViewDelegate* delegate) { delegate_ = delegate; }

  [[nodiscard]] static bool isFlipped() { return true; }
  [[nodiscard]] QColor axisColor() const { return axisColor_; }

  /// The bars of the last drawing pass with their hit areas; absent after a pass that drew none, and before
  /// the first.
  [[nodiscard]] const std::optional<std::vector<ChartBar>>& lensesDetailsPoints() const {
    return lensesDetailsPoints_;
  }

  /// One drawing pass: paints the chart into `size` points from the painter's origin, without any background,
  /// and takes the hit areas from it.
  void paintOn(QPainter& painter, QSizeF size);

  /// How many points of the screen show one of the drawing; 1 at first.
  [[nodiscard]] double scale() const { return scale_; }
  void setScale(double scale);
  /// Where a point of the drawing is in the widget.
  [[nodiscard]] QPoint toWidget(ChartPoint point) const;

  /// The chart on its paper as it is on screen, in its own size at the screen's resolution, without the mark
  /// of the keyboard focus.
  [[nodiscard]] QPixmap capture();

  /// The name and value under a point, as the tool tip shows them; empty where there is nothing to name.
  [[nodiscard]] QString descriptionAt(QPointF point) const;

  /// Tells assistive tools what the canvas shows now: the chart's title, and each slice or bar with its
  /// value.
  void updateAccessibleTexts();

  /// The slices or bars when the texts were last updated, and where one of them, or the legend of a slice, is
  /// in the widget. A place is empty until it has been drawn.
  [[nodiscard]] const std::vector<ChartPart>& parts() const { return parts_; }
  [[nodiscard]] QRect partRect(std::size_t part) const;
  [[nodiscard]] bool showsBars() const { return chartKindOf(graphType_) && isBarChart(contents_.kind); }
  /// What a click on the bar's magnifier does. Does nothing for a bar that is not drawn.
  void pressBar(std::size_t bar);

  /// The bar that the arrow keys have reached; absent until one was used since the bars last changed.
  [[nodiscard]] std::optional<std::size_t> currentBar() const { return currentBar_; }

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] bool showsPie() const { return chartKindOf(graphType_) && isPieChart(contents_.kind); }
  void drawBarChartTypeGraphs(QPainter& painter);
  void drawAxis(QPainter& painter, const BarChartDrawing& drawing) const;
  void drawBarCharts(QPainter& painter, const BarChartDrawing& drawing);
  void drawAverageLine(QPainter& painter, const BarChartDrawing& drawing) const;
  void drawChartTitle(QPainter& painter, const ChartLabel& title) const;
  void drawPieChartGraphs(QPainter& painter, QSizeF size) const;
  void drawFocus(QPainter& painter) const;

  [[nodiscard]] QSize bounds() const { return (QSizeF(size()) / scale_).toSize(); }
  [[nodiscard]] ChartPoint toChart(QPointF widgetPoint) const;
  [[nodiscard]] const QPixmap& lense(double scale);
  void openDetails(std::size_t bar);
  void moveToBar(std::size_t bar);

  std::int32_t graphType_ = graphTypeOf(ChartKind::codeLinesPie);
  ChartContents contents_;  ///< of the last graph type that is a chart
  QColor axisColor_;
  std::optional<std::vector<ChartBar>> lensesDetailsPoints_;
  std::vector<ChartPart> parts_;
  DrawingCanvasViewDelegate* delegate_ = nullptr;
  QPixmap lense_;  ///< the magnifier at the scale it was last drawn at
  std::optional<std::size_t> currentBar_;
  double scale_ = 1;
  bool showsFocus_ = false;  ///< only when the keyboard brought the focus
};

}  // namespace quillmeter
