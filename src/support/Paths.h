#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Paths are bytes as the file system has them; none of these touches the disk.
namespace quillmeter {

/// The text behind the last "/" (trailing "/" left out); "/" for a path of slashes only, empty for the empty
/// path.
[[nodiscard]] std::string_view lastPathComponent(std::string_view path);

/// `folder` and `name` with exactly one "/" between them. An empty part gives the other one.
[[nodiscard]] std::string joinedPath(std::string_view folder, std::string_view name);

/// `path` without the "/" at its end; of a path of slashes only the first one stays.
[[nodiscard]] std::string_view withoutTrailingSlashes(std::string_view path);

/// The pieces between the "/" of a path, so a first empty one for an absolute path; one empty piece for the
/// empty path. They point into `path`.
[[nodiscard]] std::vector<std::string_view> pathComponents(std::string_view path);

/// The text behind the last "." of any string, the whole string when it has none: the rule that file kinds go
/// by.
[[nodiscard]] std::string_view textAfterLastDot(std::string_view text);

/// The extension of a path's last component: the text behind its last ".", also when it begins with that dot;
/// empty when it has none.
[[nodiscard]] std::string_view pathExtension(std::string_view path);

/// `path`, with "." and `extension` appended when it has no extension.
[[nodiscard]] std::string withDefaultExtension(std::string_view path, std::string_view extension);

/// `path` as it is reached from `folder`, both absolute: "a.m", "Classes/a.m", "../Shared/a.m". What has
/// nothing but the root in common with the folder keeps its absolute path, and so does anything when `folder`
/// is not absolute.
[[nodiscard]] std::string relativePath(std::string_view path, std::string_view folder);

/// `path` without its last component: "/a" of "/a/b"; "/" of "/a"; empty when there is no "/".
[[nodiscard]] std::string_view parentFolder(std::string_view path);

}  // namespace quillmeter
