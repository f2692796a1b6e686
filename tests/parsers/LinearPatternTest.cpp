#include "parsers/LinearPattern.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/unistr.h>

#include <string>

#include "parsers/PlainIcu.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PlainIcu;

constexpr std::int32_t kNoTimeLimit = 0;

std::string utf8(UChar32 character) {
  std::string result;
  return icu::UnicodeString(character).toUTF8String(result);
}

bool isSurrogate(UChar32 character) {
  return character >= 0xD800 && character <= 0xDFFF;
}

TEST(LinearPattern, PrefersTheFirstAlternativeAsIcuDoes) {
  const LinearPattern pattern("a|ab");
  EXPECT_THAT(pattern.allMatches("ab ab"), ElementsAre("a", "a"));
  EXPECT_TRUE(pattern.matchesAll("ab"));
}

TEST(LinearPattern, RespectsOrIgnoresLetterCase) {
  EXPECT_THAT(LinearPattern("[a-z]+").allMatches("aBc"), ElementsAre("a", "c"));
  EXPECT_THAT(LinearPattern("[a-z]+", LinearPattern::Case::ignored).allMatches("aBc"), ElementsAre("aBc"));
}

TEST(LinearPattern, MatchesAtTheBeginningOnly) {
  const LinearPattern pattern("[a-z]+");
  EXPECT_EQ(pattern.matchAtBeginning("one two"), "one");
  EXPECT_EQ(pattern.matchAtBeginning(" one"), "");
  EXPECT_EQ(pattern.matchAtBeginning(""), "");
}

TEST(LinearPattern, EndsTheSearchAtAnEmptyMatch) {
  EXPECT_THAT(LinearPattern("x*").allMatches("xxa"), ElementsAre("xx"));
}

TEST(LinearPattern, MatchesNothingWhenItIsBad) {
  const LinearPattern pattern("(");
  EXPECT_FALSE(pattern.isValid());
  EXPECT_FALSE(pattern.matchesAll("("));
  EXPECT_EQ(pattern.matchAtBeginning("("), "");
  EXPECT_THAT(pattern.allMatches("("), IsEmpty());
}

TEST(LinearPattern, TakesBytesThatAreNotUtf8ForNoCharacterOfASet) {
  const LinearPattern pattern("[a-z\\xA0]+");
  EXPECT_THAT(pattern.allMatches("ab\xa0"
                                 "c\xc2"),
              ElementsAre("ab", "c"));
  EXPECT_THAT(pattern.allMatches("ab\u00a0c"), ElementsAre("ab\u00a0c"));
}

TEST(WhiteSpaceOfIcu, ReplacesItsEscapeAndNothingElse) {
  const std::string set = withIcuWhiteSpace("\\s");
  EXPECT_EQ(withIcuWhiteSpace("a\\s+\\\\s\\S\\("), "a" + set + "+\\\\s\\S\\(");
  EXPECT_EQ(withIcuWhiteSpace(""), "");
  EXPECT_EQ(withIcuWhiteSpace("\\"), "\\");
}

TEST(WhiteSpaceOfIcu, IsTheSameForEveryCharacter) {
  const LinearPattern linear("\\s");
  PlainIcu icu("\\s", 0, kNoTimeLimit);
  int found = 0;
  for (UChar32 c = 0; c <= 0x10FFFF; ++c) {
    if (isSurrogate(c)) continue;
    const bool expected = u_hasBinaryProperty(c, UCHAR_WHITE_SPACE) != 0;
    found += expected ? 1 : 0;
    ASSERT_EQ(linear.matchesAll(utf8(c)), expected) << std::hex << c;
    ASSERT_EQ(icu.matchesAll(utf8(c)), expected) << std::hex << c;
  }
  EXPECT_EQ(found, 25);
}

TEST(LetterCaseOfIcu, IsTheSameForEveryCharacterInTheSetsOfThePatterns) {
  for (const char* set : {"[a-zA-Z0-9_]", "[a-zA-Z0-9]", "[a-zA-Z0-9_\\*]", "[$<>a-zA-Z0-9_]"}) {
    const LinearPattern linear(set, LinearPattern::Case::ignored);
    PlainIcu icu(set, UREGEX_CASE_INSENSITIVE, kNoTimeLimit);
    for (UChar32 c = 0; c <= 0x1FFFF; ++c) {
      if (isSurrogate(c)) continue;
      ASSERT_EQ(linear.matchesAll(utf8(c)), icu.matchesAll(utf8(c))) << set << " " << std::hex << c;
    }
    EXPECT_TRUE(linear.matchesAll("\u017f"));
    EXPECT_TRUE(linear.matchesAll("\u212a"));
  }
}

TEST(LetterCaseOfIcu, KeepsTheFoldedLettersOutWhenCaseIsRespected) {
  const LinearPattern linear("[$<>a-zA-Z0-9_]");
  EXPECT_FALSE(linear.matchesAll("\u017f"));
  EXPECT_FALSE(linear.matchesAll("\u212a"));
}

}  // namespace
}  // namespace quillmeter
