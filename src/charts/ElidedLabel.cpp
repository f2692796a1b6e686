#include "charts/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace quillmeter {

QSize ElidedLabel::minimumSizeHint() const {
  return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                        palette(), isEnabled(), shown, foregroundRole());
}

}  // namespace quillmeter
