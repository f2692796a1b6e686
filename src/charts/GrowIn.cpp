#include "charts/GrowIn.h"

#include "support/Number.h"

namespace quillmeter {
namespace {

constexpr std::int32_t kBarSteps = 25;
constexpr std::int32_t kPieSteps = 15;
constexpr float kFullRadius = 200.0F;

}  // namespace

std::int32_t firstGrowInStep(ChartKind kind) {
  return isBarChart(kind) ? kBarSteps : kPieSteps;
}

float growInFactor(std::int32_t step) {
  return static_cast<float>((25.0 - step) / 25.0);
}

std::int32_t pieRadius(std::int32_t step) {
  return clampedToInt32(static_cast<double>(growInFactor(step) * kFullRadius));
}

}  // namespace quillmeter
