#include "app/CustomShapeWindow.h"

#include <QBitmap>
#include <QEvent>
#include <QImage>
#include <QResizeEvent>
#include <utility>

#include "app/CustomShapeWindowFrameView.h"

namespace quillmeter {
namespace {

/// Edges are smoothed against nothing, which without blending is black; below this they would show as a dark
/// seam.
constexpr int kLeastOpacity = 200;

}  // namespace

CustomShapeWindow::CustomShapeWindow(const QRect& contentRect, Qt::WindowFlags /*styleMask*/, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint) {
  setAttribute(Qt::WA_TranslucentBackground);
  resize(contentRect.size());
  if (!contentRect.topLeft().isNull()) move(contentRect.topLeft());
  connect(&compositorWatch_, &CompositorWatch::changed, this, &CustomShapeWindow::applyOutline);
}

void CustomShapeWindow::setContentSize(const QSize& size) {
  const QSize child = childContentView_.isNull() ? QSize(0, 0) : childContentView_->size();
  const QSize frame = frameView_ == nullptr ? QSize(0, 0) : frameView_->size();
  resize(size - child + frame);
}

void CustomShapeWindow::setContentView(QWidget* view) {
  if (view == childContentView_) return;
  const QRect bounds(QPoint(), size());
  if (frameView_ == nullptr) {
    frameView_ = new CustomShapeWindowFrameView(this);
    frameView_->setGeometry(bounds);
    frameView_->show();
  }
  if (!childContentView_.isNull()) childContentView_->setParent(nullptr);
  childContentView_ = view;
  if (view == nullptr) return;
  view->setParent(frameView_);
  view->setGeometry(contentRectForFrameRect(bounds));
  view->show();
}

QRect CustomShapeWindow::contentRectForFrameRect(const QRect& frameRect) const {
  return {QPoint(), frameRect.size()};
}

QRect CustomShapeWindow::frameRectForContentRectStyleMask(const QRect& contentRect,
                                                          Qt::WindowFlags /*styleMask*/) {
  return contentRect;
}

void CustomShapeWindow::setOutline(std::function<QRegion()> outline) {
  outline_ = std::move(outline);
  isCut_ = false;
  applyOutline();
}

void CustomShapeWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  applyOutline();
}

void CustomShapeWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (frameView_ == nullptr) return;
  frameView_->resize(event->size());
  if (!childContentView_.isNull()) childContentView_->resize(event->size());
}

void CustomShapeWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange) mainWindowChanged();
}

void CustomShapeWindow::applyOutline() {
  const bool cut = outline_ && !desktopBlendsWindows();
  if (cut == isCut_) return;
  isCut_ = cut;
  if (cut) {
    setMask(outline_());
  } else {
    clearMask();
  }
}

QRegion outlineOfPicture(const QImage& picture) {
  const QImage alpha = picture.convertToFormat(QImage::Format_ARGB32);
  QImage mask(alpha.size(), QImage::Format_MonoLSB);
  mask.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
  mask.fill(0);
  for (int y = 0; y < alpha.height(); ++y) {
    for (int x = 0; x < alpha.width(); ++x) {
      if (qAlpha(alpha.pixel(x, y)) >= kLeastOpacity) mask.setPixel(x, y, 1);
    }
  }
  return QRegion(QBitmap::fromImage(mask));
}

}  // namespace quillmeter
