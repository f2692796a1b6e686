#include "charts/ShadowMask.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillmeter {
namespace {

/// The part of a Gaussian that lies before `distance`.
double before(double distance, double deviation) {
  if (deviation <= 0) return distance >= 0 ? 1.0 : 0.0;
  return 0.5 * (1.0 + std::erf(distance / (deviation * std::numbers::sqrt2)));
}

/// One pass of a box of 2 × `reach` + 1 over `count` values that lie `step` apart. The values beyond the ends
/// are 0.
void boxBlur(std::uint8_t* values, int count, int step, int reach, std::vector<std::uint8_t>& copy) {
  const auto at = [&](int i) { return static_cast<std::size_t>(i); };
  for (int i = 0; i < count; ++i)
    copy[at(i)] = values[at(i * step)];
  const int width = 2 * reach + 1;
  int sum = 0;
  for (int i = 0; i < std::min(reach, count); ++i)
    sum += copy[at(i)];
  for (int i = 0; i < count; ++i) {
    if (i + reach < count) sum += copy[at(i + reach)];
    values[at(i * step)] = static_cast<std::uint8_t>((sum + reach) / width);
    if (i - reach >= 0) sum -= copy[at(i - reach)];
  }
}

}  // namespace

std::vector<float> blurredInterval(double from, double to, double blurRadius, double first, double step,
                                   int count) {
  const double deviation = blurRadius / 2;
  std::vector<float> coverage;
  coverage.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (int i = 0; i < count; ++i) {
    const double place = first + step * i;
    coverage.push_back(static_cast<float>(before(place - from, deviation) - before(place - to, deviation)));
  }
  return coverage;
}

void blurMask(std::span<std::uint8_t> mask, int width, int height, int stride, double blurRadius) {
  if (width <= 0 || height <= 0 || !(blurRadius > 0)) return;
  // Three boxes of width w come close to a Gaussian whose variance is 3 (w² − 1) / 12.
  const double deviation = blurRadius / 2;
  const int reach =
      std::max(1, static_cast<int>(std::lround((std::sqrt(4 * deviation * deviation + 1) - 1) / 2)));
  std::vector<std::uint8_t> copy(static_cast<std::size_t>(std::max(width, height)));
  constexpr int passes = 3;
  for (int y = 0; y < height; ++y) {
    std::uint8_t* row = mask.data() + static_cast<std::ptrdiff_t>(y) * stride;
    for (int pass = 0; pass < passes; ++pass)
      boxBlur(row, width, 1, reach, copy);
  }
  for (int x = 0; x < width; ++x) {
    for (int pass = 0; pass < passes; ++pass)
      boxBlur(mask.data() + x, height, stride, reach, copy);
  }
}

}  // namespace quillmeter
