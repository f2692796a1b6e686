#include "support/Number.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace quillmeter {
namespace {

template <class Integer>
Integer clampedTo(double value) {
  if (std::isnan(value)) return 0;
  // 2^63 (or 2^31) is exact as a double, while the largest integer itself may not be.
  constexpr double limit = -static_cast<double>(std::numeric_limits<Integer>::min());
  if (value >= limit) return std::numeric_limits<Integer>::max();
  if (value <= -limit) return std::numeric_limits<Integer>::min();
  return static_cast<Integer>(value);
}

}  // namespace

std::int64_t saturatedSum(std::int64_t left, std::int64_t right) {
  constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  if (right < 0) return left < least - right ? least : left + right;
  return left > most - right ? most : left + right;
}

std::int64_t clampedToInt64(double value) {
  return clampedTo<std::int64_t>(value);
}
std::int32_t clampedToInt32(double value) {
  return clampedTo<std::int32_t>(value);
}

std::int64_t Number::longValue() const {
  if (const auto* integer = std::get_if<std::int64_t>(&value_)) return *integer;
  if (const auto* integer = std::get_if<std::uint64_t>(&value_)) return static_cast<std::int64_t>(*integer);
  return clampedToInt64(std::get<double>(value_));
}

double Number::doubleValue() const {
  return std::visit([](auto value) { return static_cast<double>(value); }, value_);
}

std::string Number::stringValue() const {
  char text[32];
  const auto result =
      std::visit([&](auto value) { return std::to_chars(text, text + sizeof text, value); }, value_);
  return {text, result.ptr};
}

std::weak_ordering Number::compare(const Number& other) const {
  const bool leftIsDouble = std::holds_alternative<double>(value_);
  const bool rightIsDouble = std::holds_alternative<double>(other.value_);
  if (!leftIsDouble && !rightIsDouble) {
    // 128 bits hold every signed and unsigned 64-bit integer.
    __extension__ using Wide = __int128;
    const auto wide = [](const Number& number) {
      const auto* integer = std::get_if<std::uint64_t>(&number.value_);
      return integer != nullptr ? Wide{*integer} : Wide{std::get<std::int64_t>(number.value_)};
    };
    return wide(*this) <=> wide(other);
  }
  const double left = doubleValue();
  const double right = other.doubleValue();
  if (std::isnan(left) || std::isnan(right)) return std::isnan(right) <=> std::isnan(left);
  if (left < right) return std::weak_ordering::less;
  return left > right ? std::weak_ordering::greater : std::weak_ordering::equivalent;
}

}  // namespace quillmeter
