#pragma once

#include <initializer_list>
#include <optional>
#include <string>

namespace quillmeter {

/// Has the kernel keep the whole process to reading, but for the folders of its outputs, before a command
/// touches what a stranger wrote. An output that is absent or "-" needs no folder.
void confineToOutputs(std::initializer_list<std::optional<std::string>> outputs = {});

}  // namespace quillmeter
