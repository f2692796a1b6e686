#pragma once

#include <string>
#include <string_view>

namespace quillmeter {

/// `text` as the content of an HTML element or of a quoted attribute, whatever it holds: markup is escaped,
/// control characters are blanks, and bytes that are not UTF-8 are U+FFFD.
[[nodiscard]] std::string htmlText(std::string_view text);

}  // namespace quillmeter
