#pragma once

#include <optional>
#include <string_view>
#include <variant>
#include <vector>

#include "support/Number.h"

namespace quillmeter {

class FileObject;

/// A column of texts, at the left of their cells.
struct TextCells {
  using Text = std::string_view (*)(const FileObject&);
  explicit constexpr TextCells(Text of) : text(of) {}
  Text text;  ///< empty for a record that has none
};

/// A column of numbers, in the middle of their cells.
struct NumberCells {
  enum class Format {
    plain,     ///< digits without grouping
    decimals,  ///< up to two decimals and the user's grouping
    size,      ///< the same, of bytes in the table's unit
  };
  Number (*number)(const FileObject&);  ///< 0 for a record that has none
  Format format = Format::plain;
};

/// The column of type pictures, which sorts and copies as the extension, and that of the reveal buttons,
/// which does neither.
struct PictureCells {};
struct ButtonCells {};

using ColumnCells = std::variant<TextCells, NumberCells, PictureCells, ButtonCells>;

/// The tables that show a column.
enum class ColumnPlace { everywhere, cleanUp, detailsOfCode, detailsOfCodeOnRequest };

/// No column of a table is ever narrower.
inline constexpr int kMinimumColumnWidth = 44;

/// One column of the details table or of the clean-up table: all there is to say of it. Widths are pixels at
/// 1 ×.
struct FileTableColumn {
  std::string_view identifier;
  std::string_view header;
  std::string_view explanation =
      {};  ///< for those who hear the header: abbreviations spelt out, pictures named
  ColumnPlace place;
  ColumnCells cells;
  int width;
  std::optional<int> widthBesideCounters = {};  ///< where that is another one
  int minimumWidth = kMinimumColumnWidth;
  std::optional<int> maximumWidth = {};
  std::string_view toolTip = {};  ///< of the header; empty for none

  [[nodiscard]] bool showsPicture() const { return std::holds_alternative<PictureCells>(cells); }
  [[nodiscard]] bool showsButton() const { return std::holds_alternative<ButtonCells>(cells); }
  [[nodiscard]] bool showsText() const { return !showsPicture() && !showsButton(); }
  /// Every column but the one with the reveal buttons.
  [[nodiscard]] bool isSortable() const { return !showsButton(); }
  /// Names and paths stand at the left, everything else in the middle. Headers are always in the middle.
  [[nodiscard]] bool isLeftAligned() const { return std::holds_alternative<TextCells>(cells); }
};

/// Every column there is, in the order of the tables.
[[nodiscard]] const std::vector<FileTableColumn>& fileTableColumns();

/// Raises minimum widths, and widths below their minimum, to `kMinimumColumnWidth`.
[[nodiscard]] std::vector<FileTableColumn> withMinimumWidths(std::vector<FileTableColumn> columns);

/// The columns' widths in a table that is `available` wide: each column gets the same share of what is to be
/// added to or taken from its own width, within its limits. The result is wider than `available` when the
/// minimum widths are, and narrower when every column is at its maximum. `widths` holds one width a column.
[[nodiscard]] std::vector<int> uniformWidths(const std::vector<FileTableColumn>& columns,
                                             std::vector<int> widths, int available);

}  // namespace quillmeter
