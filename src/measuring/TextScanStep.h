#pragma once

#include <bit>
#include <cstdint>

#include "measuring/TextScan.h"

/// The rules of measuring, as arithmetic on masks. 64 bytes of text are looked at together: bit i of each
/// mask says something about byte i, the lowest bit being the earliest byte, so that "<< 1" means "the byte
/// after" and a carry of an addition runs towards the end of the text. What a step needs to know of the bytes
/// before its own, and they of those after, is a bit or a count in `TextScan`.
///
/// A line is: spaces (its indentation), then from its first to its last visible character visible characters
/// and inner spaces, then spaces again, then a line break. The four steps of `advance` are:
///
/// 1. The first visible character of each line. Adding a bit at each line's start to the mask of spaces lets
///    it carry through the indentation, which it clears, and come out at the first byte that is no space:
///
///        bytes          . . a . b ↵ . . ↵ c . ↵       (. is a space, ↵ a line break)
///        spaces         1 1 0 1 0 0 1 1 0 0 1 0
///        + line starts  1 0 0 0 0 0 1 0 0 1 0 0
///        = sum          0 0 1 1 0 0 0 0 1 1 1 0
///
///    `sum` on visible characters is each line's first one; `sum` on spaces is the spaces behind it.
/// 2. Spaces behind a first visible character are inner ones, but for those that run up to a line break. The
///    few lines that end so pay for finding the run; the others do not. A run at the end of the block is
///    counted as inner and kept in mind, and taken back when the next visible byte turns out a line break.
/// 3. Lengths are population counts.
/// 4. Comments. The two characters that a line begins with are the byte of step 1 and the one after. Blocks
///    without an opening or closing line only count "//" lines. A block comment takes the number of visible
///    lines before it from the count when it opens and adds that number when it closes, so that nothing is to
///    be done for the lines inside.
///
/// A white-space character of several bytes counts at its first byte; its other bytes, and what fills up the
/// last block of a text, are "spaces" that are not characters: runs go on through them and nothing counts
/// them.
namespace quillmeter {

struct BlockMasks {
  std::uint64_t breaks = 0;      ///< first bytes of line breaks
  std::uint64_t spaces = 0;      ///< first bytes of spaces; further bytes of white space; filling
  std::uint64_t slashes = 0;     ///< "/"
  std::uint64_t stars = 0;       ///< "*"
  std::uint64_t characters = 0;  ///< first bytes of characters
  std::uint64_t pairs = 0;       ///< first bytes of characters that are two UTF-16 code units
  unsigned size = 64;            ///< bytes of text in the block, 1 to 64; the others are filling
};

[[nodiscard]] inline std::uint64_t count(std::uint64_t mask) {
  return static_cast<std::uint64_t>(std::popcount(mask));
}

/// The bits of `run` that form an unbroken row just below or at a bit of `ends`, which is a part of `run`.
[[nodiscard]] inline std::uint64_t rowsEndingAt(std::uint64_t ends, std::uint64_t run) {
  for (unsigned distance = 1; distance < 64; distance *= 2) {
    ends |= run & (ends >> distance);
    run &= run >> distance;
  }
  return ends;
}

/// The lines of one block that matter to comments.
struct CommentMasks {
  std::uint64_t lines;   ///< first visible characters of lines
  std::uint64_t single;  ///< second characters of lines that begin with "//"
  std::uint64_t opens;   ///< … with "/*"
  std::uint64_t closes;  ///< … with "*/"
};

/// What `TextScan` knows of comments, by value, so that the scan itself can stay in registers.
struct CommentState {
  std::uint64_t commentLines;
  std::uint64_t inside;
};

/// `state` after a block that opens or closes block comments. `linesBefore` visible lines came before it.
/// Whatever the state was, "/*" leaves it inside and "*/" outside; which of the two comes next cannot be
/// foretold, so that there are no branches on it.
[[nodiscard]] inline CommentState afterBlockComments(CommentState state, std::uint64_t linesBefore,
                                                     const CommentMasks& block) {
  std::uint64_t single = block.single;
  for (std::uint64_t events = block.opens | block.closes; events != 0; events &= events - 1) {
    const std::uint64_t event = events & (~events + 1);
    const std::uint64_t before = event - 1;
    const std::uint64_t opens = (block.opens & event) != 0 ? 1 : 0;
    const std::uint64_t lines = linesBefore + count(block.lines & before);
    state.commentLines += count(single & before) & (state.inside - 1);
    const std::uint64_t change = (lines ^ (0 - opens)) + 2 * opens;  // "lines", or "1 - lines" where it opens
    state.commentLines += change & (0 - (opens ^ state.inside));
    state.inside = opens;
    single &= ~before;
  }
  state.commentLines += count(single) & (state.inside - 1);
  return state;
}

/// Takes `scan` over one block.
[[gnu::always_inline]] inline void advance(TextScan& scan, const BlockMasks& block) {
  // 1. The first visible characters, and the spaces behind them.
  const std::uint64_t visible = ~(block.breaks | block.spaces);
  const std::uint64_t lineStarts = (block.breaks << 1U) | scan.atLineStart;
  const std::uint64_t sum = block.spaces + lineStarts;
  scan.atLineStart = static_cast<std::uint64_t>(sum < lineStarts) | (block.breaks >> 63U);
  const std::uint64_t lines = sum & visible;
  const std::uint64_t later = sum & block.spaces;

  // 2. Inner spaces.
  std::uint64_t trailing = later & (block.breaks >> 1U);
  if (trailing != 0) trailing = rowsEndingAt(trailing, later);
  scan.innerSpaces += count(later & ~trailing & block.characters);
  const std::uint64_t firstOfOthers = ~block.spaces & (block.spaces + 1);
  const std::uint64_t endsRow = (firstOfOthers & block.breaks) != 0 ? 1 : 0;
  scan.innerSpaces -= scan.openSpaces & (0 - endsRow);
  if (~later == 0) {
    scan.openSpaces += count(block.characters);
  } else {
    const std::uint64_t lastRow = ~(~std::uint64_t{0} >> static_cast<unsigned>(std::countl_one(later)));
    scan.openSpaces = count(lastRow & block.characters);
  }

  // 3. Lengths.
  scan.lineBreaks += count(block.breaks);
  scan.visibleLength += count(visible & block.characters) + count(block.pairs);

  // 4. Comments.
  const std::uint64_t slashes = lines & block.slashes;
  const std::uint64_t stars = lines & block.stars;
  const std::uint64_t behindSlash = (slashes << 1U) | scan.afterSlash;
  const std::uint64_t behindStar = (stars << 1U) | scan.afterStar;
  scan.afterSlash = (slashes >> (block.size - 1)) & 1U;
  scan.afterStar = (stars >> (block.size - 1)) & 1U;
  const CommentMasks comments{lines, behindSlash & block.slashes, behindSlash & block.stars,
                              behindStar & block.slashes};
  if ((comments.opens | comments.closes) != 0) [[unlikely]] {
    const CommentState state =
        afterBlockComments({scan.commentLines, scan.insideComment}, scan.visibleLines, comments);
    scan.commentLines = state.commentLines;
    scan.insideComment = state.inside;
  } else {
    scan.commentLines += count(comments.single) & (scan.insideComment - 1);
  }
  scan.visibleLines += count(lines);
}

}  // namespace quillmeter
