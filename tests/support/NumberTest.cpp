#include "support/Number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillmeter {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Number, KeepsLargeIntegersExact) {
  const std::int64_t large = (std::int64_t{1} << 53) + 1;
  EXPECT_EQ(Number(large).longValue(), large);
  EXPECT_EQ(Number(large).stringValue(), "9007199254740993");
  EXPECT_EQ(Number(std::numeric_limits<std::uint64_t>::max()).stringValue(), "18446744073709551615");
}

TEST(Number, TruncatesAndClampsADoubleToAnInteger) {
  EXPECT_EQ(Number(-1.9).longValue(), -1);
  EXPECT_EQ(Number(1e300).longValue(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(Number(-1e300).longValue(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(Number(kNaN).longValue(), 0);
  EXPECT_EQ(clampedToInt32(2147483648.0), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(clampedToInt32(-2147483649.0), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(clampedToInt64(9223372036854775808.0), std::numeric_limits<std::int64_t>::max());
}

TEST(Number, ComparesSignedAndUnsignedByTheirValues) {
  EXPECT_TRUE(Number(-1).compare(Number(std::uint64_t{1})) < 0);
  EXPECT_TRUE(Number(std::numeric_limits<std::uint64_t>::max()).compare(Number(1)) > 0);
  EXPECT_TRUE(Number(2).compare(Number(2.0)) == 0);
  EXPECT_TRUE(Number(2).compare(Number(2.5)) < 0);
}

TEST(Number, OrdersANotANumberFirst) {
  EXPECT_TRUE(Number(kNaN).compare(Number(-1e300)) < 0);
  EXPECT_TRUE(Number(0).compare(Number(kNaN)) > 0);
  EXPECT_TRUE(Number(kNaN).compare(Number(kNaN)) == 0);
}

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

TEST(Sums, AreExactWithinTheRange) {
  for (const auto& sum : {wrappingSum, +[](std::int64_t a, std::int64_t b) { return saturatedSum(a, b); }}) {
    EXPECT_EQ(sum(2, 3), 5);
    EXPECT_EQ(sum(-2, 3), 1);
    EXPECT_EQ(sum(kMost, 0), kMost);
    EXPECT_EQ(sum(kMost - 1, 1), kMost);
    EXPECT_EQ(sum(kLeast, 0), kLeast);
    EXPECT_EQ(sum(kLeast, kMost), -1);
    EXPECT_EQ(sum(kMost, kLeast), -1);
  }
}

TEST(Sums, WrapAroundBeyondTheRange) {
  EXPECT_EQ(wrappingSum(kMost, 1), kLeast);
  EXPECT_EQ(wrappingSum(kMost, kMost), -2);
  EXPECT_EQ(wrappingSum(kLeast, -1), kMost);
}

TEST(Sums, StayAtTheEndOfTheRange) {
  EXPECT_EQ(saturatedSum(kMost, 1), kMost);
  EXPECT_EQ(saturatedSum(1, kMost), kMost);
  EXPECT_EQ(saturatedSum(kLeast, -1), kLeast);
  EXPECT_EQ(saturatedSum(-1, kLeast), kLeast);
  EXPECT_EQ(saturatedSum(kLeast, kLeast), kLeast);
}

}  // namespace
}  // namespace quillmeter
