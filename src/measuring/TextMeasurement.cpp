#include "measuring/TextMeasurement.h"

#include <simdjson.h>

#include <algorithm>
#include <string_view>

namespace quillmeter {
namespace {

/// Small enough that reading the next piece from memory overlaps with measuring this one from the cache.
constexpr std::size_t kPiece = std::size_t{1} << 12;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// How many bytes a character takes that begins with `first`; 1 where none does.
std::size_t characterSize(char first) {
  const auto byte = static_cast<unsigned char>(first);
  if (byte < 0xC0 || byte >= 0xF8) return 1;
  return byte < 0xE0 ? 2 : (byte < 0xF0 ? 3 : 4);
}

bool isContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// How many bytes at the end of `text` begin a character without ending it: 0 to 3.
std::size_t unfinishedBytes(std::span<const char> text) {
  const std::size_t most = std::min<std::size_t>(3, text.size());
  for (std::size_t bytes = 1; bytes <= most; ++bytes) {
    const char byte = text[text.size() - bytes];
    if (!isContinuation(byte)) return characterSize(byte) > bytes ? bytes : 0;
  }
  return 0;
}

}  // namespace

TextMeasurement::TextMeasurement(const TextScanTarget& target) : scanOn_(target.scan) {}

void TextMeasurement::add(std::span<const char> block) {
  if (heldSize_ > 0) block = completeHeld(block);
  while (valid_ && !block.empty()) {
    const std::span<const char> piece = block.first(std::min(block.size(), kPiece));
    const std::size_t unfinished = unfinishedBytes(piece);
    addWholeCharacters(piece.first(piece.size() - unfinished));
    block = block.subspan(piece.size() - unfinished);
    if (block.size() == unfinished) {
      std::copy(block.begin(), block.end(), held_.begin());
      heldSize_ = unfinished;
      return;
    }
  }
}

/// Measures the character held back once `block` brings its end. Returns the rest of the block.
std::span<const char> TextMeasurement::completeHeld(std::span<const char> block) {
  const std::size_t size = characterSize(held_.front());
  const std::size_t taken = std::min(size - heldSize_, block.size());
  std::copy_n(block.begin(), taken, held_.begin() + static_cast<std::ptrdiff_t>(heldSize_));
  heldSize_ += taken;
  if (heldSize_ == size) {
    heldSize_ = 0;
    addWholeCharacters(std::span(held_).first(size));
  }
  return block.subspan(taken);
}

void TextMeasurement::addWholeCharacters(std::span<const char> text) {
  if (text.empty()) return;
  valid_ = valid_ && simdjson::validate_utf8(text.data(), text.size());
  if (!valid_) return;
  if (atStart_ && std::string_view(text.data(), text.size()).starts_with(kByteOrderMark))
    text = text.subspan(kByteOrderMark.size());
  atStart_ = false;
  scanOn_(scan_, text.data(), text.size());
}

std::optional<TextCounts> TextMeasurement::finish() {
  if (!valid_ || heldSize_ > 0) return std::nullopt;
  const std::uint64_t innerSpaces = scan_.innerSpaces - scan_.openSpaces;
  const std::uint64_t openComment = scan_.insideComment != 0 ? scan_.visibleLines : 0;
  return TextCounts{.noLinesTotal = scan_.lineBreaks + 1,
                    .noLinesWithoutSpaces = scan_.visibleLines,
                    .noLinesComments = scan_.commentLines + openComment,
                    .noWords = scan_.visibleLines + innerSpaces,
                    .noCharactersWithoutSpaces = scan_.visibleLength,
                    .noCharactersTotal = scan_.visibleLength + innerSpaces};
}

std::optional<TextCounts> measuredText(std::span<const char> text) {
  TextMeasurement measurement;
  measurement.add(text);
  return measurement.finish();
}

}  // namespace quillmeter
