#include <algorithm>
#include <cstdint>

#include "compare/SnapshotReader.h"

namespace quillmeter {
namespace {

constexpr char32_t kFirstByteSurrogate = 0xDC80;
constexpr char32_t kLastByteSurrogate = 0xDCFF;

bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Takes four hexadecimal digits away from the beginning of `raw`.
std::optional<char32_t> takeUnit(std::string_view& raw) {
  constexpr std::size_t digits = 4;
  if (raw.size() < digits) return std::nullopt;
  char32_t unit = 0;
  for (const char digit : raw.substr(0, digits)) {
    const bool isDecimal = digit >= '0' && digit <= '9';
    const char lowered = static_cast<char>(digit | 0x20);
    if (!isDecimal && (lowered < 'a' || lowered > 'f')) return std::nullopt;
    unit = unit * 16 + static_cast<char32_t>(isDecimal ? digit - '0' : lowered - 'a' + 10);
  }
  raw.remove_prefix(digits);
  return unit;
}

void appendUtf8(char32_t point, std::string& text) {
  const auto byte = [&text](char32_t value) { text += static_cast<char>(static_cast<std::uint8_t>(value)); };
  const auto trail = [](char32_t value) { return 0x80U | (value & 0x3FU); };
  if (point < 0x80) return byte(point);
  if (point < 0x800) {
    byte(0xC0U | point >> 6U);
  } else if (point < 0x10000) {
    byte(0xE0U | point >> 12U);
    byte(trail(point >> 6U));
  } else {
    byte(0xF0U | point >> 18U);
    byte(trail(point >> 12U));
    byte(trail(point >> 6U));
  }
  byte(trail(point));
}

/// What follows "\u": one unit, or two that are one character.
bool appendEscapedUnits(std::string_view& raw, std::string& text) {
  const auto unit = takeUnit(raw);
  if (!unit) return false;
  if (*unit >= kFirstByteSurrogate && *unit <= kLastByteSurrogate) {
    text += static_cast<char>(static_cast<std::uint8_t>(*unit & 0xFFU));
    return true;
  }
  if (isLowSurrogate(*unit)) return false;
  if (!isHighSurrogate(*unit)) {
    appendUtf8(*unit, text);
    return true;
  }
  if (!raw.starts_with("\\u")) return false;
  raw.remove_prefix(2);
  const auto second = takeUnit(raw);
  if (!second || !isLowSurrogate(*second)) return false;
  appendUtf8(0x10000 + ((*unit - 0xD800) << 10U) + (*second - 0xDC00), text);
  return true;
}

bool appendEscape(std::string_view& raw, std::string& text) {
  if (raw.empty()) return false;
  constexpr std::string_view letters = "\"\\/bfnrt";
  constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
  const char letter = raw.front();
  raw.remove_prefix(1);
  if (letter == 'u') return appendEscapedUnits(raw, text);
  const std::size_t place = letters.find(letter);
  if (place == std::string_view::npos) return false;
  text += meanings[place];
  return true;
}

}  // namespace

std::optional<std::string> unescapedJson(std::string_view raw) {
  std::string text;
  text.reserve(raw.size());
  while (!raw.empty()) {
    const std::size_t plain = std::min(raw.find('\\'), raw.size());
    text += raw.substr(0, plain);
    raw.remove_prefix(plain);
    if (raw.empty()) break;
    raw.remove_prefix(1);
    if (!appendEscape(raw, text)) return std::nullopt;
  }
  return text;
}

}  // namespace quillmeter
