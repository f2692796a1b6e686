#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "cli/GroupedTotals.h"

namespace quillmeter {

class Output;
class MeasuredProject;

/// What a person wants to read in a terminal: the overview's figures, then a line for each kind of file, or
/// for each group.
void writeTable(const MeasuredProject& project, std::optional<Grouping> grouping, Output& output);

/// The form of `writeJson`, described in docs/json.md. It grows when a member changes its meaning or goes.
inline constexpr std::int64_t kMeasurementJsonVersion = 1;

/// The form's version, the rules, the project's title and path, every file in section order with absent
/// values as null, and the totals; under the current rules also targets, other, missing and foreign; and the
/// groups, if any are asked for.
void writeJson(const MeasuredProject& project, std::optional<Grouping> grouping, Output& output);

/// A header and one row a file in section order with all fields; absent values are empty. A field that holds
/// a comma, a quote or a line break is quoted; bytes of names are written as they are.
void writeCsv(const MeasuredProject& project, Output& output);

}  // namespace quillmeter
