#include "export/LineBreaking.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "support/Utf8.h"

namespace quillmeter {
namespace {

bool isLineBreak(char32_t character) {
  return (character >= U'\n' && character <= U'\r') || character == U'\u0085' || character == U'\u2028' ||
         character == U'\u2029';
}

/// Fills lines one unbreakable piece after the other and counts them.
class LineFiller {
 public:
  LineFiller(const ReportFont& font, double width) : font_(font), width_(width) {}

  void add(const icu::UnicodeString& piece) {
    const double visible = widthOf(piece, lengthWithoutTrailingSpace(piece));
    if (used_ && lineWidth_ + visible > width_) endLine();
    if (visible > width_) {
      addByCharacters(piece);
    } else {
      lineWidth_ += widthOf(piece, piece.length());
    }
    used_ = true;
    if (isLineBreak(static_cast<char32_t>(piece.char32At(piece.length() - 1)))) endLine();
  }

  [[nodiscard]] std::size_t lines() const { return lines_ + (used_ ? 1 : 0); }

 private:
  void addByCharacters(const icu::UnicodeString& piece) {
    for (std::int32_t at = 0; at < piece.length(); at = piece.moveIndex32(at, 1)) {
      const double width = characterWidth(piece, at);
      if (lineWidth_ > 0.0 && lineWidth_ + width > width_ && u_isUWhiteSpace(piece.char32At(at)) == 0)
        endLine();
      lineWidth_ += width;
    }
  }

  void endLine() {
    ++lines_;
    lineWidth_ = 0.0;
    used_ = false;
  }

  [[nodiscard]] double characterWidth(const icu::UnicodeString& piece, std::int32_t at) const {
    return font_.points(font_.metrics->width(static_cast<char32_t>(piece.char32At(at))));
  }

  [[nodiscard]] double widthOf(const icu::UnicodeString& piece, std::int32_t length) const {
    double sum = 0.0;
    for (std::int32_t at = 0; at < length; at = piece.moveIndex32(at, 1))
      sum += characterWidth(piece, at);
    return sum;
  }

  [[nodiscard]] static std::int32_t lengthWithoutTrailingSpace(const icu::UnicodeString& piece) {
    std::int32_t length = piece.length();
    while (length > 0 && u_isUWhiteSpace(piece.char32At(length - 1)) != 0)
      --length;
    return length;
  }

  ReportFont font_;
  double width_;
  double lineWidth_ = 0.0;
  bool used_ = false;
  std::size_t lines_ = 0;
};

bool hasLineBreak(std::string_view text) {
  for (std::string_view rest = text; !rest.empty();) {
    const Utf8Character character = firstCharacter(rest);
    if (isLineBreak(character.codePoint)) return true;
    rest.remove_prefix(character.bytes);
  }
  return false;
}

}  // namespace

double naturalWidth(std::string_view text, const ReportFont& font) {
  double widest = 0.0;
  int line = 0;
  while (!text.empty()) {
    const Utf8Character character = firstCharacter(text);
    line = isLineBreak(character.codePoint) ? 0 : line + font.metrics->width(character.codePoint);
    widest = std::max(widest, font.points(line));
    text.remove_prefix(character.bytes);
  }
  return widest;
}

std::size_t lineCount(std::string_view text, const ReportFont& font, double width) {
  if (text.empty()) return 0;
  // Nearly every text of a report, without the price of a break iterator.
  if (naturalWidth(text, font) <= width && !hasLineBreak(text)) return 1;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> breaks(
      icu::BreakIterator::createLineInstance(icu::Locale::getRoot(), status));
  if (U_FAILURE(status)) return 1;
  const auto whole =
      icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
  breaks->setText(whole);
  LineFiller filler(font, width);
  std::int32_t start = breaks->first();
  for (std::int32_t end = breaks->next(); end != icu::BreakIterator::DONE;
       start = end, end = breaks->next()) {
    filler.add(whole.tempSubStringBetween(start, end));
  }
  return filler.lines();
}

}  // namespace quillmeter
