#pragma once

#include <array>

#include "overview/OverviewFigures.h"

namespace quillmeter {

/// What the lines of the code files are, as the overview's bar shows them: code, comments and empty lines.
inline constexpr std::size_t kLineKinds = 3;

/// The number of lines of each kind. Comments and empty lines beyond all lines leave no code.
[[nodiscard]] std::array<std::uint64_t, kLineKinds> linesByKind(const OverviewFigures& figures);

/// The share of each kind, from 0 to 1, at most 1 together; all 0 where there is no line.
[[nodiscard]] std::array<double, kLineKinds> lineShares(const OverviewFigures& figures);

}  // namespace quillmeter
