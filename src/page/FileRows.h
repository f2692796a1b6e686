#pragma once

#include <string>

namespace quillmeter {

class DecimalFormatter;
class MeasuredProject;

/// A table with a row for every file, in the order of the project: its path from the project's folder, its
/// kind and its counters. Each number stands in its cell as users read it, and exactly in `data-v`; a cell of
/// an absent one has a dash and no `data-v`.
[[nodiscard]] std::string fileTableHtml(const MeasuredProject& project, const DecimalFormatter& formatter);

/// The choice of which files the table shows: a kind, or one of the extensions that occur (in lower case, in
/// ascending order), whose values begin with a dot.
[[nodiscard]] std::string kindChoiceHtml(const MeasuredProject& project);

}  // namespace quillmeter
