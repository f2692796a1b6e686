#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillmeter {

/// Where a scan over a text stands after some of its characters: the counts so far, and what the characters
/// seen last mean to those to come. A plain value; a new one stands before the first character.
struct TextScan {
  std::uint64_t lineBreaks = 0;
  std::uint64_t visibleLines = 0;   ///< lines with a visible character
  std::uint64_t visibleLength = 0;  ///< UTF-16 code units of all visible characters
  std::uint64_t innerSpaces = 0;    ///< spaces after the first visible character of their line
  std::uint64_t openSpaces = 0;     ///< those of `innerSpaces` that nothing visible has followed yet
  /// Lines that are comments. While inside a block comment: less the visible lines before it, modulo 2^64, so
  /// that adding all visible lines up to its end adds its lines.
  std::uint64_t commentLines = 0;

  // One bit, 0 or 1, for the character to come:
  std::uint64_t atLineStart = 1;  ///< nothing visible has been seen on its line
  std::uint64_t afterSlash = 0;   ///< a slash that begins the visible text of its line is just before it
  std::uint64_t afterStar = 0;    ///< the same of a star
  std::uint64_t insideComment = 0;
};

/// Takes `scan` over `size` bytes at `text`, which are valid UTF-8 and neither begin nor end inside a
/// character.
using TextScanFunction = void (*)(TextScan& scan, const char* text, std::size_t size);

/// The scan compiled for one instruction set.
struct TextScanTarget {
  std::string_view name;
  TextScanFunction scan;
};

/// Those that this machine can run, the best one first. There is always one.
[[nodiscard]] std::span<const TextScanTarget> textScanTargets();

}  // namespace quillmeter
