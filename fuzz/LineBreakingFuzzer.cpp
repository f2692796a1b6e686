#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Require.h"
#include "export/FontMetrics.h"
#include "export/LineBreaking.h"
#include "support/Text.h"

/// The lines that a text takes against a plain count, character by character. The first byte of the input is
/// the column's width, the others are the text.

namespace {

using namespace quillmeter;

struct Character {
  char32_t code;
  double width;
  bool isSpace;
  bool isBreak;
  bool mayEndLine;  ///< whether a line may end behind it
};

std::vector<Character> charactersOf(const std::string& text, const ReportFont& font) {
  const auto whole = icu::UnicodeString::fromUTF8(text);
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> breaks(
      icu::BreakIterator::createLineInstance(icu::Locale::getRoot(), status));
  require(U_SUCCESS(status) != 0);
  breaks->setText(whole);
  std::vector<Character> characters;
  for (std::int32_t at = 0; at < whole.length(); at = whole.moveIndex32(at, 1)) {
    const auto code = static_cast<char32_t>(whole.char32At(at));
    const bool isBreak = (code >= 0x0A && code <= 0x0D) || code == 0x85 || code == 0x2028 || code == 0x2029;
    const bool mayEnd = breaks->isBoundary(whole.moveIndex32(at, 1)) != 0;
    characters.push_back({code, font.points(font.metrics->width(code)),
                          u_isUWhiteSpace(static_cast<UChar32>(code)) != 0, isBreak, mayEnd});
  }
  return characters;
}

/// Lines, one piece between two possible ends after the other.
std::size_t plainLines(const std::vector<Character>& characters, double width) {
  std::size_t lines = 0;
  bool isStarted = false;
  double used = 0;
  for (std::size_t begin = 0; begin < characters.size();) {
    std::size_t end = begin;
    while (!characters[end].mayEndLine)
      ++end;
    ++end;
    std::size_t visibleEnd = end;
    while (visibleEnd > begin && characters[visibleEnd - 1].isSpace)
      --visibleEnd;
    double visible = 0;
    for (std::size_t i = begin; i < visibleEnd; ++i)
      visible += characters[i].width;
    if (!isStarted || used + visible > width) {
      ++lines;
      used = 0;
      isStarted = true;
    }
    for (std::size_t i = begin; i < end; ++i) {
      const bool isTooWide = visible > width && !characters[i].isSpace;
      if (isTooWide && used > 0 && used + characters[i].width > width) {
        ++lines;
        used = 0;
      }
      used += characters[i].width;
    }
    if (characters[end - 1].isBreak) isStarted = false;
    begin = end;
  }
  return lines;
}

double plainNaturalWidth(const std::vector<Character>& characters) {
  double widest = 0;
  double line = 0;
  for (const Character& character : characters) {
    line = character.isBreak ? 0 : line + character.width;
    widest = std::max(widest, line);
  }
  return widest;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const FontMetrics helvetica("Helvetica");
  static const FontMetrics bold("Helvetica-Bold");
  const ReportFont font{*data % 2 == 0 ? &helvetica : &bold, 18};
  // Between points, so that adding in another order cannot decide what fits.
  const double width = *data * 3 + 0.37;
  const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
  const std::size_t lines = lineCount(text, font, width);
  require((lines == 0) == text.empty() && lines <= text.size());
  const double natural = naturalWidth(text, font);
  require(natural >= 0 && natural < 40.0 * static_cast<double>(size));
  // Bytes that are no text are replaced in more than one way.
  if (!isValidUtf8(text) || size > 4000) return 0;
  const auto characters = charactersOf(text, font);
  const double plain = plainNaturalWidth(characters);
  require(natural > plain - 0.01 && natural < plain + 0.01);
  require(lines == plainLines(characters, width));
  return 0;
}
