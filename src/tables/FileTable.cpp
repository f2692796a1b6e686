#include "tables/FileTable.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "support/Text.h"
#include "tables/TypeIcon.h"

namespace quillmeter {
namespace {

std::string_view textOf(const std::optional<std::string>& text) {
  return text ? std::string_view(*text) : std::string_view();
}

Number numberOf(const FileObject& file, FileTableField field) {
  const auto orZero = [](const std::optional<Number>& number) { return number.value_or(Number(0)); };
  switch (field) {
    case FileTableField::noLinesTotal:
      return orZero(file.noLinesTotal());
    case FileTableField::noLinesWithoutSpaces:
      return orZero(file.noLinesWithoutSpaces());
    case FileTableField::noLinesComments:
      return orZero(file.noLinesComments());
    case FileTableField::noWords:
      return orZero(file.noWords());
    case FileTableField::noCharactersTotal:
      return orZero(file.noCharactersTotal());
    case FileTableField::kloc:
      return Number(file.kloc());
    default:
      return orZero(file.fileSize());
  }
}

/// The permutation that sorts `keys`, which are computed once a row: equal keys keep their order.
template <class Key, class Compare>
std::vector<std::size_t> sortedOrder(const std::vector<Key>& keys, Compare isBefore) {
  std::vector<std::size_t> order(keys.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return isBefore(keys[a], keys[b]); });
  return order;
}

template <class Key, class Compare>
std::vector<std::size_t> sortedOrder(const std::vector<Key>& keys, bool ascending, Compare compare) {
  if (ascending) return sortedOrder(keys, [&](const Key& a, const Key& b) { return compare(a, b) < 0; });
  return sortedOrder(keys, [&](const Key& a, const Key& b) { return compare(a, b) > 0; });
}

template <class Key, class KeyOf>
std::vector<Key> keysOf(const FileList& rows, KeyOf keyOf) {
  std::vector<Key> keys;
  keys.reserve(rows.size());
  for (const auto& row : rows)
    keys.push_back(keyOf(*row));
  return keys;
}

void arrange(FileList& rows, const std::vector<std::size_t>& order) {
  FileList arranged;
  arranged.reserve(rows.size());
  for (const std::size_t row : order)
    arranged.push_back(std::move(rows[row]));
  rows = std::move(arranged);
}

}  // namespace

FileTable::FileTable() : FileTable({}, {}, 1.0) {}

FileTable::FileTable(std::vector<FileTableColumn> columns, FileList files, double bytesInSizeUnit,
                     const std::string& locale)
    : columns_(withMinimumWidths(std::move(columns))),
      rows_(std::move(files)),
      bytesInSizeUnit_(bytesInSizeUnit),
      formatter_(std::make_shared<const DecimalFormatter>(0, 2, locale)) {
  const auto keys =
      keysOf<std::string>(rows_, [](const FileObject& file) { return caseFoldKey(textOf(file.fileName())); });
  arrange(rows_, sortedOrder(keys, std::less<>()));
}

std::vector<std::size_t> FileTable::sort(std::size_t column, bool ascending) {
  const FileTableField field = columns_[column].field;
  std::vector<std::size_t> order;
  if (field == FileTableField::getFileExtension) {
    const auto keys = keysOf<std::string>(
        rows_, [](const FileObject& file) { return file.getFileExtension().value_or(std::string()); });
    order = sortedOrder(keys, ascending, compareCodeUnits);
  } else if (field == FileTableField::fileName || field == FileTableField::filePath) {
    const auto keys = keysOf<std::string_view>(rows_, [&](const FileObject& file) {
      return textOf(field == FileTableField::fileName ? file.fileName() : file.filePath());
    });
    order = sortedOrder(keys, ascending, compareCodeUnits);
  } else {
    const auto keys = keysOf<Number>(rows_, [&](const FileObject& file) { return numberOf(file, field); });
    order = sortedOrder(keys, ascending, [](const Number& a, const Number& b) { return a.compare(b); });
  }
  arrange(rows_, order);
  return order;
}

std::string FileTable::cellText(std::size_t row, std::size_t column) const {
  const FileObject& file = *rows_[row];
  switch (const FileTableField field = columns_[column].field) {
    case FileTableField::getFileExtension:
    case FileTableField::finderview:
      return {};
    case FileTableField::fileName:
      return std::string(textOf(file.fileName()));
    case FileTableField::filePath:
      return std::string(textOf(file.filePath()));
    case FileTableField::kloc:
      return formatter_->format(file.kloc());
    case FileTableField::fileSize:
      return formatter_->format(doubleValue(file.fileSize()) / bytesInSizeUnit_);
    default:
      return formatter_->inLocalDigits(numberOf(file, field).stringValue());
  }
}

std::string_view FileTable::iconName(std::size_t row) const {
  return typeIconName(rows_[row]->getFileExtension().value_or(std::string()));
}

std::string FileTable::tabSeparated(const std::vector<std::size_t>& rows) const {
  std::string result;
  for (const std::size_t row : rows) {
    bool isFirst = true;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      const FileTableField field = columns_[column].field;
      if (field == FileTableField::finderview) continue;
      if (!std::exchange(isFirst, false)) result += '\t';
      result += onOneLine(field == FileTableField::getFileExtension
                              ? rows_[row]->getFileExtension().value_or(std::string())
                              : cellText(row, column));
    }
    result += '\n';
  }
  return result;
}

}  // namespace quillmeter
