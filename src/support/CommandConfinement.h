#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace quillmeter {

/// Has the kernel keep the whole process of a command to reading, but for the folders of its outputs, before
/// it touches what a stranger wrote. An output that is absent or "-" needs no folder.
void confineToOutputs(std::initializer_list<std::optional<std::string>> outputs = {});

/// The same for a command that reads nothing but `inputs`, to just these and what libraries read.
void confineToInputs(std::vector<std::string> inputs, const std::optional<std::string>& output = {});

}  // namespace quillmeter
