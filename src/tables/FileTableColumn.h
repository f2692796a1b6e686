#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmeter {

class FileObject;

/// What a column of a file table shows. Every name is also the column's identifier.
enum class FileTableField {
  getFileExtension,
  finderview,
  fileName,
  filePath,
  noLinesTotal,
  kloc,
  noLinesWithoutSpaces,
  noLinesComments,
  noWords,
  noCharactersTotal,
  fileSize,
};

/// No column of a table is ever narrower.
inline constexpr int kMinimumColumnWidth = 44;

/// One column of the details table or of the clean-up table. Widths are pixels at 1 ×.
struct FileTableColumn {
  FileTableField field;
  int width;
  int minimumWidth = kMinimumColumnWidth;
  std::optional<int> maximumWidth = {};
  std::string_view toolTip = {};  ///< of the header; empty for none

  [[nodiscard]] std::string_view identifier() const;
  [[nodiscard]] std::string_view header() const;
  /// Every column but the one with the reveal buttons.
  [[nodiscard]] bool isSortable() const { return field != FileTableField::finderview; }
  /// Names and paths stand at the left, everything else in the middle. Headers are always in the middle.
  [[nodiscard]] bool isLeftAligned() const;
  /// Whether the cells show text; the type column shows a picture and the reveal column a button.
  [[nodiscard]] bool showsText() const;
};

/// The column of file types that both tables begin with.
[[nodiscard]] FileTableColumn typeColumn();
/// The column of reveal buttons that follows it. It asks for a width of 40, which the minimum raises.
[[nodiscard]] FileTableColumn revealColumn();

/// Raises minimum widths, and widths below their minimum, to `kMinimumColumnWidth`.
[[nodiscard]] std::vector<FileTableColumn> withMinimumWidths(std::vector<FileTableColumn> columns);

/// The columns' widths in a table that is `available` wide: each column gets the same share of what is to be
/// added to or taken from its own width, within its limits. The result is wider than `available` when the
/// minimum widths are, and narrower when every column is at its maximum. `widths` holds one width a column.
[[nodiscard]] std::vector<int> uniformWidths(const std::vector<FileTableColumn>& columns,
                                             std::vector<int> widths, int available);

}  // namespace quillmeter
