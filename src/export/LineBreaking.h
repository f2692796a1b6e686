#pragma once

#include <cstddef>
#include <string_view>

#include "export/FontMetrics.h"

namespace quillmeter {

/// The width of a text in points as it stands: of its widest line when it holds line breaks, spaces included.
[[nodiscard]] double naturalWidth(std::string_view text, const ReportFont& font);

/// The lines that a text takes in a column `width` points wide. White space at the end of a line takes no
/// room; a line break at the very end begins no further line; an empty text has no line.
[[nodiscard]] std::size_t lineCount(std::string_view text, const ReportFont& font, double width);

}  // namespace quillmeter
