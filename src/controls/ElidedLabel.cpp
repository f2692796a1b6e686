#include "controls/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace quillmeter {

QSize ElidedLabel::minimumSizeHint() const {
  return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
  const auto aligned = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(aligned) | Qt::TextSingleLine, palette(),
                        isEnabled(), shown, foregroundRole());
}

}  // namespace quillmeter
