#pragma once

#include <string>
#include <variant>

#include "xcode/ObjectGraph.h"

namespace quillmeter {

class FileSystem;

/// The object graph of the bundle at `bundle`, or why there is none: one line that begins with
/// "project.pbxproj:LINE: " and says what was expected.
[[nodiscard]] std::variant<ObjectGraph, std::string> readDescription(const FileSystem& fileSystem,
                                                                     const std::string& bundle);

}  // namespace quillmeter
