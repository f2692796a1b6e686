#pragma once

#include <string_view>

namespace quillmeter {

/// The beginning of a file without the mark that some editors put there; it is no part of the text.
[[nodiscard]] inline std::string_view withoutByteOrderMark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.starts_with(mark)) text.remove_prefix(mark.size());
  return text;
}

}  // namespace quillmeter
