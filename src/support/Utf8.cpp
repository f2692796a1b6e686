#include "support/Utf8.h"

#include <algorithm>

namespace quillmeter {
namespace {

constexpr Utf8Character kBadByte{0xFFFD, 1, false};

struct Lead {
  std::size_t bytes;
  char32_t bits;
  char32_t smallest;  ///< code points below this are overlong in this form
};

Lead leadOf(unsigned char byte) {
  if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
  if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
  if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U, 0x10000};
  return {0, 0, 0};
}

}  // namespace

Utf8Character firstCharacter(std::string_view text) {
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte < 0x80) return {byte, 1, true};
  const Lead lead = leadOf(byte);
  if (lead.bytes == 0 || lead.bytes > text.size()) return kBadByte;
  char32_t codePoint = lead.bits;
  for (const char next : text.substr(1, lead.bytes - 1)) {
    const auto continuation = static_cast<unsigned char>(next);
    if ((continuation & 0xC0U) != 0x80U) return kBadByte;
    codePoint = (codePoint << 6U) | (continuation & 0x3FU);
  }
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (codePoint < lead.smallest || codePoint > 0x10FFFF || surrogate) return kBadByte;
  return {codePoint, lead.bytes, true};
}

Utf8Character lastCharacter(std::string_view text) {
  for (std::size_t bytes = std::min<std::size_t>(4, text.size()); bytes > 0; --bytes) {
    const Utf8Character character = firstCharacter(text.substr(text.size() - bytes));
    if (character.valid && character.bytes == bytes) return character;
  }
  return kBadByte;
}

}  // namespace quillmeter
