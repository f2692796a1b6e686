#pragma once

#include <string>
#include <vector>

#include "charts/ChartContents.h"

namespace quillmeter {

/// One bar or slice of a chart, as it is told to people who hear the chart instead of seeing it.
struct ChartPart {
  std::string name;   ///< of a slice with its share, as its legend has it
  std::string value;  ///< of a bar, as its tool tip has it; empty for a slice
};

/// The parts in their order on the chart: bars from the left, slices as the legend lists them. None for bars
/// that are not there yet.
[[nodiscard]] std::vector<ChartPart> chartParts(const ChartContents& contents);

}  // namespace quillmeter
