#include "controls/ThreeSlice.h"

#include <gtest/gtest.h>

namespace quillmeter {
namespace {

TEST(ThreeSlice, CapsKeepTheirWidthsAndTheMiddleTakesTheRest) {
  const ThreeSlice slices = threeSlice(300, 25, 100, 30);
  EXPECT_EQ(slices.width, 155.0F);
  EXPECT_EQ(slices.left.sourceX, 0.0F);
  EXPECT_EQ(slices.left.sourceWidth, 25.0F);
  EXPECT_EQ(slices.left.targetWidth, 25.0F);
  EXPECT_EQ(slices.middle.sourceX, 25.0F);
  EXPECT_EQ(slices.middle.sourceWidth, 245.0F);
  EXPECT_EQ(slices.middle.targetX, 25.0F);
  EXPECT_EQ(slices.middle.targetWidth, 100.0F);
  EXPECT_EQ(slices.right.sourceX, 270.0F);
  EXPECT_EQ(slices.right.sourceWidth, 30.0F);
  EXPECT_EQ(slices.right.targetX, 125.0F);
  EXPECT_EQ(slices.right.targetWidth, 30.0F);
}

TEST(ThreeSlice, PieceWithoutWidthIsNotDrawn) {
  EXPECT_FALSE(threeSlice(50, 25, 100, 25).middle.isDrawn());
  EXPECT_FALSE(threeSlice(40, 25, 100, 25).middle.isDrawn());
  EXPECT_FALSE(threeSlice(300, 0, 100, 25).left.isDrawn());
  EXPECT_FALSE(threeSlice(300, 25, 0, 25).middle.isDrawn());
  EXPECT_TRUE(threeSlice(300, 25, 1, 25).middle.isDrawn());
}

}  // namespace
}  // namespace quillmeter
