#include "cli/TextColumns.h"

#include <algorithm>

#include "cli/Output.h"
#include "support/Text.h"

namespace quillmeter {

void writeTextColumns(const std::vector<std::vector<std::string>>& rows, const LeftColumns& left,
                      Output& output) {
  if (rows.empty()) return;
  std::vector<std::size_t> widths(rows.front().size());
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], utf16Length(row[i]));
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string padding(widths[i] - utf16Length(row[i]), ' ');
      const bool isLeft = std::find(left.begin(), left.end(), i) != left.end();
      if (i > 0) line += "  ";
      line += isLeft ? row[i] + padding : padding + row[i];
    }
    line.resize(line.find_last_not_of(' ') + 1);
    output.write(line + "\n");
  }
}

}  // namespace quillmeter
