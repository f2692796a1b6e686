#pragma once

#include <QAccessible>

#include "controls/AccessibleLeaf.h"
#include "tables/AccessibleFileTable.h"

namespace quillmeter {

/// One place of an accessible file table: a cell, a header, or the name that leads a row. It asks the view
/// each time, so it is right as long as its table keeps it.
class AccessibleFileCell final : public AccessibleLeaf, public QAccessibleTableCellInterface {
 public:
  /// `row` and `column` are counted with headers.
  AccessibleFileCell(const AccessibleFileTable& table, int row, int column)
      : table_(table), row_(row), column_(column) {}

  [[nodiscard]] int row() const { return row_; }
  [[nodiscard]] int column() const { return column_; }

  void* interface_cast(QAccessible::InterfaceType type) override;
  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] QString text(QAccessible::Text which) const override;
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override;
  [[nodiscard]] QAccessible::State state() const override;

  [[nodiscard]] bool isSelected() const override;
  [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
  [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override;
  [[nodiscard]] int columnIndex() const override { return column_ - 1; }
  [[nodiscard]] int rowIndex() const override { return row_ - 1; }
  [[nodiscard]] int columnExtent() const override { return 1; }
  [[nodiscard]] int rowExtent() const override { return 1; }
  [[nodiscard]] QAccessibleInterface* table() const override;

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  [[nodiscard]] bool isHeader() const { return row_ == 0; }
  [[nodiscard]] bool leadsRow() const { return column_ == 0; }
  /// Whether pressing it sorts by its column or shows its file.
  [[nodiscard]] bool isSortable() const;
  [[nodiscard]] bool isRevealButton() const;
  [[nodiscard]] QModelIndex index() const;

  const AccessibleFileTable& table_;
  int row_;
  int column_;
};

}  // namespace quillmeter
