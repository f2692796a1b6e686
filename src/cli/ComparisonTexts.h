#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cli/ComparisonFormats.h"
#include "support/NumberFormat.h"

/// What a comparison says to people, in a terminal and in a merge request alike.
namespace quillmeter {

/// Caption, before, after, change, change in per cent.
using TotalRow = std::array<std::string, 5>;

/// One row for each total that people look at: not for the numbers of methods, which are always 0.
[[nodiscard]] std::vector<TotalRow> totalRows(const Comparison& comparison,
                                              const DecimalFormatter& formatter);

/// "2 files added, 1 removed, 28 unchanged".
[[nodiscard]] std::string changesSentence(const Differences& differences, const DecimalFormatter& formatter);

/// "and 14 more"; empty when `top` leaves nothing out.
[[nodiscard]] std::string omissionSentence(const Comparison& comparison, const DecimalFormatter& formatter);

/// That both measurements are by the current rules, as a line; empty for the classic ones, which go without
/// saying.
[[nodiscard]] std::string rulesLine(const Comparison& comparison);

/// "+1,234", "-5", "0".
[[nodiscard]] std::string signedCount(std::int64_t number, const DecimalFormatter& formatter);
/// "+1.5 KB".
[[nodiscard]] std::string signedSize(std::int64_t bytes, const DecimalFormatter& formatter);

/// How many of the files a format lists.
[[nodiscard]] std::size_t listedFiles(const Comparison& comparison);

}  // namespace quillmeter
