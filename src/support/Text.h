#pragma once

#include <compare>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// Text as the whole program understands it: UTF-8 in memory, with lengths and orders *reported* in UTF-16
/// code units, so that numbers and sort orders do not depend on the encoding. Text that is not valid UTF-8 (a
/// file name may hold any byte) is never refused: where a rule needs characters, each bad byte stands for
/// U+FFFD.
namespace quillmeter {

/// `text` without the white space and line breaks (Unicode category Z, U+0009 to U+000D, U+0085) at both
/// ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The length of `text` in UTF-16 code units.
[[nodiscard]] std::size_t utf16Length(std::string_view text);

/// `text` with full, locale-independent Unicode lower-casing. Bytes that are not UTF-8 are kept as they are.
[[nodiscard]] std::string lowerCased(std::string_view text);

/// Whether two texts are the same when lower-cased.
[[nodiscard]] bool haveSameLowerCase(std::string_view left, std::string_view right);

/// A key whose bytewise order is the case-insensitive order of texts: full case folding, then UTF-16 code
/// units. Sort by stored keys where many comparisons are needed.
[[nodiscard]] std::string caseFoldKey(std::string_view text);

/// The case-sensitive order of texts: by UTF-16 code units, with no Unicode normalisation.
[[nodiscard]] std::strong_ordering compareCodeUnits(std::string_view left, std::string_view right);

/// `text` with every non-overlapping occurrence of `piece`, taken from the left, replaced by nothing.
/// An empty `piece` occurs nowhere.
[[nodiscard]] std::string removingOccurrences(std::string_view text, std::string_view piece);

/// `text` on one line: every tab, line break and other control character is a space.
[[nodiscard]] std::string onOneLine(std::string_view text);

/// Where `piece` first occurs in `text`, `npos` where it does not; in time linear in the text, however often
/// the piece nearly occurs, and much quicker than `text.find` for a long piece.
[[nodiscard]] std::size_t findPiece(std::string_view text, std::string_view piece);

/// "a, b and c" with " and " for `lastSeparator`.
[[nodiscard]] std::string listInWords(std::span<const std::string> pieces,
                                      std::string_view lastSeparator = " and ");

[[nodiscard]] bool isValidUtf8(std::string_view text);

/// Takes trace lines, and drops them: tracing is switched off.
inline void out(std::string_view /*text*/) {}

}  // namespace quillmeter
