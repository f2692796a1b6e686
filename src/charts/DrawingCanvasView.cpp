#include "charts/DrawingCanvasView.h"

#include <QAccessible>
#include <QAccessibleEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QStringList>
#include <QToolTip>
#include <algorithm>
#include <new>

#include "charts/AccessibleChart.h"
#include "charts/ChartAdvice.h"
#include "charts/ChartPainter.h"
#include "controls/NamedImage.h"
#include "controls/Theme.h"
#include "controls/ToolTipText.h"

namespace quillmeter {
namespace {

constexpr QSize kCanvasSize(static_cast<int>(kCanvasWidth), static_cast<int>(kCanvasHeight));
constexpr int kFocusMargin = 3;
constexpr qsizetype kToolTipLine = 80;  // fits a screen

ChartPoint toChartPoint(QPointF point) {
  return {point.x(), point.y()};
}

ChartSize toChartSize(QSizeF size) {
  return {size.width(), size.height()};
}

QRectF toRectF(const ChartRect& rectangle) {
  return {rectangle.x, rectangle.y, rectangle.width, rectangle.height};
}

}  // namespace

DrawingCanvasView::DrawingCanvasView(QWidget* parent) : QWidget(parent), axisColor_(toColor(kAxisColor)) {
  AccessibleChart::install();
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DrawingCanvasView::sizeHint() const {
  return kCanvasSize * scale_;
}

void DrawingCanvasView::setScale(double scale) {
  if (qFuzzyCompare(scale_, scale) && minimumSize() == sizeHint()) return;
  scale_ = scale;
  setFixedSize(sizeHint());
  update();
}

QPoint DrawingCanvasView::toWidget(ChartPoint point) const {
  return (QPointF(point.x, point.y) * scale_).toPoint();
}

ChartPoint DrawingCanvasView::toChart(QPointF widgetPoint) const {
  return toChartPoint(widgetPoint / scale_);
}

void DrawingCanvasView::setGraphType(std::int32_t graphType) {
  if (graphType != graphType_) currentBar_.reset();
  graphType_ = graphType;
  contents_.kind = chartKindOf(graphType).value_or(contents_.kind);
  setFocusPolicy(showsBars() ? Qt::StrongFocus : Qt::NoFocus);
}

// Drawing

void DrawingCanvasView::paintOn(QPainter& painter, QSizeF size) {
  axisColor_ = toColor(kAxisColor);
  lensesDetailsPoints_.reset();
  painter.save();
  // The chart is a picture: its texts stand beside what they name, whatever the direction of the desktop's
  // language.
  painter.setLayoutDirection(Qt::LeftToRight);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  if (showsPie()) drawPieChartGraphs(painter, size);
  if (showsBars()) drawBarChartTypeGraphs(painter);
  painter.restore();
}

void DrawingCanvasView::drawBarChartTypeGraphs(QPainter& painter) {
  const BarChartDrawing drawing = barChartDrawing(contents_, measuredText);
  drawAxis(painter, drawing);
  drawChartTitle(painter, drawing.title);
  for (const ChartLine& line : drawing.grid)
    paintLine(painter, line, axisColor_, kGridDash);
  for (const ChartLabel& label : drawing.gridLabels)
    paintLabel(painter, label, axisColor_);
  if (contents_.arrayValues) drawBarCharts(painter, drawing);
  if (contents_.shouldDrawAverageLine) drawAverageLine(painter, drawing);
  drawAxis(painter, drawing);
}

void DrawingCanvasView::drawAxis(QPainter& painter, const BarChartDrawing& drawing) const {
  paintPolyline(painter, drawing.axes, kAxisWidth, axisColor_);
}

void DrawingCanvasView::drawBarCharts(QPainter& painter, const BarChartDrawing& drawing) {
  const QPixmap& icon = lense(deviceScale(painter));
  for (const ChartBar& bar : drawing.bars) {
    if (bar.rectangle) paintBar(painter, *bar.rectangle, axisColor_);
    painter.drawPixmap(toRectF(bar.lense), icon, QRectF(icon.rect()));
  }
  lensesDetailsPoints_ = drawing.bars;
}

void DrawingCanvasView::drawAverageLine(QPainter& painter, const BarChartDrawing& drawing) const {
  if (!drawing.averageLine || !drawing.averageLabel) return;
  paintLine(painter, *drawing.averageLine, toColor(kAverageColor));
  paintLabel(painter, *drawing.averageLabel, axisColor_);
}

void DrawingCanvasView::drawChartTitle(QPainter& painter, const ChartLabel& title) const {
  paintLabel(painter, title, axisColor_);
}

void DrawingCanvasView::drawPieChartGraphs(QPainter& painter, QSizeF size) const {
  const PieChartDrawing pie = pieChartDrawing(contents_, toChartSize(size));
  drawChartTitle(painter, pie.title);
  for (const ChartSlice& slice : pie.slices)
    paintSlice(painter, pie, slice, axisColor_);
  for (const ChartLegendRow& row : pie.legend)
    paintLegendRow(painter, row, axisColor_);
}

const QPixmap& DrawingCanvasView::lense(double scale) {
  constexpr double finest = 8;
  scale = std::clamp(scale, 1.0, finest);
  if (lense_.isNull() || !qFuzzyCompare(lense_.devicePixelRatio(), scale)) {
    lense_ = namedImage(QStringLiteral("lense"), QSize(12, 12), scale);
  }
  return lense_;
}

void DrawingCanvasView::drawFocus(QPainter& painter) const {
  if (!showsFocus_ || !lensesDetailsPoints_ || lensesDetailsPoints_->empty()) return;
  const std::size_t bar = std::min(currentBar_.value_or(0), lensesDetailsPoints_->size() - 1);
  const ChartRect& icon = (*lensesDetailsPoints_)[bar].lense;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(toColor(kBarStartColor), 2));
  painter.drawRoundedRect(QRectF(icon.x, icon.y, icon.width, icon.height)
                              .adjusted(-kFocusMargin, -kFocusMargin, kFocusMargin, kFocusMargin),
                          kFocusMargin, kFocusMargin);
}

void DrawingCanvasView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), themeFor(palette()).paper);
  painter.scale(scale_, scale_);
  try {
    paintOn(painter, bounds());
  } catch (const std::bad_alloc&) {
    // What there is no memory for is missing until the next time. An exception must not reach the toolkit.
  }
  drawFocus(painter);
}

QPixmap DrawingCanvasView::capture() {
  QPixmap picture((QSizeF(bounds()) * devicePixelRatioF()).toSize());
  picture.setDevicePixelRatio(devicePixelRatioF());
  picture.fill(themeFor(palette()).paper);
  QPainter painter(&picture);
  paintOn(painter, bounds());
  return picture;
}

// Mouse and keyboard

void DrawingCanvasView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    QWidget::mousePressEvent(event);
    return;
  }
  if (delegate_ != nullptr) delegate_->dismissInfoForItem();
  if (!lensesDetailsPoints_) return;
  const auto bar = lenseAt(*lensesDetailsPoints_, toChart(event->position()));
  if (bar) openDetails(*bar);
}

void DrawingCanvasView::pressBar(std::size_t bar) {
  if (delegate_ != nullptr) delegate_->dismissInfoForItem();
  openDetails(bar);
}

void DrawingCanvasView::openDetails(std::size_t bar) {
  if (!lensesDetailsPoints_ || bar >= lensesDetailsPoints_->size()) return;
  if (delegate_ == nullptr || !contents_.arrayValues || bar >= contents_.arrayValues->size()) return;
  currentBar_ = bar;
  const ChartRect& icon = (*lensesDetailsPoints_)[bar].lense;
  delegate_->showInfoPopoverForItemFromStartingPoint((*contents_.arrayValues)[bar], {icon.x, icon.y});
}

void DrawingCanvasView::mouseMoveEvent(QMouseEvent* event) {
  const bool overLense =
      lensesDetailsPoints_ && lenseAt(*lensesDetailsPoints_, toChart(event->position())).has_value();
  if (overLense) {
    setCursor(Qt::PointingHandCursor);
  } else {
    unsetCursor();
  }
}

void DrawingCanvasView::keyPressEvent(QKeyEvent* event) {
  const std::size_t count = lensesDetailsPoints_ ? lensesDetailsPoints_->size() : 0;
  if (count == 0) {
    QWidget::keyPressEvent(event);
    return;
  }
  const std::size_t bar = std::min(currentBar_.value_or(0), count - 1);
  switch (event->key()) {
    case Qt::Key_Left:
      moveToBar(bar == 0 ? 0 : bar - 1);
      break;
    case Qt::Key_Right:
      moveToBar(std::min(bar + 1, count - 1));
      break;
    case Qt::Key_Home:
      moveToBar(0);
      break;
    case Qt::Key_End:
      moveToBar(count - 1);
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      openDetails(bar);
      break;
    case Qt::Key_Escape:
      if (delegate_ != nullptr) delegate_->dismissInfoForItem();
      // The page may have something to close, too.
      QWidget::keyPressEvent(event);
      return;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  showsFocus_ = true;
  update();
}

void DrawingCanvasView::moveToBar(std::size_t bar) {
  currentBar_ = bar;
  const ChartRect& icon = (*lensesDetailsPoints_)[bar].lense;
  const QString text = descriptionAt({icon.x, icon.y}).replace(QLatin1Char('\n'), QStringLiteral(", "));
  setAccessibleName(
      QStringLiteral("Bar %1 of %2: %3").arg(bar + 1).arg(lensesDetailsPoints_->size()).arg(text));
  QAccessibleEvent changed(this, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&changed);
}

void DrawingCanvasView::focusInEvent(QFocusEvent* event) {
  showsFocus_ = event->reason() != Qt::MouseFocusReason;
  QWidget::focusInEvent(event);
}

void DrawingCanvasView::focusOutEvent(QFocusEvent* event) {
  showsFocus_ = false;
  QWidget::focusOutEvent(event);
}

// Descriptions

QString DrawingCanvasView::descriptionAt(QPointF point) const {
  if (showsPie()) {
    const PieChartDrawing pie = pieChartDrawing(contents_, toChartSize(bounds()));
    const auto row = sliceAt(pie, toChartPoint(point));
    return row ? QString::fromStdString(pie.legend[*row].label.text) : QString();
  }
  if (!lensesDetailsPoints_ || !contents_.arrayValues) return {};
  const auto bar = barAt(*lensesDetailsPoints_, toChartPoint(point));
  if (!bar || *bar >= contents_.arrayValues->size()) return {};
  const FileObject& file = *(*contents_.arrayValues)[*bar];
  return QString::fromStdString(file.fileName().value_or(std::string()) + "\n" +
                                barValueText(contents_.kind, file));
}

void DrawingCanvasView::updateAccessibleTexts() {
  const std::string_view title = chartKindOf(graphType_) ? chartTitle(contents_.kind) : std::string_view();
  setAccessibleName(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
  parts_ = chartKindOf(graphType_) ? chartParts(contents_) : std::vector<ChartPart>();
  QStringList items;
  for (const ChartPart& part : parts_) {
    items << QString::fromStdString(part.value.empty() ? part.name : part.name + ": " + part.value);
  }
  setAccessibleDescription(items.join(QStringLiteral("; ")));
  AccessibleChart::partsChanged(*this);
}

QRect DrawingCanvasView::partRect(std::size_t part) const {
  QRectF place;
  if (showsPie()) {
    const std::vector<ChartLegendRow> legend = pieChartDrawing(contents_, toChartSize(bounds())).legend;
    // While one chart takes another's place its parts are not known yet.
    if (part >= legend.size()) return {};
    place = toRectF(legend[part].box).united(toRectF(legend[part].label.frame));
  } else if (lensesDetailsPoints_ && part < lensesDetailsPoints_->size()) {
    const ChartBar& bar = (*lensesDetailsPoints_)[part];
    place = toRectF(bar.lense).united(bar.rectangle ? toRectF(*bar.rectangle) : QRectF());
  }
  return QRectF(place.topLeft() * scale_, place.size() * scale_).toAlignedRect();
}

bool DrawingCanvasView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QString text = descriptionAt(QPointF(help->pos()) / scale_);
  QToolTip::showText(help->globalPos(), text.isEmpty() ? QString() : toolTipText(text, kToolTipLine), this);
  return true;
}

}  // namespace quillmeter
