#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillmeter {

class Output;

/// Which columns of a table stand to the left; the others stand to the right.
using LeftColumns = std::vector<std::size_t>;

/// Writes rows of equally many cells in columns two blanks apart, without blanks at the ends of lines.
void writeTextColumns(const std::vector<std::vector<std::string>>& rows, const LeftColumns& left,
                      Output& output);

}  // namespace quillmeter
