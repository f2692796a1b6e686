#pragma once

#include <cstddef>
#include <cstdint>

#include "compare/Differences.h"
#include "compare/Snapshot.h"

namespace quillmeter {

class Output;

/// The form of `writeComparisonJson`, described in docs/json.md.
inline constexpr std::int64_t kComparisonJsonVersion = 1;

/// Two measurements and how they differ, for the formats below; all of it outlives the call.
struct Comparison {
  const Snapshot& before;
  const Snapshot& after;
  const Differences& differences;
  std::size_t top;  ///< how many changed files are listed at most, largest changes first
};

/// For a terminal: totals, how many files changed in which way, and the files.
void writeComparisonTable(const Comparison& comparison, Output& output);

/// The same for a merge request. Whatever names hold is shown as it is and formats nothing.
void writeComparisonMarkdown(const Comparison& comparison, Output& output);

/// All numbers under their names for machines.
void writeComparisonJson(const Comparison& comparison, Output& output);

}  // namespace quillmeter
