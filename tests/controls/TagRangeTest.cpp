#include "controls/TagRange.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace quillmeter {
namespace {

TEST(TagRange, HoldsItsLocationAndNotItsEnd) {
  constexpr TagRange range{3, 2};
  EXPECT_FALSE(range.contains(2));
  EXPECT_TRUE(range.contains(3));
  EXPECT_TRUE(range.contains(4));
  EXPECT_FALSE(range.contains(5));
}

TEST(TagRange, NegativeTagBelowTheRangeIsFarAboveIt) {
  EXPECT_FALSE((TagRange{0, 1000}.contains(-1)));
  EXPECT_FALSE(tagRange(3, 5).contains(std::numeric_limits<std::int64_t>::min()));
}

TEST(TagRange, BothEndsAreIncluded) {
  EXPECT_FALSE(tagRange(3, 5).contains(2));
  EXPECT_TRUE(tagRange(3, 5).contains(3));
  EXPECT_TRUE(tagRange(3, 5).contains(5));
  EXPECT_FALSE(tagRange(3, 5).contains(6));
  EXPECT_TRUE(tagRange(7, 7).contains(7));
}

TEST(TagRange, RangeOverZeroHoldsNegativeTagsToo) {
  EXPECT_TRUE(tagRange(-2, 1).contains(-2));
  EXPECT_TRUE(tagRange(-2, 1).contains(0));
  EXPECT_FALSE(tagRange(-2, 1).contains(-3));
}

TEST(TagRange, EndJustBeforeTheStartHoldsNothing) {
  EXPECT_FALSE(tagRange(5, 4).contains(4));
  EXPECT_FALSE(tagRange(5, 4).contains(5));
}

}  // namespace
}  // namespace quillmeter
