#include "tables/FileTableDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "controls/NamedImage.h"
#include "controls/Theme.h"
#include "controls/ToolTipText.h"
#include "support/Text.h"
#include "tables/FileTable.h"
#include "tables/FileTableModel.h"

namespace quillmeter {
namespace {

/// Where a line of a tool tip ends at the latest.
constexpr qsizetype kToolTipLine = 100;

const FileTableColumn& columnOf(const QModelIndex& index) {
  const auto* model = qobject_cast<const FileTableModel*>(index.model());
  Q_ASSERT(model != nullptr);
  return model->table().columns()[static_cast<std::size_t>(index.column())];
}

/// The pictures' colours are made for light and dark rows, not for the accent colour of a selected one.
void paintPlate(QPainter* painter, const QRect& picture) {
  constexpr double rim = 2;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(Qt::white);
  painter->drawRoundedRect(QRectF(picture).adjusted(-rim, -rim, rim, rim), kSpace, kSpace);
  painter->restore();
}

/// A picture in the middle of a cell, made smaller in proportion where it does not fit and never larger.
void paintPicture(QPainter* painter, const QStyleOptionViewItem& option, const QIcon& picture,
                  QSize natural) {
  const QRect& cell = option.rect;
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const QSize room = cell.size() - QSize(kSpace, kSpace);
  if (natural.width() > room.width() || natural.height() > room.height()) {
    natural.scale(room, Qt::KeepAspectRatio);
  }
  const QRect target(cell.center() - QPoint(natural.width() / 2, natural.height() / 2), natural);
  if (isSelected) paintPlate(painter, target);
  picture.paint(painter, target);
}

}  // namespace

FileTableDelegate::FileTableDelegate(RevealButtonLook look, QObject* parent)
    : QStyledItemDelegate(parent), look_(look) {}

/// A selected row is marked as a whole; the toolkit's frame around one of its cells says nothing more.
void FileTableDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->state &= ~QStyle::State_HasFocus;
}

void FileTableDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
  const FileTableColumn& column = columnOf(index);
  if (column.showsText()) {
    QStyledItemDelegate::paint(painter, option, index);
    return;
  }
  QStyleOptionViewItem cell = option;
  cell.index = index;
  cell.state &= ~QStyle::State_HasFocus;
  option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);
  if (column.showsPicture()) {
    constexpr QSize natural(20, 20);
    paintPicture(painter, option, index.data(Qt::DecorationRole).value<QIcon>(), natural);
  } else if (look_ == RevealButtonLook::magnifier) {
    paintMagnifier(painter, option);
  } else {
    paintBullet(painter, option, pressed_ == index && pointerIsOnPressed_);
  }
}

void FileTableDelegate::paintMagnifier(QPainter* painter, const QStyleOptionViewItem& option) const {
  static const QSize natural = namedImageSize(QStringLiteral("lense"));
  paintPicture(painter, option, namedIcon(QStringLiteral("lense")), natural);
}

void FileTableDelegate::paintBullet(QPainter* painter, const QStyleOptionViewItem& option,
                                    bool isPressed) const {
  const ThemeColors& colors = themeFor(option.palette);
  const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
  QRectF frame(0, 0, std::min(28, option.rect.width() - kGap), std::min(20, option.rect.height() - kSpace));
  frame.moveCenter(QRectF(option.rect).center());
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(isHovered || isPressed ? colors.accent : colors.mutedText);
  painter->setBrush(isPressed ? colors.accent : colors.card);
  painter->drawRoundedRect(frame, kSpace, kSpace);
  painter->setPen(isPressed ? QColor(Qt::white) : colors.text);
  painter->drawText(frame, Qt::AlignCenter, QStringLiteral("\u2022"));
  painter->restore();
}

QString FileTableDelegate::displayText(const QVariant& value, const QLocale& /*locale*/) const {
  return QString::fromStdString(onOneLine(value.toString().toStdString()));
}

bool FileTableDelegate::editorEvent(QEvent* event, QAbstractItemModel* /*model*/,
                                    const QStyleOptionViewItem& /*option*/, const QModelIndex& index) {
  if (!columnOf(index).showsButton()) {
    // A pointer that passes by with its button down may come back.
    if (event->type() != QEvent::MouseMove) pressed_ = QModelIndex();
    return false;
  }
  const bool isLeft =
      (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick ||
       event->type() == QEvent::MouseButtonRelease) &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
  if (!isLeft) return false;
  if (event->type() != QEvent::MouseButtonRelease) {
    pressed_ = index;
    pointerIsOnPressed_ = true;
    return true;
  }
  const bool wasPressedHere = pressed_ == index;
  pressed_ = QModelIndex();
  if (wasPressedHere) Q_EMIT revealRequested(index.row());
  return wasPressedHere;
}

bool FileTableDelegate::pointAt(const QModelIndex& index) {
  const bool isOnPressed = pressed_.isValid() && pressed_ == index;
  return std::exchange(pointerIsOnPressed_, isOnPressed) != isOnPressed;
}

bool FileTableDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  QString tip;
  if (columnOf(index).showsButton()) {
    tip = index.data(Qt::AccessibleTextRole).toString();
  } else {
    const QString text = displayText(index.data(), option.locale);
    const bool fits = sizeHint(option, index).width() <= option.rect.width();
    if (!fits) tip = toolTipText(text, kToolTipLine);
  }
  QToolTip::showText(event->globalPos(), tip, view);
  return true;
}

}  // namespace quillmeter
