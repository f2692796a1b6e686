#pragma once

#include <cstdint>
#include <span>

namespace quillmeter {

/// Where a scan over a text stands after some of its characters: the counts so far, and what the characters
/// seen last mean to those to come. A plain value; a new one stands before the first character.
struct TextScan {
  std::uint64_t lineBreaks = 0;
  std::uint64_t visibleLines = 0;    ///< lines with a visible character
  std::uint64_t visibleLength = 0;   ///< UTF-16 code units of all visible characters
  std::uint64_t innerSpaces = 0;     ///< spaces after the first visible character of their line
  std::uint64_t openSpaces = 0;      ///< those of `innerSpaces` that nothing visible has followed yet
  std::uint64_t commentLines = 0;    ///< without those of a block comment that is still open
  std::uint64_t linesAtOpening = 0;  ///< `visibleLines` before the line that opened the block comment
  bool insideComment = false;

  // One bit, 0 or 1, for the character to come:
  std::uint64_t atLineStart = 1;  ///< nothing visible has been seen on its line
  std::uint64_t afterSlash = 0;   ///< a slash that begins the visible text of its line is just before it
  std::uint64_t afterStar = 0;    ///< the same of a star
};

/// Takes `scan` over `text`, which is valid UTF-8 and does not begin or end inside a character. Uses the best
/// vector instructions of the machine.
void scanText(TextScan& scan, std::span<const char> text);

/// The instruction sets, as Highway's bits, that `scanText` has been compiled for and this machine can run.
[[nodiscard]] std::int64_t textScanTargets();

}  // namespace quillmeter
