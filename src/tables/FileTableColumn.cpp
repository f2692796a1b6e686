#include "tables/FileTableColumn.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <numeric>

namespace quillmeter {

std::vector<FileTableColumn> withMinimumWidths(std::vector<FileTableColumn> columns) {
  for (FileTableColumn& column : columns) {
    column.minimumWidth = std::max(column.minimumWidth, kMinimumColumnWidth);
    column.width = std::max(column.width, column.minimumWidth);
  }
  return columns;
}

std::vector<int> uniformWidths(const std::vector<FileTableColumn>& columns, std::vector<int> widths,
                               int available) {
  const auto maximum = [&](std::size_t i) {
    return columns[i].maximumWidth.value_or(std::numeric_limits<int>::max());
  };
  for (std::size_t i = 0; i < widths.size(); ++i)
    widths[i] = std::clamp(widths[i], columns[i].minimumWidth, maximum(i));
  for (;;) {
    const int missing = available - std::accumulate(widths.begin(), widths.end(), 0);
    std::vector<std::size_t> movable;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (missing > 0 ? widths[i] < maximum(i) : widths[i] > columns[i].minimumWidth) movable.push_back(i);
    }
    if (missing == 0 || movable.empty()) return widths;
    // What does not divide evenly goes to the first columns, pixel by pixel.
    const int count = static_cast<int>(movable.size());
    for (int place = 0; place < count; ++place) {
      const int rest = place < std::abs(missing % count) ? (missing > 0 ? 1 : -1) : 0;
      const std::size_t i = movable[static_cast<std::size_t>(place)];
      widths[i] = std::clamp(widths[i] + missing / count + rest, columns[i].minimumWidth, maximum(i));
    }
  }
}

}  // namespace quillmeter
