#include "controls/ProgressBarGeometry.h"

#include <algorithm>

#include "support/Number.h"

namespace quillmeter {

ProgressBarGeometry progressBarGeometry(double value, double maximum) {
  // A division by zero has a defined result only where the arithmetic is IEEE's; said here, it always has.
  const double fraction = maximum == 0.0 ? 0.0 : value / maximum;
  double width = fraction * kProgressBarWidth;
  if (!(width >= kProgressBarMinimum))
    width = kProgressBarMinimum;  // so written for a value that is not a number
  width = std::min(width, 100 * kProgressBarWidth);
  return {width, static_cast<float>(width) - 2 * kProgressBarCap,
          std::to_string(clampedToInt32(fraction * 100.0)) + "%"};
}

}  // namespace quillmeter
