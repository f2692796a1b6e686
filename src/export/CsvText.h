#pragma once

#include <span>
#include <string>

#include "export/ExportSelection.h"

namespace quillmeter {

/// The whole text of a CSV export: a header line and a line for each file, every field in double quotes, "\n"
/// between lines and none at the end. Always UTF-8: a byte of a name that is not stands as U+FFFD. Otherwise
/// names are written as they are, also with quotes, commas and line breaks in them.
[[nodiscard]] std::string csvText(std::span<const ExportedFile> files);

}  // namespace quillmeter
