#pragma once

#include <string>

namespace quillmeter {

/// The absolute path of the project that a command's argument names: a folder that holds a bundle, or a
/// bundle; relative or absolute, with or without trailing "/". Steps of "." are left out; a path with ".."
/// steps is resolved by the file system. What does not exist is only made absolute.
[[nodiscard]] std::string projectAtArgument(const std::string& argument);

}  // namespace quillmeter
