#pragma once

#include <string_view>

namespace quillmeter {

/// Whether measurements by these rules can be compared, each with others by the same rules.
[[nodiscard]] bool areKnownRules(std::string_view rules);

/// Whether the file at `path` is source code under `rules`: only the lines, words and characters of source
/// code are part of a project's totals. False under unknown rules.
[[nodiscard]] bool isSourceCode(std::string_view path, std::string_view rules);

}  // namespace quillmeter
