#include "parsers/NSStringTools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <string>

#include "parsers/PlainIcu.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Trimming, LeavesNothingOfBlanksAndLineBreaks) {
  EXPECT_EQ(trimLeadingEndWhiteCharacters(" \t\r\n \n\n"), "");
  EXPECT_EQ(trimLeadingEndWhiteCharacters(""), "");
}

TEST(Trimming, LeavesInnerWhiteSpaceAlone) {
  EXPECT_EQ(trimLeadingEndWhiteCharacters("  int \n a;\r\n\n"), "int \n a;");
}

TEST(Trimming, TakesEveryKindOfWhiteSpace) {
  EXPECT_EQ(trimLeadingEndWhiteCharacters("\u00a0\u1680\u2003\u2028x\u2029\u202f\u205f\u3000\u0085\x0b\x0c"),
            "x");
}

TEST(Trimming, KeepsCharactersThatOnlyLookEmpty) {
  EXPECT_EQ(trimLeadingEndWhiteCharacters("\u200b\x1f x \u180e\ufeff"), "\u200b\x1f x \u180e\ufeff");
}

TEST(Trimming, KeepsBytesThatAreNotText) {
  EXPECT_EQ(trimLeadingEndWhiteCharacters(" \xe3\x80 \xff "), "\xe3\x80 \xff");
}

std::string trimmedByPatterns(const std::string& text) {
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString wide = icu::UnicodeString::fromUTF8(text);
  for (const char* pattern : {"^\\s*", "\\s*$"}) {
    icu::RegexMatcher matcher(icu::UnicodeString(pattern), wide, 0, status);
    wide = icu::UnicodeString(matcher.replaceFirst("", status));
  }
  std::string result;
  return U_SUCCESS(status) ? wide.toUTF8String(result) : "failed";
}

TEST(Trimming, TakesWhatTheTwoPatternsTakeWhateverTheCharacter) {
  for (UChar32 c = 1; c < 0x11000; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    std::string character;
    icu::UnicodeString(c).toUTF8String(character);
    // Nearly all characters are plain letters to the patterns; only the interesting ones get the slow test.
    if (u_charType(c) == U_UPPERCASE_LETTER || u_charType(c) == U_LOWERCASE_LETTER ||
        u_charType(c) == U_OTHER_LETTER || u_charType(c) == U_UNASSIGNED ||
        u_charType(c) == U_PRIVATE_USE_CHAR) {
      continue;
    }
    const std::string text = character + "\n" + character + "x" + character + "y\r\n" + character + "\n";
    ASSERT_EQ(trimLeadingEndWhiteCharacters(text), trimmedByPatterns(text)) << std::hex << c;
  }
}

TEST(WholeMatch, NeedsTheWholeText) {
  EXPECT_TRUE(isAcordingToRegex("abc", "[a-z]+"));
  EXPECT_FALSE(isAcordingToRegex("abc ", "[a-z]+"));
  EXPECT_FALSE(isAcordingToRegex("abc\n", "[a-z]+"));
  EXPECT_FALSE(isAcordingToRegex(" abc", "[a-z]+"));
  EXPECT_FALSE(isAcordingToRegex("", "[a-z]+"));
  EXPECT_TRUE(isAcordingToRegex("", "[a-z]*"));
}

TEST(WholeMatch, TriesEveryWayToReachTheEnd) {
  EXPECT_TRUE(isAcordingToRegex("ab", "a|ab"));
}

TEST(WholeMatch, RespectsLetterCase) {
  EXPECT_FALSE(isAcordingToRegex("Abc", "[a-z]+"));
}

TEST(WholeMatch, IsFalseForABadPattern) {
  EXPECT_FALSE(isAcordingToRegex("(", "("));
  EXPECT_FALSE(isAcordingToRegex("a", "[a-"));
}

TEST(FirstMatch, IsTheWholeMatchAndIgnoresLetterCase) {
  EXPECT_EQ(getFirstMatchRegex("Static void f", "^[a-zA-Z0-9]+"), "Static");
  EXPECT_EQ(getFirstMatchRegex("one TWO three", "t(w|h)"), "TW");
}

TEST(FirstMatch, IsEmptyWithoutAMatchAndForABadPattern) {
  EXPECT_EQ(getFirstMatchRegex("abc", "[0-9]"), "");
  EXPECT_EQ(getFirstMatchRegex("abc", "(a"), "");
  EXPECT_EQ(getFirstMatchRegex("", "a"), "");
}

TEST(AllMatches, ComeFromLeftToRightWithoutOverlap) {
  EXPECT_THAT(getAllMatchesRegex("aXbxxAx", "[ab]?x"), ElementsAre("aX", "bx", "x", "Ax"));
  EXPECT_THAT(getAllMatchesRegex("aaaa", "aa"), ElementsAre("aa", "aa"));
}

TEST(AllMatches, AreEmptyWithoutAMatchAndForABadPattern) {
  EXPECT_THAT(getAllMatchesRegex("abc", "[0-9]"), IsEmpty());
  EXPECT_THAT(getAllMatchesRegex("abc", "a{2,1}"), IsEmpty());
  EXPECT_THAT(getAllMatchesRegex("abc", "\\"), IsEmpty());
}

TEST(AllMatches, MayBeEmptyTexts) {
  EXPECT_THAT(getAllMatchesRegex("ab", "x*"), ElementsAre("", "", ""));
}

TEST(AllMatches, CutTextBetweenCharactersAndNotBetweenBytes) {
  EXPECT_THAT(getAllMatchesRegex("é😀", "."), ElementsAre("é", "😀"));
}

TEST(AllMatches, ReadEachBadByteAsAReplacementCharacter) {
  EXPECT_THAT(getAllMatchesRegex("a\xe3\x80z", "[^a-z]"), ElementsAre("\ufffd", "\ufffd"));
}

TEST(AllMatches, HoldTextBehindAZeroByte) {
  EXPECT_THAT(getAllMatchesRegex(std::string("a\0b", 3), "[a-z]"), ElementsAre("a", "b"));
}

TEST(PatternSearch, GivesUpInsteadOfTakingForEver) {
  const std::string word(60, 'a');
  EXPECT_FALSE(isAcordingToRegex(word + "!", "(a|a)*b?"));
  EXPECT_EQ(getFirstMatchRegex(word + "!", "(a+)+b"), "");
  EXPECT_THAT(getAllMatchesRegex("ab " + word, "(a+)+b"), ElementsAre("ab"));
}

TEST(PatternSearch, GivesUpInsteadOfTakingAllMemory) {
  const std::string word(8 * 1024 * 1024, 'a');
  EXPECT_FALSE(isAcordingToRegex(word, "(a|b)*"));
  EXPECT_EQ(getFirstMatchRegex(word, "(a|b)*c"), "");
}

TEST(Tracing, IsSilent) {
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  out(">--Begin ObjectiveCParser");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace quillmeter
