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

}  // namespace
}  // namespace quillmeter
