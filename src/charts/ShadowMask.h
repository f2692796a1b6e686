#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// The softness of shadows, as coverage values without any drawing. A blur radius r is a Gaussian of standard
/// deviation r / 2; nothing of it is seen farther than 1.5 r from the shape.
namespace quillmeter {

[[nodiscard]] constexpr double shadowReach(double blurRadius) {
  return blurRadius * 1.5;
}

/// The coverage, between 0 and 1, of the blurred interval [from, to] at `count` places: `first`, `first +
/// step`, and so on. The coverage of a blurred rectangle is the product of those of its sides.
[[nodiscard]] std::vector<float> blurredInterval(double from, double to, double blurRadius, double first,
                                                 double step, int count);

/// Blurs a mask of `height` rows of `width` coverage values, `stride` values apart, in place. `blurRadius`
/// counts in pixels; the mask needs a margin of `shadowReach` on each side to lose nothing. Does nothing for
/// an empty mask or a radius that is not positive.
void blurMask(std::span<std::uint8_t> mask, int width, int height, int stride, double blurRadius);

}  // namespace quillmeter
