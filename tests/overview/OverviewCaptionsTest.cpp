#include "overview/OverviewCaptions.h"

#include <gtest/gtest.h>

#include <set>

#include "measuring/FileKinds.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter {
namespace {

TEST(OverviewCaptions, EveryMetricHasAKeyACaptionAndADefinitionOfItsOwn) {
  std::set<std::string_view> keys;
  std::set<std::string_view> captions;
  std::set<std::string_view> definitions;
  const OverviewCaptions all = overviewCaptions(classicKinds());
  for (const OverviewCaption& entry : all) {
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
  EXPECT_EQ(totalLinesCaption(classicKinds()).key, overviewCaptions(classicKinds())[1].key);
  EXPECT_EQ(totalLinesCaption(classicKinds()).definition, overviewCaptions(classicKinds())[1].definition);
}

TEST(OverviewCaptions, DefinitionsNameTheExtensionsOfTheClassicRules) {
  const OverviewCaptions captions = overviewCaptions(classicKinds());
  EXPECT_EQ(
      captions[1].definition,
      "All lines of the code files (.c, .cpp, .h, .hh, .m, .mm, .pch), empty lines and comments included.");
  EXPECT_EQ(
      captions[6].definition,
      "Files of the project that end in .c, .cpp, .h, .hh, .m, .mm or .pch, headers included. A file that "
      "is referenced twice counts twice.");
  EXPECT_EQ(captions[7].definition, "Files of the project that end in .jpg, .png, .tiff or .icns.");
  EXPECT_EQ(captions[8].caption, "Interface files (XIB)");
  EXPECT_EQ(captions[8].definition, "Files of the project that end in .xib.");
}

TEST(OverviewCaptions, NameStoryboardsWhereTheyAreInterfaceFiles) {
  const OverviewCaption caption = overviewCaptions(currentKinds())[8];
  EXPECT_EQ(caption.caption, "Interface files (XIB, storyboard)");
  EXPECT_EQ(caption.definition, "Files of the project that end in .xib or .storyboard.");
}

}  // namespace
}  // namespace quillmeter
