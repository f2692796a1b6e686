#include "charts/ChartKind.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmeter {
namespace {

TEST(ChartKind, HasTheNumberOfItsButton) {
  EXPECT_EQ(graphTypeOf(ChartKind::codeLinesPie), 0);
  EXPECT_EQ(graphTypeOf(ChartKind::fileKindsPie), 1);
  EXPECT_EQ(graphTypeOf(ChartKind::sourceFilesBars), 2);
  EXPECT_EQ(graphTypeOf(ChartKind::xibFilesBars), 3);
  EXPECT_EQ(graphTypeOf(ChartKind::imageFilesBars), 4);
}

TEST(ChartKind, IsFoundByItsNumber) {
  for (const ChartKind kind : kAllCharts)
    EXPECT_EQ(chartKindOf(graphTypeOf(kind)), kind);
}

TEST(ChartKind, OtherNumbersAreNoCharts) {
  for (const std::int32_t number : {-1, 5, 99, std::numeric_limits<std::int32_t>::max()})
    EXPECT_EQ(chartKindOf(number), std::nullopt) << number;
}

TEST(ChartKind, EveryOneIsAPieOrBarsAndHasATitle) {
  for (const ChartKind kind : kAllCharts) {
    EXPECT_NE(isPieChart(kind), isBarChart(kind));
    EXPECT_FALSE(chartTitle(kind).empty());
  }
}

TEST(ChartKind, OnlySourceFilesAreMeasuredInLines) {
  for (const ChartKind kind : kAllCharts)
    EXPECT_EQ(measuresLines(kind), kind == ChartKind::sourceFilesBars) << graphTypeOf(kind);
}

}  // namespace
}  // namespace quillmeter
