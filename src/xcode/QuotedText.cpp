#include "xcode/QuotedText.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace quillmeter {
namespace {

void appendCharacter(std::string& result, std::uint32_t codePoint) {
  const auto append = [&](std::uint32_t byte) { result += static_cast<char>(byte); };
  if (codePoint < 0x80) return append(codePoint);
  if (codePoint < 0x800) {
    append(0xC0U | codePoint >> 6U);
  } else if (codePoint < 0x10000) {
    append(0xE0U | codePoint >> 12U);
    append(0x80U | (codePoint >> 6U & 0x3FU));
  } else {
    append(0xF0U | codePoint >> 18U);
    append(0x80U | (codePoint >> 12U & 0x3FU));
    append(0x80U | (codePoint >> 6U & 0x3FU));
  }
  append(0x80U | (codePoint & 0x3FU));
}

std::optional<std::uint32_t> digitValue(char digit, std::uint32_t base) {
  std::uint32_t value = 36;
  if (digit >= '0' && digit <= '9') value = static_cast<std::uint32_t>(digit - '0');
  if (digit >= 'a' && digit <= 'f') value = static_cast<std::uint32_t>(digit - 'a') + 10;
  if (digit >= 'A' && digit <= 'F') value = static_cast<std::uint32_t>(digit - 'A') + 10;
  if (value >= base) return std::nullopt;
  return value;
}

bool isHighSurrogate(std::uint32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(std::uint32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

/// The UTF-16 unit of a "\U" with four digits at the start of `text`; absent when there is none.
std::optional<std::uint32_t> unitAt(std::string_view text) {
  constexpr std::size_t length = 6;
  if (text.size() < length || !text.starts_with("\\U")) return std::nullopt;
  std::uint32_t unit = 0;
  for (const char c : text.substr(2, 4)) {
    const auto digit = digitValue(c, 16);
    if (!digit) return std::nullopt;
    unit = 16 * unit + *digit;
  }
  return unit;
}

/// Appends what the "\U" escapes at the start of `text` stand for, a pair of them if they are one, and gives
/// their length; 0 when there is none.
std::size_t appendUnits(std::string& result, std::string_view text) {
  constexpr std::size_t length = 6;
  const auto unit = unitAt(text);
  if (!unit) return 0;
  const auto second = isHighSurrogate(*unit) ? unitAt(text.substr(length)) : std::nullopt;
  if (second && isLowSurrogate(*second)) {
    appendCharacter(result, 0x10000 + ((*unit - 0xD800) << 10U) + (*second - 0xDC00));
    return 2 * length;
  }
  const bool half = isHighSurrogate(*unit) || isLowSurrogate(*unit);
  appendCharacter(result, half ? 0xFFFD : *unit);
  return length;
}

/// The same for up to three octal digits behind a backslash.
std::size_t appendOctal(std::string& result, std::string_view text) {
  std::uint32_t codePoint = 0;
  std::size_t length = 1;
  for (; length < std::min<std::size_t>(4, text.size()); ++length) {
    const auto digit = digitValue(text[length], 8);
    if (!digit) break;
    codePoint = 8 * codePoint + *digit;
  }
  if (length == 1) return 0;
  appendCharacter(result, codePoint % 256);
  return length;
}

/// The character that a letter behind a backslash stands for.
char control(char letter) {
  constexpr std::string_view letters = "abfnrtv";
  constexpr std::string_view meanings = "\a\b\f\n\r\t\v";
  const std::size_t index = letters.find(letter);
  return index == std::string_view::npos ? letter : meanings[index];
}

/// Appends what the escape at the start of `text` stands for and gives its length.
std::size_t appendEscape(std::string& result, std::string_view text) {
  if (const std::size_t length = appendUnits(result, text)) return length;
  if (const std::size_t length = appendOctal(result, text)) return length;
  if (text.substr(1, 1) == "\r") {
    result += '\n';
    return text.substr(1, 2) == "\r\n" ? 3 : 2;
  }
  result += control(text[1]);
  return 2;
}

}  // namespace

std::size_t endOfQuoted(std::string_view text, std::size_t start) {
  const char quote = text[start];
  for (std::size_t i = start + 1; i < text.size(); ++i) {
    if (text[i] == quote) return i;
    if (text[i] == '\\') ++i;
  }
  return std::string_view::npos;
}

void appendUnescaped(std::string& result, std::string_view content) {
  while (!content.empty()) {
    const std::size_t plain = std::min(content.find('\\'), content.size());
    result += content.substr(0, plain);
    content.remove_prefix(plain);
    if (!content.empty()) content.remove_prefix(appendEscape(result, content));
  }
}

}  // namespace quillmeter
