#pragma once

#include <limits>

namespace quillmeter {

/// `part / whole` for any two numbers: 0 of 0 is not a number, anything else of 0 is an infinity of its sign.
[[nodiscard]] constexpr double ratio(double part, double whole) {
  static_assert(std::numeric_limits<double>::is_iec559,
                "a division by 0 must give an infinity or a not-a-number");
  return part / whole;
}

}  // namespace quillmeter
