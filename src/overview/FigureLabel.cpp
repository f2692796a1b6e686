#include "overview/FigureLabel.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace quillmeter {
namespace {

constexpr int kSmallestPixelSize = 6;

}  // namespace

QFont FigureLabel::fittingFont() const {
  QFont fitting = font();
  const int room = contentsRect().width();
  int size = QFontInfo(fitting).pixelSize();
  // The width of a text is nearly proportional to the font's size: one division comes close, the loop settles
  // what hinting leaves.
  const int width = fontMetrics().horizontalAdvance(text());
  if (width <= room) return fitting;
  size = std::clamp(size * room / std::max(width, 1) + 1, kSmallestPixelSize, size);
  fitting.setPixelSize(size);
  while (size > kSmallestPixelSize && QFontMetrics(fitting).horizontalAdvance(text()) > room) {
    fitting.setPixelSize(--size);
  }
  return fitting;
}

QSize FigureLabel::minimumSizeHint() const {
  return {0, QLabel::minimumSizeHint().height()};
}

void FigureLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setFont(fittingFont());
  // A number stands before its unit in every direction of reading.
  painter.setLayoutDirection(Qt::LeftToRight);
  const auto aligned = QStyle::visualAlignment(layoutDirection(), alignment());
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(aligned) | Qt::TextSingleLine, palette(),
                        isEnabled(), text(), foregroundRole());
}

}  // namespace quillmeter
