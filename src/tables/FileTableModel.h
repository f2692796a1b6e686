#pragma once

#include <QAbstractTableModel>

#include "tables/FileTable.h"

namespace quillmeter {

/// Shows a file table to Qt's views. It adds nothing of its own but the pictures of the type column. Main
/// thread only.
class FileTableModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Replaces columns and rows.
  void setTable(FileTable table);
  [[nodiscard]] const FileTable& table() const { return table_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// Does nothing for a column that cannot be sorted.
  void sort(int column, Qt::SortOrder order) override;

 private:
  [[nodiscard]] const FileTableColumn& column(int number) const;

  FileTable table_;
};

/// A text of a file table, names with bytes that are not UTF-8 among them, as Qt has it.
[[nodiscard]] QString tableText(std::string_view text);

}  // namespace quillmeter
