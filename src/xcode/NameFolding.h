#pragma once

#include <string>
#include <string_view>

namespace quillmeter {

/// What a file name and all names that differ from it in letter case or composition alone have in common: the
/// full Unicode case folding of its NFC form. A name that is not UTF-8 is equal to itself only.
[[nodiscard]] std::string foldedName(std::string_view name);

}  // namespace quillmeter
