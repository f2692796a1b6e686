#include "support/Text.h"

#include <simdjson.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "support/Utf8.h"

namespace quillmeter {
namespace {

bool isWhiteSpaceOrLineBreak(Utf8Character character) {
  const char32_t c = character.codePoint;
  if (c < 0x80) return c == 0x20 || (c >= 0x09 && c <= 0x0D);
  return c == 0x85 || (U_GET_GC_MASK(static_cast<UChar32>(c)) & U_GC_Z_MASK) != 0;
}

/// Unicode's line and paragraph separators, and all control characters.
bool breaksLine(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
}

// Written without branches, so that the compiler makes vector code of both: names are lower-cased by the
// million.
bool isAscii(std::string_view text) {
  unsigned char bits = 0;
  for (const char c : text)
    bits |= static_cast<unsigned char>(c);
  return bits < 0x80;
}

std::string asciiLowerCased(std::string_view text) {
  std::string result(text);
  for (char& c : result)
    c = static_cast<char>(c + (c >= 'A' && c <= 'Z' ? 'a' - 'A' : 0));
  return result;
}

/// The length of the valid UTF-8 prefix of `text`.
std::size_t validPrefix(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size()) {
    const Utf8Character character = firstCharacter(text.substr(length));
    if (!character.valid) break;
    length += character.bytes;
  }
  return length;
}

template <class Operation>
std::string caseMapped(std::string_view text, Operation operation) {
  std::string result;
  icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(text.size()));
  UErrorCode status = U_ZERO_ERROR;
  operation(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink, status);
  return U_SUCCESS(status) ? result : std::string(text);
}

/// Orders UTF-8 bytes as UTF-16 code units: code points above U+FFFF (lead bytes F0 to F4) are surrogates
/// there and come before U+E000 to U+FFFF (lead bytes EE and EF).
unsigned codeUnitRank(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  if (value == 0xEE || value == 0xEF) return value + 0x10U;
  return value;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  while (!text.empty()) {
    const Utf8Character character = firstCharacter(text);
    if (!isWhiteSpaceOrLineBreak(character)) break;
    text.remove_prefix(character.bytes);
  }
  while (!text.empty()) {
    const Utf8Character character = lastCharacter(text);
    if (!isWhiteSpaceOrLineBreak(character)) break;
    text.remove_suffix(character.bytes);
  }
  return text;
}

std::size_t utf16Length(std::string_view text) {
  std::size_t units = 0;
  while (!text.empty()) {
    const Utf8Character character = firstCharacter(text);
    units += character.codePoint > 0xFFFF ? 2 : 1;
    text.remove_prefix(character.bytes);
  }
  return units;
}

std::string lowerCased(std::string_view text) {
  if (isAscii(text)) return asciiLowerCased(text);
  std::string result;
  while (!text.empty()) {
    const std::size_t valid = validPrefix(text);
    result += caseMapped(text.substr(0, valid),
                         [](icu::StringPiece source, icu::ByteSink& sink, UErrorCode& status) {
                           icu::CaseMap::utf8ToLower("", 0, source, sink, nullptr, status);
                         });
    text.remove_prefix(valid);
    if (!text.empty()) result += text.front();
    if (!text.empty()) text.remove_prefix(1);
  }
  return result;
}

bool haveSameLowerCase(std::string_view left, std::string_view right) {
  return left == right || lowerCased(left) == lowerCased(right);
}

std::string caseFoldKey(std::string_view text) {
  if (isAscii(text)) return asciiLowerCased(text);
  const std::string folded =
      caseMapped(text, [](icu::StringPiece source, icu::ByteSink& sink, UErrorCode& status) {
        icu::CaseMap::utf8Fold(0, source, sink, nullptr, status);
      });
  std::string key;
  key.reserve(folded.size());
  for (const char byte : folded)
    key += static_cast<char>(codeUnitRank(byte));
  return key;
}

std::strong_ordering compareCodeUnits(std::string_view left, std::string_view right) {
  const auto [l, r] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  if (l == left.end() || r == right.end()) return left.size() <=> right.size();
  return codeUnitRank(*l) <=> codeUnitRank(*r);
}

std::string removingOccurrences(std::string_view text, std::string_view piece) {
  if (piece.empty()) return std::string(text);
  std::string result;
  for (;;) {
    const std::size_t found = text.find(piece);
    result += text.substr(0, found);
    if (found == std::string_view::npos) return result;
    text.remove_prefix(found + piece.size());
  }
}

std::size_t findPiece(std::string_view text, std::string_view piece) {
  const void* found = ::memmem(text.data(), text.size(), piece.data(), piece.size());
  if (found == nullptr) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

std::string listInWords(std::span<const std::string> pieces, std::string_view lastSeparator) {
  std::string text;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) text.append(i + 1 < pieces.size() ? ", " : lastSeparator);
    text.append(pieces[i]);
  }
  return text;
}

std::string onOneLine(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Utf8Character character = firstCharacter(text);
    if (character.valid && breaksLine(character.codePoint)) {
      result += ' ';
    } else {
      result += text.substr(0, character.bytes);
    }
    text.remove_prefix(character.bytes);
  }
  return result;
}

bool isValidUtf8(std::string_view text) {
  return simdjson::validate_utf8(text.data(), text.size());
}

}  // namespace quillmeter
