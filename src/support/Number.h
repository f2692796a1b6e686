#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <variant>

namespace quillmeter {

/// A number that keeps 64-bit integers exact and can also hold a double: what the counters of a file record
/// and the values of a chart are made of. An absent number is a `std::optional<Number>` without a value.
class Number {
 public:
  Number() = default;
  explicit Number(std::int64_t value) : value_(value) {}
  explicit Number(std::uint64_t value) : value_(value) {}
  explicit Number(int value) : value_(std::int64_t{value}) {}
  explicit Number(double value) : value_(value) {}

  /// The value as a signed 64-bit integer: unsigned values wrap as two's complement; doubles are truncated
  /// toward zero, clamped to the range, and a not-a-number gives 0.
  [[nodiscard]] std::int64_t longValue() const;
  [[nodiscard]] double doubleValue() const;

  /// Plain decimal text of an integer; a double is written in its shortest exact form.
  [[nodiscard]] std::string stringValue() const;

  /// Numeric order, exact also between integers beyond 2^53 and doubles' neighbours; a not-a-number comes
  /// first.
  [[nodiscard]] std::weak_ordering compare(const Number& other) const;
  [[nodiscard]] bool operator==(const Number& other) const { return std::is_eq(compare(other)); }

 private:
  std::variant<std::int64_t, std::uint64_t, double> value_ = std::int64_t{0};
};

/// `left + right`, which wraps around as two's complement where it does not fit. Sums of counters and sizes
/// go this way everywhere, so that one project has one total whichever page shows it.
[[nodiscard]] constexpr std::int64_t wrappingSum(std::int64_t left, std::int64_t right) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) + static_cast<std::uint64_t>(right));
}

/// `left + right`, kept at the end of the range where it does not fit: for a mean, which must not leave the
/// range of what it is the mean of.
[[nodiscard]] std::int64_t saturatedSum(std::int64_t left, std::int64_t right);

/// `value` truncated toward zero and clamped to the range of int64_t; 0 for a not-a-number.
[[nodiscard]] std::int64_t clampedToInt64(double value);
/// `value` truncated toward zero and clamped to the range of int32_t; 0 for a not-a-number.
[[nodiscard]] std::int32_t clampedToInt32(double value);

}  // namespace quillmeter
