#include "tables/AccessibleFileTable.h"

#include <QItemSelectionModel>
#include <utility>

#include "tables/AccessibleFileCell.h"
#include "tables/FileTableView.h"

namespace quillmeter {
namespace {

QAccessibleInterface* tableFor(const QString& /*className*/, QObject* object) {
  auto* const view = qobject_cast<FileTableView*>(object);
  return view != nullptr ? new AccessibleFileTable(view) : nullptr;
}

}  // namespace

AccessibleFileTable::AccessibleFileTable(FileTableView* view) : QAccessibleWidget(view, QAccessible::Table) {}

AccessibleFileTable::~AccessibleFileTable() {
  forgetCells();
}

void AccessibleFileTable::install() {
  QAccessible::installFactory(tableFor);
}

FileTableView* AccessibleFileTable::view() const {
  return static_cast<FileTableView*>(widget());
}

void AccessibleFileTable::forgetCells() {
  const QHash<int, QAccessible::Id> cells = std::exchange(cells_, {});
  for (const QAccessible::Id cell : cells)
    QAccessible::deleteAccessibleInterface(cell);
}

QAccessibleInterface* AccessibleFileTable::place(int row, int column) const {
  if (row < 0 || column < 0 || row > rowCount() || column > columnCount()) return nullptr;
  const int number = row * (columnCount() + 1) + column;
  const auto known = cells_.constFind(number);
  if (known != cells_.constEnd()) return QAccessible::accessibleInterface(*known);
  auto* const cell = new AccessibleFileCell(*this, row, column);
  cells_.insert(number, QAccessible::registerAccessibleInterface(cell));
  return cell;
}

void* AccessibleFileTable::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

int AccessibleFileTable::childCount() const {
  return columnCount() == 0 ? 0 : (rowCount() + 1) * (columnCount() + 1);
}

QAccessibleInterface* AccessibleFileTable::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  return place(index / (columnCount() + 1), index % (columnCount() + 1));
}

int AccessibleFileTable::indexOfChild(const QAccessibleInterface* child) const {
  const auto* const cell = dynamic_cast<const AccessibleFileCell*>(child);
  return cell == nullptr ? -1 : cell->row() * (columnCount() + 1) + cell->column();
}

QAccessibleInterface* AccessibleFileTable::childAt(int x, int y) const {
  const QModelIndex index = view()->indexAt(view()->viewport()->mapFromGlobal(QPoint(x, y)));
  return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
}

QAccessibleInterface* AccessibleFileTable::focusChild() const {
  const QModelIndex current = view()->currentIndex();
  return current.isValid() ? cellAt(current.row(), current.column()) : nullptr;
}

QAccessibleInterface* AccessibleFileTable::cellAt(int row, int column) const {
  return place(row + 1, column + 1);
}

int AccessibleFileTable::rowCount() const {
  return view()->model()->rowCount();
}

int AccessibleFileTable::columnCount() const {
  return view()->model()->columnCount();
}

QString AccessibleFileTable::columnDescription(int column) const {
  return view()->model()->headerData(column, Qt::Horizontal).toString();
}

QString AccessibleFileTable::rowDescription(int row) const {
  const auto* const leading = place(row + 1, 0);
  return leading != nullptr ? leading->text(QAccessible::Name) : QString();
}

QList<int> AccessibleFileTable::selectedRows() const {
  QList<int> rows;
  for (const QModelIndex& row : view()->selectionModel()->selectedRows())
    rows << row.row();
  return rows;
}

int AccessibleFileTable::selectedRowCount() const {
  return static_cast<int>(selectedRows().size());
}

int AccessibleFileTable::selectedCellCount() const {
  return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> AccessibleFileTable::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const int row : selectedRows()) {
    for (int column = 0; column < columnCount(); ++column)
      cells << cellAt(row, column);
  }
  return cells;
}

bool AccessibleFileTable::isRowSelected(int row) const {
  return view()->selectionModel()->isRowSelected(row, QModelIndex());
}

bool AccessibleFileTable::selectRow(int row) {
  if (row < 0 || row >= rowCount()) return false;
  view()->selectRow(row);
  return true;
}

bool AccessibleFileTable::unselectRow(int row) {
  if (row < 0 || row >= rowCount()) return false;
  view()->selectionModel()->select(view()->model()->index(row, 0),
                                   QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
  return true;
}

void AccessibleFileTable::modelChange(QAccessibleTableModelChangeEvent* /*event*/) {
  forgetCells();
}

}  // namespace quillmeter
