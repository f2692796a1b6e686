#pragma once

#include <iosfwd>
#include <optional>
#include <string_view>

#include "measuring/TextMeasurement.h"

namespace quillmeter {

/// What `text`, given whole, measures: line by line and character by character, just as the rules are told.
/// Slow and obviously right; `TextMeasurement` is compared with it.
[[nodiscard]] std::optional<TextCounts> referenceMeasurement(std::string_view text);

/// How a failing test shows counts.
void PrintTo(const TextCounts& counts, std::ostream* out);

}  // namespace quillmeter
