#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/Limits.h"
#include "cli/Measurement.h"
#include "compare/Snapshot.h"

/// What `compare` shares with `measure --baseline`.
namespace quillmeter {

/// How a comparison is shown and judged.
struct ComparisonOptions {
  std::string format = "table";
  std::optional<std::string> outputPath;
  std::optional<std::string> top;  ///< a number, or "all"
  LimitOptions limits;
};

/// Adds --top. `options` must outlive the command.
void addTopOption(CLI::App& command, ComparisonOptions& options);

/// The measurement in a JSON file. Absent when it could not be read; the user has been told then.
[[nodiscard]] std::optional<Snapshot> snapshotInFile(const std::string& path);

/// Writes the comparison and checks the limits. Gives the exit status; measurements by different rules are
/// refused.
[[nodiscard]] int showComparison(const Snapshot& before, const Snapshot& after,
                                 const ComparisonOptions& options);

/// What a limit looks like, for the help of a command.
inline constexpr std::string_view kLimitHelp =
    "A LIMIT is [file:]NAME, then > >= < or <=, then a number: 'noLinesTotal>20000' for a value,\n"
    "'noLinesTotal>+500' for a difference, 'noLinesTotal>+5%' for a difference in per cent; with\n"
    "'file:' it is about any one file. NAME is one of fileSize, noLinesTotal, noLinesComments,\n"
    "noLinesWithoutSpaces, noWords, noCharactersWithoutSpaces, noCharactersTotal; for the whole\n"
    "project also getNumberCodeFiles, getNumberImageFiles, getNumberXIBFiles.";

}  // namespace quillmeter
