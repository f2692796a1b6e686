#include "measuring/TextMeasurement.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "measuring/ReferenceMeasurement.h"

namespace quillmeter {
namespace {

TextCounts counts(std::string_view text) {
  const std::optional<TextCounts> result = measuredText(text);
  EXPECT_TRUE(result.has_value()) << "refused: " << text;
  return result.value_or(TextCounts{});
}

/// The counts of a text of one line that is no comment.
TextCounts oneLine(std::uint64_t words, std::uint64_t withoutSpaces, std::uint64_t total) {
  return {.noLinesTotal = 1,
          .noLinesWithoutSpaces = 1,
          .noLinesComments = 0,
          .noWords = words,
          .noCharactersWithoutSpaces = withoutSpaces,
          .noCharactersTotal = total};
}

TextCounts blank(std::uint64_t lines) {
  return {.noLinesTotal = lines};
}

TEST(TextMeasurement, EmptyTextIsOneLineOfNothing) {
  EXPECT_EQ(counts(""), blank(1));
  EXPECT_EQ(TextMeasurement().finish(), blank(1));
}

TEST(TextMeasurement, FinalLineBreakBeginsAnotherLine) {
  EXPECT_EQ(counts("a\nb").noLinesTotal, 2U);
  EXPECT_EQ(counts("a\nb\n").noLinesTotal, 3U);
  EXPECT_EQ(counts("a\nb\n").noLinesWithoutSpaces, 2U);
}

TEST(TextMeasurement, CarriageReturnAndLineFeedAreTwoLineBreaks) {
  EXPECT_EQ(counts("a\r\nb\r\n").noLinesTotal, 5U);
  EXPECT_EQ(counts("a\r\nb\r\n").noLinesWithoutSpaces, 2U);
}

TEST(TextMeasurement, EveryLineBreakCharacterEndsALine) {
  for (const std::string_view lineBreak : {"\n", "\v", "\f", "\r", "\u0085", "\u2028", "\u2029"}) {
    const std::string text = "ab" + std::string(lineBreak) + "c";
    EXPECT_EQ(counts(text), (TextCounts{.noLinesTotal = 2,
                                        .noLinesWithoutSpaces = 2,
                                        .noLinesComments = 0,
                                        .noWords = 2,
                                        .noCharactersWithoutSpaces = 3,
                                        .noCharactersTotal = 3}))
        << testing::PrintToString(text);
  }
}

TEST(TextMeasurement, BlankLinesCountOnlyInTheTotal) {
  EXPECT_EQ(counts("\n \n\t\t\n\u3000 \u00A0\n"), blank(5));
  EXPECT_EQ(counts("   "), blank(1));
}

TEST(TextMeasurement, BlankLinesInsideABlockCommentAreNoCommentLines) {
  EXPECT_EQ(counts("/*\n\n  \ntext\n*/\n").noLinesComments, 3U);
}

TEST(TextMeasurement, OneLineBlockCommentStaysOpen) {
  EXPECT_EQ(counts("/* one line */\nint a;\n */").noLinesComments, 3U);
}

TEST(TextMeasurement, BlockCommentThatEndsBehindTextNeverCloses) {
  EXPECT_EQ(counts("/*\ntext\nend */\nint a;").noLinesComments, 4U);
}

TEST(TextMeasurement, ClosingLineOfABlockStillCountsAsComment) {
  EXPECT_EQ(counts("/*\n*/\nint a;").noLinesComments, 2U);
  EXPECT_EQ(counts("/*\n*/ int a;\nint b;").noLinesComments, 2U);
}

TEST(TextMeasurement, ClosingLineOutsideABlockIsNoComment) {
  EXPECT_EQ(counts("*/\nint a;").noLinesComments, 0U);
}

TEST(TextMeasurement, OpeningLineWithinABlockChangesNothing) {
  EXPECT_EQ(counts("/*\n/*\n*/\nint a;").noLinesComments, 3U);
}

TEST(TextMeasurement, SlashStarSlashOpensABlockAndDoesNotCloseIt) {
  EXPECT_EQ(counts("/*/\nint a;").noLinesComments, 2U);
}

TEST(TextMeasurement, DoubleSlashCountsOnceInsideABlock) {
  EXPECT_EQ(counts("// a\n/*\n// b\n*/\n// c\n").noLinesComments, 5U);
}

TEST(TextMeasurement, SingleSlashOrStarBeginsNoComment) {
  EXPECT_EQ(counts("/ /\n* /\n/\n*\n/").noLinesComments, 0U);
  EXPECT_EQ(counts("/\n/ a\n*\n/").noLinesComments, 0U);
}

TEST(TextMeasurement, CommentBehindCodeIsNoCommentLine) {
  EXPECT_EQ(counts("int a; // a").noLinesComments, 0U);
  EXPECT_EQ(counts("int a; /* a\nint b;").noLinesComments, 0U);
}

TEST(TextMeasurement, CommentIsKnownBehindAnyIndentation) {
  EXPECT_EQ(counts(" \t// a\n\u3000\u2003/*\n\u00A0*/\nint a;").noLinesComments, 3U);
}

TEST(TextMeasurement, CommentInsideAStringLiteralCounts) {
  EXPECT_EQ(counts("char *s = \"\\\n// no comment\\\n\";").noLinesComments, 1U);
}

TEST(TextMeasurement, MarkupCommentIsNoComment) {
  EXPECT_EQ(counts("<!-- a -->\n<a/>").noLinesComments, 0U);
}

TEST(TextMeasurement, TwoBlanksInARowMakeAnEmptyWord) {
  EXPECT_EQ(counts("int  a;"), oneLine(3, 5, 7));
}

TEST(TextMeasurement, LoneBraceIsAWord) {
  EXPECT_EQ(counts("  {  "), oneLine(1, 1, 1));
}

TEST(TextMeasurement, IndentationAndTrailingBlanksAreNotCounted) {
  EXPECT_EQ(counts("\t  a\tb \u2003\t"), oneLine(2, 2, 3));
  EXPECT_EQ(counts("a b  \n c  \n"), (TextCounts{.noLinesTotal = 3,
                                                 .noLinesWithoutSpaces = 2,
                                                 .noLinesComments = 0,
                                                 .noWords = 3,
                                                 .noCharactersWithoutSpaces = 3,
                                                 .noCharactersTotal = 4}));
}

TEST(TextMeasurement, EverySpaceCharacterSeparatesWordsAndIsTrimmed) {
  for (const std::string_view space :
       {" ", "\t", "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006",
        "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000"}) {
    const std::string one(space);
    EXPECT_EQ(counts(one + "ab" + one + "c" + one), oneLine(2, 3, 4)) << testing::PrintToString(one);
  }
}

TEST(TextMeasurement, LookalikesOfWhiteSpaceAreText) {
  for (const std::string_view character :
       {"\u200B", "\u180E", "\u2060", "\u2027", "\u202A", "\u00A1", "\u0084", "\u0086", "\u3001"}) {
    EXPECT_EQ(counts(character), oneLine(1, 1, 1)) << testing::PrintToString(character);
  }
  EXPECT_EQ(counts("\x1C\x1F\x7F\b"), oneLine(1, 4, 4));
}

TEST(TextMeasurement, LengthsAreInUtf16CodeUnits) {
  EXPECT_EQ(counts("e\u0301 \u00E9"), oneLine(2, 3, 4));
  EXPECT_EQ(counts("\u4E2D\u6587"), oneLine(1, 2, 2));
  EXPECT_EQ(counts("\U0001F600 \U0010FFFF"), oneLine(2, 4, 5));
}

TEST(TextMeasurement, NulIsText) {
  EXPECT_EQ(counts(std::string_view("a\0b\0", 4)), oneLine(1, 4, 4));
}

TEST(TextMeasurement, ByteOrderMarkAtTheStartIsNotText) {
  EXPECT_EQ(counts("\uFEFFab"), oneLine(1, 2, 2));
  EXPECT_EQ(counts("\uFEFF"), blank(1));
  EXPECT_EQ(counts("\uFEFF// a").noLinesComments, 1U);
}

TEST(TextMeasurement, ByteOrderMarkElsewhereIsText) {
  EXPECT_EQ(counts("\uFEFF\uFEFF"), oneLine(1, 1, 1));
  EXPECT_EQ(counts("a\uFEFF"), oneLine(1, 2, 2));
}

TEST(TextMeasurement, OtherEncodingsAreRefused) {
  EXPECT_EQ(measuredText(std::string_view("\xFF\xFE"
                                          "a\0",
                                          4)),
            std::nullopt);
  EXPECT_EQ(measuredText(std::string_view("Stra\xDF"
                                          "e")),
            std::nullopt);
}

TEST(TextMeasurement, NothingMendsATextThatWasRefusedOnce) {
  TextMeasurement measurement;
  measurement.add(std::string_view("a\xFF"));
  measurement.add(std::string_view("good text"));
  EXPECT_EQ(measurement.finish(), std::nullopt);
}

TEST(TextMeasurement, EmptyBlocksChangeNothing) {
  TextMeasurement measurement;
  for (const std::string_view block : {"", "\xE2", "", "\x80", "", "\xA8", "", "ab", ""})
    measurement.add(block);
  EXPECT_EQ(measurement.finish(), counts("\u2028ab"));
}

TEST(TextMeasurement, CopyGoesOnByItself) {
  TextMeasurement measurement;
  measurement.add(std::string_view("/* a\xC3"));
  TextMeasurement copy = measurement;
  measurement.add(std::string_view("\xA9"));
  EXPECT_EQ(measurement.finish(), counts("/* a\u00E9"));
  copy.add(std::string_view("\xA8\n*/"));
  EXPECT_EQ(copy.finish(), counts("/* a\u00E8\n*/"));
}

}  // namespace
}  // namespace quillmeter
