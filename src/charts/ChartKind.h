#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "measuring/FileObject.h"
#include "measuring/FileRanking.h"

namespace quillmeter {

/// The five charts. Their numbers are those of the buttons of the Charts tab and of the canvas's graph type.
enum class ChartKind : std::int32_t {
  codeLinesPie = 0,
  fileKindsPie = 1,
  sourceFilesBars = 2,
  xibFilesBars = 3,
  imageFilesBars = 4,
};

inline constexpr std::array kAllCharts = {ChartKind::codeLinesPie, ChartKind::fileKindsPie,
                                          ChartKind::sourceFilesBars, ChartKind::xibFilesBars,
                                          ChartKind::imageFilesBars};

/// The number of a chart, and the chart of a number: absent for a number that is no chart's.
[[nodiscard]] constexpr std::int32_t graphTypeOf(ChartKind kind) {
  return static_cast<std::int32_t>(kind);
}
[[nodiscard]] constexpr std::optional<ChartKind> chartKindOf(std::int32_t graphType) {
  for (const ChartKind kind : kAllCharts) {
    if (graphTypeOf(kind) == graphType) return kind;
  }
  return std::nullopt;
}

/// Bars beyond this many are neither drawn nor hit.
inline constexpr std::size_t kMostBars = 15;

[[nodiscard]] constexpr bool isPieChart(ChartKind kind) {
  switch (kind) {
    case ChartKind::codeLinesPie:
    case ChartKind::fileKindsPie:
      return true;
    case ChartKind::sourceFilesBars:
    case ChartKind::xibFilesBars:
    case ChartKind::imageFilesBars:
      break;
  }
  return false;
}
[[nodiscard]] constexpr bool isBarChart(ChartKind kind) {
  return !isPieChart(kind);
}

/// The title drawn above a chart.
[[nodiscard]] std::string_view chartTitle(ChartKind kind);

/// A line that helps with a chart on screen: why it is empty, or how to get at the details of its bars. Empty
/// for a pie that has something to show.
[[nodiscard]] std::string_view chartHint(ChartKind kind, bool chartIsEmpty);

/// Whether the bars of a chart stand for lines; they stand for bytes otherwise.
[[nodiscard]] constexpr bool measuresLines(ChartKind kind) {
  switch (kind) {
    case ChartKind::sourceFilesBars:
      return true;
    case ChartKind::codeLinesPie:
    case ChartKind::fileKindsPie:
    case ChartKind::xibFilesBars:
    case ChartKind::imageFilesBars:
      break;
  }
  return false;
}

/// What a bar of the chart stands for.
[[nodiscard]] FileMeasure barMeasure(ChartKind kind);
[[nodiscard]] const std::optional<Number>& barMeasure(ChartKind kind, const FileObject& file);

}  // namespace quillmeter
