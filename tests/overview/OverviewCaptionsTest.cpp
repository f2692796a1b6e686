#include "overview/OverviewCaptions.h"

#include <gtest/gtest.h>

#include <set>

namespace quillmeter {
namespace {

TEST(OverviewCaptions, EveryMetricHasAKeyACaptionAndADefinitionOfItsOwn) {
  std::set<std::string_view> keys;
  std::set<std::string_view> captions;
  std::set<std::string_view> definitions;
  for (const OverviewCaption& entry : kOverviewCaptions) {
    ASSERT_FALSE(entry.key.empty());
    ASSERT_FALSE(entry.caption.empty());
    EXPECT_EQ(entry.definition.back(), '.') << entry.key;
    keys.insert(entry.key);
    captions.insert(entry.caption);
    definitions.insert(entry.definition);
  }
  EXPECT_EQ(keys.size(), kOverviewMetrics);
  EXPECT_EQ(captions.size(), kOverviewMetrics);
  EXPECT_EQ(definitions.size(), kOverviewMetrics);
}

TEST(OverviewCaptions, LargeFigureIsDefinedAsTheSecondMetric) {
  EXPECT_EQ(kTotalLinesCaption.key, kOverviewCaptions[1].key);
  EXPECT_EQ(kTotalLinesCaption.definition, kOverviewCaptions[1].definition);
}

}  // namespace
}  // namespace quillmeter
