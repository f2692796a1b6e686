#include "charts/GrowIn.h"

#include <gtest/gtest.h>

#include <vector>

#include "charts/ChartKind.h"

namespace quillmeter {
namespace {

TEST(GrowIn, BarsTakeTwentySixStepsAndPiesSixteen) {
  for (const ChartKind bars :
       {ChartKind::sourceFilesBars, ChartKind::xibFilesBars, ChartKind::imageFilesBars}) {
    EXPECT_EQ(firstGrowInStep(bars), 25);
  }
  EXPECT_EQ(firstGrowInStep(ChartKind::codeLinesPie), 15);
  EXPECT_EQ(firstGrowInStep(ChartKind::fileKindsPie), 15);
}

TEST(GrowIn, FactorGoesFromNothingToExactlyOne) {
  EXPECT_EQ(growInFactor(25), 0.0F);
  EXPECT_EQ(growInFactor(15), 0.4F);
  EXPECT_EQ(growInFactor(0), 1.0F);
}

TEST(GrowIn, PieGrowsByEightPointsAStep) {
  std::vector<std::int32_t> radii;
  for (std::int32_t step = 15; step >= 0; --step)
    radii.push_back(pieRadius(step));
  EXPECT_EQ(radii, (std::vector<std::int32_t>{80, 88, 96, 104, 112, 120, 128, 136, 144, 152, 160, 168, 176,
                                              184, 192, 200}));
}

TEST(GrowIn, StepsOfABarChartGiveAPieARadiusToo) {
  EXPECT_EQ(pieRadius(25), 0);
  EXPECT_EQ(pieRadius(20), 40);
}

}  // namespace
}  // namespace quillmeter
