#pragma once

#include <string_view>

namespace quillmeter {

/// The name of the picture for a file type: `extension` is what `FileObject::getFileExtension` gives,
/// compared exactly. Every extension has a picture, also the empty one.
[[nodiscard]] std::string_view typeIconName(std::string_view extension);

}  // namespace quillmeter
