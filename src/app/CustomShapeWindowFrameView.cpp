#include "app/CustomShapeWindowFrameView.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include "app/Compositor.h"

namespace quillmeter {

CustomShapeWindowFrameView::CustomShapeWindowFrameView(QWidget* parent) : QWidget(parent) {}

void CustomShapeWindowFrameView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.fillRect(event->rect(), Qt::transparent);
}

void CustomShapeWindowFrameView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  QWindow* const handle = window()->windowHandle();
  if (desktopPlacesWindows() && handle != nullptr && handle->startSystemMove()) return;
  press_ = Press{event->globalPosition(), window()->pos()};
}

void CustomShapeWindowFrameView::mouseMoveEvent(QMouseEvent* event) {
  // The release may have gone to an alert that came up meanwhile; a press has then ended unseen.
  if (!event->buttons().testFlag(Qt::LeftButton)) press_.reset();
  if (press_) window()->move(press_->window + (event->globalPosition() - press_->mouse).toPoint());
}

void CustomShapeWindowFrameView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) press_.reset();
}

}  // namespace quillmeter
