#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

#include "tables/FileTableColumn.h"

namespace quillmeter {

/// How the button looks that reveals a row's file.
enum class RevealButtonLook {
  magnifier,  ///< a picture without a border
  bullet,     ///< a bordered button with a bullet
};

/// Paints the cells of a file table and makes the buttons of its reveal column work, without a widget for
/// each row. Names stand on one line whatever they hold; texts that do not fit show in a tool tip.
class FileTableDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  FileTableDelegate(RevealButtonLook look, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

  /// The pointer is on `index` now: a button that it has left looks let go until it comes back. Gives whether
  /// any button looks different now.
  bool pointAt(const QModelIndex& index);

  /// No button is pressed any more, wherever the mouse button was let go.
  void letGo() { pressed_ = QModelIndex(); }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 Q_SIGNALS:
  /// The button of a row was pressed and let go.
  void revealRequested(int row);

 private:
  void paintMagnifier(QPainter* painter, const QStyleOptionViewItem& option) const;
  void paintBullet(QPainter* painter, const QStyleOptionViewItem& option, bool isPressed) const;

  RevealButtonLook look_;
  QPersistentModelIndex pressed_;
  bool pointerIsOnPressed_ = false;
};

}  // namespace quillmeter
