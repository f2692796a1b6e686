#pragma once

#include <string_view>

#include "tables/FileTableColumn.h"

namespace quillmeter {

/// What a column of a file table shows, in a sentence for those who hear its header: abbreviations are spelt
/// out and pictures named.
[[nodiscard]] std::string_view columnExplanation(FileTableField field);

}  // namespace quillmeter
