#include "tables/AccessibleFileCell.h"

#include <QHeaderView>

#include "tables/FileTableView.h"

namespace quillmeter {

void* AccessibleFileCell::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
  if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
  return nullptr;
}

bool AccessibleFileCell::isValid() const {
  return table_.isValid() && row_ <= table_.rowCount() && column_ <= table_.columnCount();
}

QAccessibleInterface* AccessibleFileCell::parent() const {
  return QAccessible::queryAccessibleInterface(table_.view());
}

QAccessibleInterface* AccessibleFileCell::table() const {
  return parent();
}

QModelIndex AccessibleFileCell::index() const {
  return table_.view()->model()->index(row_ - 1, column_ - 1);
}

bool AccessibleFileCell::isSortable() const {
  if (!isHeader() || leadsRow()) return false;
  return table_.view()->table().columns()[static_cast<std::size_t>(column_ - 1)].isSortable();
}

bool AccessibleFileCell::isRevealButton() const {
  if (isHeader() || leadsRow()) return false;
  const auto& column = table_.view()->table().columns()[static_cast<std::size_t>(column_ - 1)];
  return column.showsButton();
}

QString AccessibleFileCell::text(QAccessible::Text which) const {
  const QAbstractItemModel& model = *table_.view()->model();
  if (which == QAccessible::Description && isHeader() && !leadsRow())
    return model.headerData(column_ - 1, Qt::Horizontal, Qt::AccessibleDescriptionRole).toString();
  if (which != QAccessible::Name) return {};
  if (leadsRow()) {
    if (isHeader()) return {};
    return tableText(table_.view()->table().rows()[static_cast<std::size_t>(row_ - 1)]->fileName().value_or(
        std::string()));
  }
  if (isHeader()) return model.headerData(column_ - 1, Qt::Horizontal).toString();
  const QString spoken = index().data(Qt::AccessibleTextRole).toString();
  return spoken.isEmpty() ? index().data().toString() : spoken;
}

QRect AccessibleFileCell::rect() const {
  const FileTableView& view = *table_.view();
  if (leadsRow()) return {};
  if (isHeader()) {
    const QHeaderView& header = *view.horizontalHeader();
    const QRect section(header.sectionViewportPosition(column_ - 1), 0, header.sectionSize(column_ - 1),
                        header.height());
    return section.translated(header.viewport()->mapToGlobal(QPoint()));
  }
  return view.visualRect(index()).translated(view.viewport()->mapToGlobal(QPoint()));
}

QAccessible::Role AccessibleFileCell::role() const {
  if (isHeader()) return leadsRow() ? QAccessible::Pane : QAccessible::ColumnHeader;
  if (leadsRow()) return QAccessible::RowHeader;
  return isRevealButton() ? QAccessible::PushButton : QAccessible::Cell;
}

QAccessible::State AccessibleFileCell::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  if (leadsRow()) {
    state.invisible = true;
    return state;
  }
  state.readOnly = true;
  if (isHeader()) return state;
  const FileTableView& view = *table_.view();
  state.offscreen = !view.viewport()->rect().intersects(view.visualRect(index()));
  state.focusable = true;
  state.selectable = true;
  state.selected = isSelected();
  state.focused = view.hasFocus() && view.currentIndex() == index();
  return state;
}

bool AccessibleFileCell::isSelected() const {
  return !isHeader() && table_.isRowSelected(row_ - 1);
}

QList<QAccessibleInterface*> AccessibleFileCell::columnHeaderCells() const {
  return {table_.place(0, column_)};
}

QList<QAccessibleInterface*> AccessibleFileCell::rowHeaderCells() const {
  return {table_.place(row_, 0)};
}

QStringList AccessibleFileCell::actionNames() const {
  return isSortable() || isRevealButton() ? QStringList{pressAction()} : QStringList{};
}

void AccessibleFileCell::doAction(const QString& name) {
  if (name != pressAction()) return;
  // A sorted table forgets its cells, this one among them, so nothing of it is used after the sort.
  if (isSortable()) return table_.view()->sortByColumnHeader(column_ - 1);
  if (isRevealButton()) Q_EMIT table_.view()->revealRequested(row_ - 1);
}

}  // namespace quillmeter
