#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "measuring/FileObject.h"

/// The five charts, known everywhere by one number. Any other number is no chart: it has no title, no measure
/// and draws nothing.
namespace quillmeter {

inline constexpr std::int32_t kCodeLinesPie = 0;
inline constexpr std::int32_t kFileKindsPie = 1;
inline constexpr std::int32_t kSourceFilesBars = 2;
inline constexpr std::int32_t kXIBFilesBars = 3;
inline constexpr std::int32_t kImageFilesBars = 4;

/// Bars beyond this many are neither drawn nor hit.
inline constexpr std::size_t kMostBars = 15;

[[nodiscard]] constexpr bool isPieChart(std::int32_t graphType) {
  return graphType == kCodeLinesPie || graphType == kFileKindsPie;
}
[[nodiscard]] constexpr bool isBarChart(std::int32_t graphType) {
  return graphType >= kSourceFilesBars && graphType <= kImageFilesBars;
}

/// The title drawn above a chart; empty for no chart.
[[nodiscard]] std::string_view chartTitle(std::int32_t graphType);

/// A line that helps with a chart on screen: why it is empty, or how to get at the details of its bars. Empty
/// for a pie that has something to show.
[[nodiscard]] std::string_view chartHint(std::int32_t graphType, bool chartIsEmpty);

/// What a bar of the chart stands for: lines in the chart of source files, bytes in the other two.
[[nodiscard]] const std::optional<Number>& barMeasure(std::int32_t graphType, const FileObject& file);

}  // namespace quillmeter
