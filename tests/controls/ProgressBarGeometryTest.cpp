#include "controls/ProgressBarGeometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmeter {
namespace {

TEST(ProgressBarGeometry, NothingIsTwoCapsAndAPoint) {
  const ProgressBarGeometry bar = progressBarGeometry(0, 100);
  EXPECT_EQ(bar.filledWidth, 51.0);
  EXPECT_EQ(bar.middleWidth, 1.0F);
  EXPECT_EQ(bar.label, "0%");
}

TEST(ProgressBarGeometry, MaximumFillsTheBar) {
  const ProgressBarGeometry bar = progressBarGeometry(100, 100);
  EXPECT_EQ(bar.filledWidth, 300.0);
  EXPECT_EQ(bar.middleWidth, 250.0F);
  EXPECT_EQ(bar.label, "100%");
}

TEST(ProgressBarGeometry, PercentageIsCutOffNotRounded) {
  EXPECT_EQ(progressBarGeometry(33.9, 100).label, "33%");
  EXPECT_EQ(progressBarGeometry(99.99, 100).label, "99%");
  EXPECT_EQ(progressBarGeometry(-33.9, 100).label, "-33%");
}

TEST(ProgressBarGeometry, WidthFollowsTheValueOnceItIsWiderThanTheCaps) {
  EXPECT_EQ(progressBarGeometry(16, 100).filledWidth, 51.0);
  EXPECT_EQ(progressBarGeometry(0.5, 1).filledWidth, 150.0);
}

TEST(ProgressBarGeometry, ValueBeyondTheMaximumGoesBeyondTheBar) {
  EXPECT_EQ(progressBarGeometry(3, 2).filledWidth, 450.0);
  EXPECT_EQ(progressBarGeometry(3, 2).label, "150%");
}

TEST(ProgressBarGeometry, NumbersThatAreNoneGiveABarThatCanBeDrawn) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(progressBarGeometry(nan, 1).filledWidth, 51.0);
  EXPECT_EQ(progressBarGeometry(nan, 1).label, "0%");
  EXPECT_EQ(progressBarGeometry(1, 0).filledWidth, 51.0);
  EXPECT_EQ(progressBarGeometry(0, 0).label, "0%");
  EXPECT_EQ(progressBarGeometry(std::numeric_limits<double>::infinity(), 1).filledWidth, 30000.0);
}

}  // namespace
}  // namespace quillmeter
