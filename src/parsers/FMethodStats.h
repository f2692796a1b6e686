#pragma once

#include <cstdint>

namespace quillmeter {

/// How many methods and functions one source file defines. A parser makes and fills it and shares it with its
/// caller. The numbers are 32 bits wide and wrap around; a file needs some ten thousand million bytes for
/// that.
class FMethodStats {
 public:
  [[nodiscard]] std::int32_t noMethods() const { return noMethods_; }
  /// Methods of a class ("+"), and functions that are declared static.
  [[nodiscard]] std::int32_t noStaticMethods() const { return noStaticMethods_; }
  /// Methods of an object ("-"), and all other functions.
  [[nodiscard]] std::int32_t noInstanceMethods() const { return noInstanceMethods_; }

  void setNoMethods(std::int32_t value) { noMethods_ = value; }
  void setNoStaticMethods(std::int32_t value) { noStaticMethods_ = value; }
  void setNoInstanceMethods(std::int32_t value) { noInstanceMethods_ = value; }

 private:
  std::int32_t noMethods_ = 0;
  std::int32_t noStaticMethods_ = 0;
  std::int32_t noInstanceMethods_ = 0;
};

/// The sum of two counts, wrapping around as two's complement.
[[nodiscard]] constexpr std::int32_t sumOfCounts(std::int32_t left, std::int32_t right) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(left) + static_cast<std::uint32_t>(right));
}

}  // namespace quillmeter
