#include "tables/FileTable.h"

#include <algorithm>
#include <compare>
#include <numeric>
#include <utility>

#include "support/Text.h"

namespace quillmeter {
namespace {

std::string_view textOf(const std::optional<std::string>& text) {
  return text ? std::string_view(*text) : std::string_view();
}

std::string extensionOf(const FileObject& file) {
  return file.getFileExtension().value_or(std::string());
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
  if (ascending)
    return sortedOrder(keys, [&](const Key& a, const Key& b) { return std::is_lt(compare(a, b)); });
  return sortedOrder(keys, [&](const Key& a, const Key& b) { return std::is_gt(compare(a, b)); });
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

FileTable::FileTable() : FileTable({}, {}, classicKinds(), 1.0) {}

FileTable::FileTable(std::vector<FileTableColumn> columns, FileList files, const FileKindTable& kinds,
                     double bytesInSizeUnit, const std::string& locale)
    : columns_(withMinimumWidths(std::move(columns))),
      rows_(std::move(files)),
      kinds_(kinds),
      bytesInSizeUnit_(bytesInSizeUnit),
      formatter_(std::make_shared<const DecimalFormatter>(0, 2, locale)) {
  const auto keys =
      keysOf<std::string>(rows_, [](const FileObject& file) { return caseFoldKey(textOf(file.fileName())); });
  arrange(rows_, sortedOrder(keys, std::less<>()));
}

std::optional<std::size_t> FileTable::columnOf(std::string_view identifier) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [identifier](const auto& column) {
    return column.identifier == identifier;
  });
  if (found == columns_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - columns_.begin());
}

std::vector<std::size_t> FileTable::sort(std::size_t column, bool ascending) {
  const ColumnCells& cells = columns_[column].cells;
  std::vector<std::size_t> order;
  if (const auto* texts = std::get_if<TextCells>(&cells)) {
    order = sortedOrder(keysOf<std::string_view>(rows_, texts->text), ascending, compareCodeUnits);
  } else if (const auto* numbers = std::get_if<NumberCells>(&cells)) {
    order = sortedOrder(keysOf<Number>(rows_, numbers->number), ascending,
                        [](const Number& a, const Number& b) { return a.compare(b); });
  } else {
    order = sortedOrder(keysOf<std::string>(rows_, extensionOf), ascending, compareCodeUnits);
  }
  arrange(rows_, order);
  return order;
}

std::string FileTable::cellText(std::size_t row, std::size_t column) const {
  const ColumnCells& cells = columns_[column].cells;
  if (const auto* texts = std::get_if<TextCells>(&cells)) return std::string(texts->text(*rows_[row]));
  const auto* numbers = std::get_if<NumberCells>(&cells);
  if (numbers == nullptr) return {};
  const Number number = numbers->number(*rows_[row]);
  switch (numbers->format) {
    case NumberCells::Format::plain:
      break;
    case NumberCells::Format::decimals:
      return formatter_->format(number.doubleValue());
    case NumberCells::Format::size:
      return formatter_->format(number.doubleValue() / bytesInSizeUnit_);
  }
  return formatter_->inLocalDigits(number.stringValue());
}

std::string_view FileTable::iconName(std::size_t row) const {
  const FileKindEntry* entry = kinds_.find(*rows_[row]);
  return entry == nullptr ? kOtherPicture : entry->picture;
}

std::string FileTable::tabSeparated(const std::vector<std::size_t>& rows) const {
  std::string result;
  for (const std::size_t row : rows) {
    bool isFirst = true;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      if (columns_[column].showsButton()) continue;
      if (!std::exchange(isFirst, false)) result += '\t';
      result += onOneLine(columns_[column].showsPicture() ? extensionOf(*rows_[row]) : cellText(row, column));
    }
    result += '\n';
  }
  return result;
}

}  // namespace quillmeter
