#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "measuring/FileKinds.h"
#include "measuring/FileObject.h"
#include "support/NumberFormat.h"
#include "tables/FileTableColumn.h"

namespace quillmeter {

/// The table that the Details tab and the clean-up tool share: files in rows, one of their values in each
/// column. It exists apart from any window so that its contents can be tested and reused without one. It
/// shares the records with the project and never changes them. One thread at a time.
///
/// An absent counter or size reads as 0 and an absent name or path as the empty text, in cells and in sorts.
class FileTable {
 public:
  /// A table without rows and columns.
  FileTable();
  /// The rows are put in the order of their names, ignoring letter case; equal names keep their order.
  /// `kinds` gives the pictures. `bytesInSizeUnit` is what a size is divided by to be shown. `locale` is that
  /// of the number texts; the empty name means the user's own.
  FileTable(std::vector<FileTableColumn> columns, FileList files, const FileKindTable& kinds,
            double bytesInSizeUnit, const std::string& locale = {});

  [[nodiscard]] const std::vector<FileTableColumn>& columns() const { return columns_; }
  [[nodiscard]] const FileList& rows() const { return rows_; }
  /// Where the column of an identifier is; absent when the table does not have it.
  [[nodiscard]] std::optional<std::size_t> columnOf(std::string_view identifier) const;

  /// Puts the rows in the order of one column: texts by UTF-16 code units, so capitals before small letters,
  /// numbers as numbers. Rows that are equal in it keep their order, whichever the direction. Gives, for each
  /// row of the new order, its row in the old one. `column` is one that can be sorted.
  std::vector<std::size_t> sort(std::size_t column, bool ascending);

  /// What a cell says: names and paths as they are, counters as plain digits, sizes and thousands of lines
  /// with up to two decimals and the user's grouping. Empty for the columns that show no text.
  [[nodiscard]] std::string cellText(std::size_t row, std::size_t column) const;

  /// The picture of a row's type column.
  [[nodiscard]] std::string_view iconName(std::size_t row) const;

  /// Rows as tab-separated lines, each ended by "\n", in the order given: the text of every column that shows
  /// text, and the extension for the type column. A tab or line break inside a text becomes a space.
  [[nodiscard]] std::string tabSeparated(const std::vector<std::size_t>& rows) const;

 private:
  std::vector<FileTableColumn> columns_;
  FileList rows_;
  FileKindTable kinds_;
  double bytesInSizeUnit_ = 1.0;
  std::shared_ptr<const DecimalFormatter> formatter_;  ///< shared by copies of the table
};

}  // namespace quillmeter
