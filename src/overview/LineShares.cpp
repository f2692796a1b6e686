#include "overview/LineShares.h"

#include <algorithm>

namespace quillmeter {

std::array<std::uint64_t, kLineKinds> linesByKind(const OverviewFigures& figures) {
  const std::uint64_t lines = figures.totalNumberLines;
  const std::uint64_t empty = std::min(figures.totalNumberLinesWithSpaces, lines);
  const std::uint64_t comments = std::min(figures.totalNumberLinesWithComments, lines - empty);
  return {lines - empty - comments, comments, empty};
}

std::array<double, kLineKinds> lineShares(const OverviewFigures& figures) {
  std::array<double, kLineKinds> shares{};
  if (figures.totalNumberLines == 0) return shares;
  const auto lines = linesByKind(figures);
  for (std::size_t kind = 0; kind < kLineKinds; ++kind)
    shares.at(kind) = static_cast<double>(lines.at(kind)) / static_cast<double>(figures.totalNumberLines);
  return shares;
}

}  // namespace quillmeter
