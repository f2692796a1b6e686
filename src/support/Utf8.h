#pragma once

#include <cstddef>
#include <string_view>

namespace quillmeter {

/// One character of UTF-8 text, or one byte that is none.
struct Utf8Character {
  char32_t codePoint;  ///< U+FFFD for a bad byte
  std::size_t bytes;   ///< 1 for a bad byte
  bool valid;
};

/// The character that `text` begins with; `text` is not empty. Overlong forms, surrogates and values past
/// U+10FFFF are bad bytes, each on its own.
[[nodiscard]] Utf8Character firstCharacter(std::string_view text);

/// The character that `text` ends with; `text` is not empty.
[[nodiscard]] Utf8Character lastCharacter(std::string_view text);

}  // namespace quillmeter
