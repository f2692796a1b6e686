#include "overview/RulesOffer.h"

#include <gtest/gtest.h>

#include "xcode/LeftOut.h"

namespace quillmeter {
namespace {

using Sources = std::vector<std::pair<std::string, std::size_t>>;

std::string offer(const Sources& sources, bool isMuch = true) {
  return rulesOffer({.sources = sources, .isMuch = isMuch});
}

TEST(RulesOffer, SaysHowManyFilesOfWhichLanguage) {
  EXPECT_EQ(offer({{"swift", 172}}), "172 Swift files are not measured by the classic rules.");
  EXPECT_EQ(offer({{"swift", 172}, {"cc", 12}}),
            "172 Swift and 12 C++ files are not measured by the classic rules.");
}

TEST(RulesOffer, SpeaksOfASingleFile) {
  EXPECT_EQ(offer({{"swift", 1}}), "1 Swift file is not measured by the classic rules.");
  EXPECT_EQ(offer({{"m", 1}, {"c", 1}}),
            "1 Objective-C and 1 C files are not measured by the classic rules.");
}

TEST(RulesOffer, AddsUpTheExtensionsOfALanguage) {
  EXPECT_EQ(offer({{"swift", 5}, {"cpp", 4}, {"cxx", 3}, {"c++", 2}}),
            "9 C++ and 5 Swift files are not measured by the classic rules.");
  EXPECT_EQ(offer({{"h", 3}, {"hpp", 1}, {"metal", 2}}),
            "4 header and 2 Metal files are not measured by the classic rules.");
}

TEST(RulesOffer, NamesAnyOtherExtensionAsItIs) {
  EXPECT_EQ(offer({{"zig", 2}}), "2 .zig files are not measured by the classic rules.");
}

TEST(RulesOffer, StaysShortWithManyLanguages) {
  EXPECT_EQ(offer({{"swift", 9}, {"m", 8}, {"c", 7}, {"metal", 2}, {"h", 1}}),
            "9 Swift, 8 Objective-C, 7 C and 3 other files are not measured by the classic rules.");
}

TEST(RulesOffer, IsSilentWhereNotMuchWasLeftOut) {
  EXPECT_EQ(offer({{"swift", 1}}, false), "");
  EXPECT_EQ(offer({}), "");
}

}  // namespace
}  // namespace quillmeter
