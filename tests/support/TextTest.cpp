#include "support/Text.h"

#include <gtest/gtest.h>

#include <compare>
#include <string>

#include "support/Utf8.h"

namespace quillmeter {
namespace {

TEST(Trimming, TakesEveryWhiteSpaceAndLineBreakFromBothEnds) {
  EXPECT_EQ(trimmed(" \t\n\v\f\r\u0085\u00a0\u1680\u2000\u200a\u2028\u2029\u202f\u205f\u3000x y\u3000 \n"),
            "x y");
}

TEST(Trimming, LeavesCharactersThatOnlyLookBlank) {
  EXPECT_EQ(trimmed("\u200bx\ufeff"), "\u200bx\ufeff");
  EXPECT_EQ(trimmed("\u180ex"), "\u180ex");
}

TEST(Trimming, GivesTheEmptyTextForBlanksOnly) {
  EXPECT_EQ(trimmed(" \u2003\n"), "");
  EXPECT_EQ(trimmed(""), "");
}

TEST(Trimming, KeepsBytesThatAreNotUtf8) {
  EXPECT_EQ(trimmed(" \xff\x80 "), "\xff\x80");
}

TEST(Utf16Length, CountsTwoUnitsForCharactersOutsideTheBasicPlane) {
  EXPECT_EQ(utf16Length("aé日\U0001F600"), 5U);
  EXPECT_EQ(utf16Length(""), 0U);
}

TEST(Utf16Length, CountsOneUnitForEachBadByte) {
  EXPECT_EQ(utf16Length("a\xff\xc3"), 3U);
}

TEST(Utf8, RefusesOverlongFormsSurrogatesAndValuesOutOfRange) {
  for (const char* bad : {"\xc0\x80", "\xc1\xbf", "\xe0\x80\x80", "\xed\xa0\x80", "\xf0\x80\x80\x80",
                          "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\x80", "\xe2\x82", "\xff"}) {
    EXPECT_FALSE(firstCharacter(bad).valid) << bad;
    EXPECT_FALSE(isValidUtf8(bad)) << bad;
  }
  EXPECT_TRUE(isValidUtf8("\u007f\u0080\u07ff\u0800\ud7ff\ue000\uffff\U00010000\U0010ffff"));
}

TEST(Utf8, FindsTheLastCharacterOfATextWithABadEnd) {
  EXPECT_EQ(lastCharacter("aé").codePoint, U'é');
  EXPECT_FALSE(lastCharacter("é\x80").valid);
}

TEST(LowerCasing, FollowsUnicodeAndNoLanguage) {
  EXPECT_EQ(lowerCased("ABCxyz.M"), "abcxyz.m");
  EXPECT_EQ(lowerCased("ÄÖÜß"), "äöüß");
  EXPECT_EQ(lowerCased("I"), "i");
  EXPECT_EQ(lowerCased("İ"), "i\u0307");
  EXPECT_EQ(lowerCased("ΟΔΟΣ"), "οδος");
}

TEST(LowerCasing, KeepsBytesThatAreNotUtf8) {
  EXPECT_EQ(lowerCased("\xff\xC4Ä\xfeY"), "\xff\xC4ä\xfey");
}

TEST(CaseInsensitiveOrder, IgnoresCaseAndFoldsFully) {
  EXPECT_EQ(caseFoldKey("readme.M"), caseFoldKey("README.m"));
  EXPECT_EQ(caseFoldKey("straße"), caseFoldKey("STRASSE"));
  EXPECT_LT(caseFoldKey("A.m"), caseFoldKey("b.m"));
  EXPECT_GT(caseFoldKey("b"), caseFoldKey("A"));
}

TEST(CaseInsensitiveOrder, ComparesFoldedTextByUtf16Units) {
  EXPECT_LT(caseFoldKey("\U0001F600"), caseFoldKey("\ufb50"));
  EXPECT_GT(caseFoldKey("\ufffd"), caseFoldKey("\U0001F600"));
}

TEST(CodeUnitOrder, PutsSurrogatesBeforeTheLastCharactersOfTheBasicPlane) {
  EXPECT_TRUE(std::is_lt(compareCodeUnits("\U00010000", "\ue000")));
  EXPECT_TRUE(std::is_lt(compareCodeUnits("\ud7ff", "\U00010000")));
}

TEST(CodeUnitOrder, PutsUpperCaseBeforeLowerCaseAndPrefixesFirst) {
  EXPECT_TRUE(std::is_lt(compareCodeUnits("A.m", "a.h")));
  EXPECT_TRUE(std::is_lt(compareCodeUnits("a", "a.h")));
  EXPECT_TRUE(std::is_gt(compareCodeUnits("a.h", "a")));
  EXPECT_TRUE(std::is_eq(compareCodeUnits("a", "a")));
}

TEST(RemovingOccurrences, TakesThemFromTheLeftWithoutOverlap) {
  EXPECT_EQ(removingOccurrences("/w/Foo.mFoo.m", "Foo.m"), "/w/");
  EXPECT_EQ(removingOccurrences("aaa", "aa"), "a");
  EXPECT_EQ(removingOccurrences("abc", "x"), "abc");
  EXPECT_EQ(removingOccurrences("abc", ""), "abc");
}

TEST(OnOneLine, EveryControlCharacterBecomesASpace) {
  EXPECT_EQ(onOneLine("a\nb\rc\td\ve\ff\x01g\x7Fh\xC2\x85i\xE2\x80\xA9j"), "a b c d e f g h i j");
  EXPECT_EQ(onOneLine("ä b\xFF\xC3"), "ä b\xFF\xC3");
  EXPECT_EQ(onOneLine(""), "");
}

}  // namespace
}  // namespace quillmeter
