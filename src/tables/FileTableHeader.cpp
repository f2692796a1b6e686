#include "tables/FileTableHeader.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "controls/Theme.h"

namespace quillmeter {

FileTableHeader::FileTableHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setSortIndicatorShown(false);
  setFocusPolicy(Qt::TabFocus);
}

void FileTableHeader::paintSection(QPainter* painter, const QRect& section, int number) const {
  // The toolkit leaves the painter with a clip that lets nothing through.
  painter->save();
  QHeaderView::paintSection(painter, section, number);
  painter->restore();
  if (number == sortIndicatorSection()) paintArrow(painter, section);
  if (number == current_ && hasFocus()) paintFocus(painter, section);
}

/// Down for an ascending order, as the desktop's own lists have it.
void FileTableHeader::paintArrow(QPainter* painter, const QRect& section) const {
  constexpr double halfWidth = 4.5;
  constexpr double height = 5;
  const bool isDown = sortIndicatorOrder() == Qt::AscendingOrder;
  const QPointF tip(section.center().x() + 0.5, section.top() + 2 + (isDown ? height : 0));
  const QPointF corner(halfWidth, isDown ? -height : height);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(themeFor(palette()).text);
  painter->drawPolygon(QPolygonF({tip, tip + corner, tip + QPointF(-corner.x(), corner.y())}));
  painter->restore();
}

void FileTableHeader::paintFocus(QPainter* painter, const QRect& section) const {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(themeFor(palette()).accent, 2));
  painter->drawRoundedRect(QRectF(section).adjusted(1, 1, -1, -2), kSpace, kSpace);
  painter->restore();
}

void FileTableHeader::keyPressEvent(QKeyEvent* event) {
  const int step = layoutDirection() == Qt::RightToLeft ? -1 : 1;
  switch (event->key()) {
    case Qt::Key_Left:
      return moveTo(current_ - step);
    case Qt::Key_Right:
      return moveTo(current_ + step);
    case Qt::Key_Home:
      return moveTo(0);
    case Qt::Key_End:
      return moveTo(count() - 1);
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return sortBy(current_);
    default:
      // Not the base's keys, which are those of a table.
      event->ignore();
  }
}

void FileTableHeader::moveTo(int section) {
  current_ = std::clamp(section, 0, std::max(0, count() - 1));
  viewport()->update();
  Q_EMIT currentSectionChanged(current_);
}

void FileTableHeader::sortBy(int section) {
  if (section < 0 || section >= count()) return;
  const bool turns = section == sortIndicatorSection() && sortIndicatorOrder() == Qt::AscendingOrder;
  setSortIndicator(section, turns ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void FileTableHeader::focusInEvent(QFocusEvent* event) {
  QHeaderView::focusInEvent(event);
  moveTo(current_);
}

void FileTableHeader::focusOutEvent(QFocusEvent* event) {
  QHeaderView::focusOutEvent(event);
  viewport()->update();
}

}  // namespace quillmeter
