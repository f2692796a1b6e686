#pragma once

#include <cstdint>

#include "analysis/ProjectHost.h"

namespace quillmeter {

/// Line sums over the project's source files.
struct SourceTotals {
  std::uint64_t totalNumberLines = 0;
  std::uint64_t totalNumberLinesWithSpaces = 0;    ///< the empty lines
  std::uint64_t totalNumberLinesWithComments = 0;  ///< the comment lines
};

/// What the Charts tab needs from the window that holds it. Main thread only; outlives the tab.
class ChartsHost : public ProjectHost {
 public:
  [[nodiscard]] virtual SourceTotals sourceTotals() const = 0;
};

}  // namespace quillmeter
