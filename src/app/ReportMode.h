#pragma once

#include <optional>

namespace quillmeter {

/// The application without windows, as the command-line tool runs it for a PDF report:
/// `quillmeter --report FILE KINDS RULES BUNDLE` reads the project bundle by the rules ("classic" or
/// "current"), writes the report of the named kinds to FILE ("-" is standard output) and ends. It needs no
/// display. Gives the exit status as the tool's users know it, or nothing when the arguments ask for
/// something else.
[[nodiscard]] std::optional<int> runReportMode(int argc, char** argv);

}  // namespace quillmeter
