#pragma once

#include <string>

namespace quillmeter {

class DecimalFormatter;
class MeasuredProject;

/// A table with a row for every file, in the order of the project: its path from the project's folder, its
/// kind and its counters. Each number stands in its cell as users read it, and exactly in `data-v`; a cell of
/// an absent one has a dash and no `data-v`.
[[nodiscard]] std::string fileTableHtml(const MeasuredProject& project, const DecimalFormatter& formatter);

}  // namespace quillmeter
