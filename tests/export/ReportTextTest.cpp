#include "export/ReportText.h"

#include <gtest/gtest.h>

#include <limits>

#include "export/LineBreaking.h"

namespace quillmeter {
namespace {

constexpr double kEnormous = 18446744073709551615.0;
const PdfRect kRect{100, 200, 400, 60};
const TextSize kSize{50.5, 16};

class ReportText : public ::testing::Test {
 protected:
  const FontMetrics helvetica{"Helvetica"};
  const FontMetrics bold{"Helvetica-Bold"};
  const ReportFont font18{&helvetica, 18};
};

void expectPoint(std::int32_t alignment, double x, double y) {
  const PdfPoint point = drawingPoint(alignment, kRect, kSize);
  EXPECT_EQ(point.x, x) << alignment;
  EXPECT_EQ(point.y, y) << alignment;
}

TEST_F(ReportText, EachAlignmentCodeHasItsPlace) {
  expectPoint(0, 274, 224);  // 100 + 200 - 25.25, 200 + 30 - 5.33, cut to whole points
  expectPoint(1, 100, 224);
  expectPoint(2, 449, 224);
  expectPoint(3, 274, 244);
  expectPoint(6, 100, 244);
  expectPoint(7, 100, 200);
  expectPoint(8, 449, 244);
  expectPoint(9, 449, 200);
  expectPoint(10, 274, 244);
}

TEST_F(ReportText, OtherAlignmentCodesMeanThePagesOrigin) {
  for (const std::int32_t code : {4, 5, 11, -1, std::numeric_limits<std::int32_t>::max()})
    expectPoint(code, 0, 0);
}

TEST_F(ReportText, PositionsAreCutTowardZero) {
  const PdfPoint point = drawingPoint(3, {-10.5, -20.25, 0, 0}, {0.2, 0.5});
  EXPECT_EQ(point.x, -10);
  EXPECT_EQ(point.y, -20);
}

TEST_F(ReportText, PositionsStayInThe32BitRange) {
  const PdfPoint point = drawingPoint(8, {0, 0, 0, 0}, {kEnormous, -kEnormous});
  EXPECT_EQ(point.x, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(point.y, std::numeric_limits<std::int32_t>::max());
}

TEST_F(ReportText, ALineMayBeExactlyAsWideAsItsRoom) {
  const double word = naturalWidth("exactly", font18);
  EXPECT_EQ(lineCount("exactly", font18, word), 1U);
  const double two = naturalWidth("this fits", font18);
  EXPECT_EQ(lineCount("this fits now", font18, two), 2U);
  EXPECT_EQ(lineCount("this fits now", font18, two - 0.01), 3U);
  EXPECT_EQ(lineCount("aaaa", font18, naturalWidth("aa", font18)), 2U) << "inside a word as well";
}

TEST_F(ReportText, EmptyTextMeasuresEnormouslyWide) {
  const TextSize size = getSizeWithFontWithLeterSpacingAndRect("", font18, 1, kRect);
  EXPECT_EQ(size.width, kEnormous);
  EXPECT_EQ(size.height, -1);
}

TEST_F(ReportText, LetterSpacingCountsOncePerCodeUnitLessOnePoint) {
  const double natural = naturalWidth("abc", font18);
  EXPECT_DOUBLE_EQ(getSizeWithFontWithLeterSpacingAndRect("abc", font18, 1, kRect).width, natural + 2);
  EXPECT_DOUBLE_EQ(getSizeWithFontWithLeterSpacingAndRect("abc", font18, 4, kRect).width, natural + 11);
  EXPECT_DOUBLE_EQ(getSizeWithFontWithLeterSpacingAndRect("abc", font18, 0, kRect).width, kEnormous);
  EXPECT_NEAR(getSizeWithFontWithLeterSpacingAndRect("abc", font18, -1, kRect).width, kEnormous, 1e5);
  // An emoji is two code units.
  EXPECT_DOUBLE_EQ(getSizeWithFontWithLeterSpacingAndRect("😀", font18, 1, kRect).width,
                   naturalWidth("😀", font18) + 1);
}

TEST_F(ReportText, HeightIsRoundedUpLessOne) {
  // 0.718 + 0.207 of 18 points are 16.65.
  EXPECT_EQ(getSizeWithFontWithLeterSpacingAndRect("abc", font18, 1, kRect).height, 16);
  EXPECT_EQ(getSizeWithFontWithLeterSpacingAndRect("abc", {&bold, 36}, 1, kRect).height, 33);
}

TEST_F(ReportText, WidthsAreThoseOfTheFont) {
  EXPECT_DOUBLE_EQ(naturalWidth("A", {&helvetica, 1000}), 667);
  EXPECT_DOUBLE_EQ(naturalWidth("A", {&bold, 1000}), 722);
  EXPECT_DOUBLE_EQ(naturalWidth("i ", {&helvetica, 1000}), 222 + 278);
  EXPECT_DOUBLE_EQ(naturalWidth("ä", {&helvetica, 1000}), 556);
  EXPECT_DOUBLE_EQ(naturalWidth("", {&helvetica, 1000}), 0);
}

TEST_F(ReportText, CharactersThatTheFontLacksAreAsWideAsASpace) {
  for (const char* text : {"東", "😀", "\u0301", "\x01", "\xFF"})
    EXPECT_DOUBLE_EQ(naturalWidth(text, {&helvetica, 1000}), 278) << text;
}

TEST_F(ReportText, LinesAreBrokenAtTheEndOfWords) {
  const double width = naturalWidth("hello world", font18);
  EXPECT_EQ(lineCount("hello world", font18, width + 0.1), 1U);
  EXPECT_EQ(lineCount("hello world", font18, width - 0.1), 2U);
  EXPECT_EQ(lineCount("hello world   ", font18, width + 0.1), 1U);  // spaces at a line's end take no room
  EXPECT_EQ(lineCount("hello world hello world", font18, width + 0.1), 2U);
}

TEST_F(ReportText, WordThatIsTooLongIsBrokenInside) {
  const double ten = naturalWidth("aaaaaaaaaa", font18);
  EXPECT_EQ(lineCount(std::string(10, 'a'), font18, ten + 0.1), 1U);
  EXPECT_EQ(lineCount(std::string(11, 'a'), font18, ten + 0.1), 2U);
  EXPECT_EQ(lineCount(std::string(100, 'a'), font18, ten + 0.1), 10U);
  EXPECT_EQ(lineCount("b " + std::string(20, 'a'), font18, ten + 0.1), 3U);
  EXPECT_EQ(lineCount(std::string(20, 'a') + " b", font18, ten + 0.1), 3U);
  EXPECT_EQ(lineCount("aaa", font18, 0.0), 3U);  // a line takes at least one character
}

TEST_F(ReportText, LineBreaksBeginLines) {
  EXPECT_EQ(lineCount("", font18, 100), 0U);
  EXPECT_EQ(lineCount("a\nb", font18, 100), 2U);
  EXPECT_EQ(lineCount("a\r\nb", font18, 100), 2U);
  EXPECT_EQ(lineCount("a\n\nb\n", font18, 100), 3U);
  EXPECT_EQ(lineCount("a\u2028b", font18, 100), 2U);
}

TEST_F(ReportText, HeightIsThatOfAllLines) {
  EXPECT_DOUBLE_EQ(heightForAttributedStringForWidth({"a\nb\nc", font18}, 100), 3 * 16.65);
  EXPECT_EQ(heightForAttributedStringForWidth({"", font18}, 100), 0);
}

TEST_F(ReportText, UnknownFontIsAsWideAsNothing) {
  const FontMetrics unknown("No Such Font");
  EXPECT_EQ(unknown.width('a'), 0);
  EXPECT_EQ(unknown.ascent(), 0);
}

}  // namespace
}  // namespace quillmeter
