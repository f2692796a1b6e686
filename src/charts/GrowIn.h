#pragma once

#include <chrono>
#include <cstdint>

#include "charts/ChartKind.h"

/// The timetable of the grow-in animation: how many steps a chart takes, how long they wait and how far it
/// has grown at each. A step is known by the number of steps that remain after it.
namespace quillmeter {

/// From choosing a chart to its first step, and from one step to the next.
inline constexpr std::chrono::milliseconds kGrowInDelay{100};
inline constexpr std::chrono::milliseconds kGrowInStep{20};

/// The number of the first step; the last one is 0. Bars take 26 steps, pies 16.
[[nodiscard]] std::int32_t firstGrowInStep(ChartKind kind);

/// How much of its full size a chart has at a step, in single precision: 0 at step 25, 1 at step 0.
[[nodiscard]] float growInFactor(std::int32_t step);

/// The radius of a pie at a step, in points: 80 at step 15, 200 at step 0.
[[nodiscard]] std::int32_t pieRadius(std::int32_t step);

}  // namespace quillmeter
