#include "overview/ShareBar.h"

#include <QPainter>
#include <QPainterPath>

#include "controls/Theme.h"

namespace quillmeter {
namespace {

constexpr int kBarHeight = 20;
constexpr int kSwatchSide = 12;
constexpr double kCorner = 4;

}  // namespace

ShareBar::ShareBar(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ShareBar::setShares(const std::array<double, kLineKinds>& shares) {
  shares_ = shares;
  update();
}

QSize ShareBar::sizeHint() const {
  return {0, kBarHeight};
}

QColor ShareBar::colorOf(std::size_t kind) {
  const std::array<QColor, kLineKinds> colors{QColor(115, 177, 223), QColor(12, 141, 255),
                                              QColor(0, 149, 184)};
  return colors.at(kind);
}

void ShareBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath outline;
  outline.addRoundedRect(QRectF(rect()), kCorner, kCorner);
  painter.setClipPath(outline);
  painter.fillRect(rect(), themeFor(palette()).line);
  double begin = 0;
  for (std::size_t kind = 0; kind < kLineKinds; ++kind) {
    const double length = shares_.at(kind) * width();
    const double x = layoutDirection() == Qt::RightToLeft ? width() - begin - length : begin;
    painter.fillRect(QRectF(x, 0, length, height()), colorOf(kind));
    begin += length;
  }
}

ShareSwatch::ShareSwatch(QWidget* parent) : QWidget(parent) {
  setFixedSize(kSwatchSide, kSwatchSide);
}

void ShareSwatch::setColor(const QColor& color) {
  color_ = color;
  update();
}

void ShareSwatch::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color_);
  painter.drawRoundedRect(QRectF(rect()), 3, 3);
}

}  // namespace quillmeter
