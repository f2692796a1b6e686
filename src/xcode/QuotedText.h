#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Strings between quotes, as a property list writes them.
namespace quillmeter {

/// The position of the quote that closes the string whose opening quote, single or double, stands at `start`;
/// npos when nothing closes it.
[[nodiscard]] std::size_t endOfQuoted(std::string_view text, std::size_t start);

/// Appends the string that `content`, the text between two quotes, stands for. It is never longer.
void appendUnescaped(std::string& result, std::string_view content);

}  // namespace quillmeter
