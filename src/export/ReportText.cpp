#include "export/ReportText.h"

#include <cmath>
#include <cstddef>

#include "export/LineBreaking.h"
#include "support/Number.h"
#include "support/Text.h"

namespace quillmeter {

void drawInRectWithContextAndAlignmentAndFontNameAndFontSizeAndLeterSpacing(
    std::string_view text, const PdfRect& rect, PdfContext& context, std::int32_t alignment,
    const std::string& fontName, double fontSize, std::int32_t leterSpacing) {
  context.selectFont(fontName, fontSize);
  const ReportFont font{&context.fontMetrics(fontName), fontSize};
  const TextSize size = getSizeWithFontWithLeterSpacingAndRect(text, font, leterSpacing, rect);
  context.showTextAtPoint(text.substr(0, utf16Length(text)), drawingPoint(alignment, rect, size));
}

TextSize getSizeWithFontWithLeterSpacingAndRect(std::string_view text, const ReportFont& font,
                                                std::int32_t leterSpacing, const PdfRect& rect) {
  const auto spacing = static_cast<std::uint64_t>(std::int64_t{leterSpacing});
  const std::uint64_t spaces = spacing * std::uint64_t{utf16Length(text)} - 1U;
  return {naturalWidth(text, font) + static_cast<double>(spaces),
          std::ceil(heightForAttributedStringForWidth({text, font}, rect.width)) - 1.0};
}

double heightForAttributedStringForWidth(const StyledText& text, double width) {
  const FontMetrics& metrics = *text.font.metrics;
  const double lineHeight = text.font.points(metrics.ascent() + metrics.descent() + FontMetrics::leading());
  return static_cast<double>(lineCount(text.text, text.font, width)) * lineHeight;
}

PdfPoint drawingPoint(std::int32_t alignment, const PdfRect& rect, const TextSize& size) {
  const double centred = rect.x + rect.width / 2 - size.width / 2;
  const double right = rect.x + rect.width - size.width;
  const double middle = rect.y + rect.height / 2 - size.height / 3;
  const double top = rect.y + rect.height - size.height;
  const auto whole = [](double x, double y) {
    return PdfPoint{static_cast<double>(clampedToInt32(x)), static_cast<double>(clampedToInt32(y))};
  };
  switch (alignment) {
    case 0:
      return whole(centred, middle);
    case 1:
      return whole(rect.x, middle);
    case 2:
      return whole(right, middle);
    case 3:
    case 10:
      return whole(centred, top);
    case 6:
      return whole(rect.x, top);
    case 7:
      return whole(rect.x, rect.y);
    case 8:
      return whole(right, top);
    case 9:
      return whole(right, rect.y);
    default:
      return {};
  }
}

}  // namespace quillmeter
