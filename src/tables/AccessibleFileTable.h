#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>

namespace quillmeter {

class FileTableView;

/// A file table as assistive technology sees it: its cells, headers that explain their columns and sort when
/// they are pressed, and buttons that show a row's file. Cells are made when somebody asks for them and live
/// until the table has other contents. Children stand row by row, the row of headers first, each row led by
/// its file's name: the order in which the toolkit's views number the cells in their messages.
class AccessibleFileTable final : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit AccessibleFileTable(FileTableView* view);
  ~AccessibleFileTable() override;

  /// Lets the toolkit make one for every file table.
  static void install();

  [[nodiscard]] FileTableView* view() const;
  /// The cell of a place, counted with headers: row 0 holds them, column 0 the names.
  [[nodiscard]] QAccessibleInterface* place(int row, int column) const;

  void* interface_cast(QAccessible::InterfaceType type) override;
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;

  [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
  [[nodiscard]] int selectedCellCount() const override;
  [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
  [[nodiscard]] QString columnDescription(int column) const override;
  [[nodiscard]] QString rowDescription(int row) const override;
  [[nodiscard]] int selectedColumnCount() const override { return 0; }
  [[nodiscard]] int selectedRowCount() const override;
  [[nodiscard]] int columnCount() const override;
  [[nodiscard]] int rowCount() const override;
  [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
  [[nodiscard]] QList<int> selectedRows() const override;
  [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
  [[nodiscard]] bool isRowSelected(int row) const override;
  bool selectRow(int row) override;
  bool selectColumn(int /*column*/) override { return false; }
  bool unselectRow(int row) override;
  bool unselectColumn(int /*column*/) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* event) override;

 private:
  void forgetCells();

  mutable QHash<int, QAccessible::Id> cells_;
};

}  // namespace quillmeter
