#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmeter {

/// Writes all of `bytes` to an open file, through short writes and interruptions. Gives the system's message
/// when that fails, nothing on success. There is no buffer in between: what it reports as written the system
/// has taken.
[[nodiscard]] std::optional<std::string> writeAll(int descriptor, std::string_view bytes);

}  // namespace quillmeter
