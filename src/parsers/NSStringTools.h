#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the method parsers ask of a text. Patterns are ICU regular expressions and may be any; bytes of the
/// text or the pattern that are not UTF-8 are read as U+FFFD, one for each. White space ("\s") is U+0009 to
/// U+000D, U+0085 and Unicode category Z.
///
/// The searches here backtrack, so a pattern and a text that do not go together can take a time that doubles
/// with each character. ICU's own limits end such a search (after a second or a few, or 16 MB of memory for
/// positions to come back to), as does a text of more than 2^30 bytes; what a search found up to then is the
/// result. Patterns that must get along with any file are a `LinearPattern` instead.
namespace quillmeter {

/// `text` without the white space and line breaks at both ends, as a view of it. Takes a time that is linear
/// in what is removed.
[[nodiscard]] std::string_view trimLeadingEndWhiteCharacters(std::string_view text);

/// Whether `pattern` matches all of `text`, letter case respected. False for a bad pattern and for a search
/// that meets a limit.
[[nodiscard]] bool isAcordingToRegex(std::string_view text, std::string_view pattern);

/// The first match of `pattern` in `text`, letter case ignored. Empty when there is none, for a bad pattern
/// and for a search that meets a limit.
[[nodiscard]] std::string getFirstMatchRegex(std::string_view text, std::string_view pattern);

/// Every match of `pattern` in `text` from left to right, none overlapping another, letter case ignored.
/// Empty for a bad pattern; the matches found so far when the search meets a limit.
[[nodiscard]] std::vector<std::string> getAllMatchesRegex(std::string_view text, std::string_view pattern);

}  // namespace quillmeter
