#include "parsers/FMethodStats.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmeter {
namespace {

TEST(FMethodStats, StartsWithNothingCounted) {
  const FMethodStats stats;
  EXPECT_EQ(stats.noMethods(), 0);
  EXPECT_EQ(stats.noStaticMethods(), 0);
  EXPECT_EQ(stats.noInstanceMethods(), 0);
}

TEST(FMethodStats, KeepsTheThreeCountsApart) {
  FMethodStats stats;
  stats.setNoMethods(7);
  stats.setNoStaticMethods(-2);
  stats.setNoInstanceMethods(9);
  EXPECT_EQ(stats.noMethods(), 7);
  EXPECT_EQ(stats.noStaticMethods(), -2);
  EXPECT_EQ(stats.noInstanceMethods(), 9);
}

TEST(FMethodStats, CountsWrapAround) {
  EXPECT_EQ(sumOfCounts(std::numeric_limits<std::int32_t>::max(), 1),
            std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(sumOfCounts(-3, 5), 2);
}

}  // namespace
}  // namespace quillmeter
