#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "export/FontMetrics.h"
#include "export/PdfContext.h"

/// Measuring and placing text in the report. Texts are UTF-8.
namespace quillmeter {

/// A text with the font it is set in.
struct StyledText {
  std::string_view text;
  ReportFont font;
};

struct TextSize {
  double width = 0.0;
  double height = 0.0;
};

/// Draws `text` in the context's fill colour, placed in `rect` by an alignment code: 0 centre; 1, 2 left and
/// right in the middle; 3 and 10 top centre; 6, 8 top left and right; 7, 9 bottom left and right; any other
/// code puts it at the page's origin. The text's UTF-8 bytes are shown as Mac Roman, as many as the text has
/// UTF-16 code units, so text outside ASCII is cut short. `leterSpacing` counts in measuring only.
void drawInRectWithContextAndAlignmentAndFontNameAndFontSizeAndLeterSpacing(
    std::string_view text, const PdfRect& rect, PdfContext& context, std::int32_t alignment,
    const std::string& fontName, double fontSize, std::int32_t leterSpacing);

/// The size that placing goes by: the natural width plus `leterSpacing` times the length in UTF-16 code units
/// minus one, which wraps around as an unsigned 64-bit number and so is enormous for an empty text; the
/// height of the text broken into lines of the rectangle's width, rounded up, minus one.
[[nodiscard]] TextSize getSizeWithFontWithLeterSpacingAndRect(std::string_view text, const ReportFont& font,
                                                              std::int32_t leterSpacing, const PdfRect& rect);

/// The height of all lines of a text that is broken into lines of at most `width` points: at words' ends, and
/// inside a word that is too long by itself. 0 for an empty text.
[[nodiscard]] double heightForAttributedStringForWidth(const StyledText& text, double width);

/// Where a text of `size` begins in `rect`; whole points, cut toward zero and kept in the 32-bit range.
[[nodiscard]] PdfPoint drawingPoint(std::int32_t alignment, const PdfRect& rect, const TextSize& size);

/// Texts of the report keep their font: this does nothing.
inline void adjustFontWithInitialSizeToFitRect(std::string_view /*text*/, const ReportFont& /*font*/,
                                               double /*initialSize*/, const PdfRect& /*rect*/) {}

}  // namespace quillmeter
