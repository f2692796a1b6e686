#pragma once

#include <span>
#include <string>

#include "export/ExportSelection.h"

namespace quillmeter {

/// The whole text of a CSV export: a header line and a line for each file, every field in double quotes, "\n"
/// between lines and none at the end. Names are written as they are, byte for byte: quotes, commas and line
/// breaks in them too.
[[nodiscard]] std::string csvText(std::span<const ExportedFile> files);

}  // namespace quillmeter
