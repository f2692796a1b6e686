#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmeter {

/// The path of the first local file in a list of addresses ("text/uri-list": one a line, comments begin with
/// "#"), in the file system's bytes and without a trailing "/"; absent when none of them is a local file.
/// Works on bytes, since a name that is not UTF-8 does not survive the toolkit's own addresses. `hostName` is
/// this machine's name, under which some file browsers put their files. Looks no further than the first local
/// file.
[[nodiscard]] std::optional<std::string> firstDroppedFile(std::string_view uriList,
                                                          std::string_view hostName);

}  // namespace quillmeter
