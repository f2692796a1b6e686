#include "charts/ShadowMask.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <numeric>
#include <vector>

namespace quillmeter {
namespace {

TEST(BlurredInterval, IsWholeInTheMiddleHalfAtTheEdgeAndGoneBeyondItsReach) {
  const auto coverage = blurredInterval(0, 100, 3, 0, 50, 2);
  EXPECT_NEAR(coverage[0], 0.5, 1e-6);
  EXPECT_NEAR(coverage[1], 1.0, 1e-6);
  EXPECT_LT(blurredInterval(0, 100, 3, 100 + shadowReach(3), 1, 1)[0], 0.005);
}

TEST(BlurredInterval, WithoutBlurHasHardEdges) {
  EXPECT_EQ(blurredInterval(1, 3, 0, 0.5, 1, 4), (std::vector<float>{0, 1, 1, 0}));
}

TEST(BlurredInterval, OfNoPlacesIsEmpty) {
  EXPECT_TRUE(blurredInterval(0, 1, 3, 0, 1, 0).empty());
  EXPECT_TRUE(blurredInterval(0, 1, 3, 0, 1, -1).empty());
}

TEST(BlurMask, SpreadsAPointEvenlyAndKeepsItsWeight) {
  constexpr int side = 31;
  std::vector<std::uint8_t> mask(side * side, 0);
  for (int y = 12; y < 19; ++y) {
    for (int x = 12; x < 19; ++x)
      mask[static_cast<std::size_t>(y * side + x)] = 255;
  }
  blurMask(mask, side, side, side, 5);
  const auto at = [&](int x, int y) { return int{mask[static_cast<std::size_t>(y * side + x)]}; };
  for (int i = 0; i < side; ++i) {
    EXPECT_NEAR(at(i, 15), at(side - 1 - i, 15), 1);
    EXPECT_NEAR(at(i, 15), at(15, i), 1);
  }
  EXPECT_GT(at(15, 15), at(19, 15));
  EXPECT_GT(at(19, 15), at(22, 15));
  EXPECT_EQ(at(0, 0), 0);
  const double weight = std::accumulate(mask.begin(), mask.end(), 0.0);
  EXPECT_NEAR(weight, 49 * 255.0, 49 * 255.0 * 0.03);
}

TEST(BlurMask, LeavesPaddingBetweenRowsAlone) {
  std::vector<std::uint8_t> mask{200, 200, 7, 200, 200, 7};
  blurMask(mask, 2, 2, 3, 3);
  EXPECT_EQ(mask[2], 7);
  EXPECT_EQ(mask[5], 7);
  EXPECT_LT(mask[0], 200);
}

TEST(BlurMask, DoesNothingWithoutARadiusOrAMask) {
  std::vector<std::uint8_t> mask{1, 2, 3, 4};
  const auto before = mask;
  blurMask(mask, 2, 2, 2, 0);
  blurMask(mask, 0, 2, 2, 3);
  EXPECT_EQ(mask, before);
  blurMask({}, 0, 0, 0, 3);
}

}  // namespace
}  // namespace quillmeter
