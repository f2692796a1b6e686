#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmeter {

class FileKindTable;

/// The file-reference section of a project description: the text between the first begin marker and the first
/// end marker behind it, without white space and line breaks at its ends. Absent when a marker is missing.
/// The result points into `project`.
[[nodiscard]] std::optional<std::string_view> referenceSection(std::string_view project);

/// The path that one line of the section references, if it is of a kind that `kinds` knows: the text of the
/// first "path =" entry behind the line's "*/ = {", up to its ";". A path that begins with a double quote
/// loses all its double quotes. Absent for a line of any other form.
[[nodiscard]] std::optional<std::string> referencedPath(std::string_view line, const FileKindTable& kinds);

/// The same whatever the path's kind.
[[nodiscard]] std::optional<std::string> referencedPathOfAnyKind(std::string_view line);

/// Whether a line refers to a folder as a whole.
[[nodiscard]] bool isFolderReference(std::string_view line);

/// Whether a description refers to folders in other ways than by lines of the section: synchronised groups
/// and packages.
[[nodiscard]] bool hasOtherFolders(std::string_view project);

/// The identifier that a line begins with; empty when it has none.
[[nodiscard]] std::string referenceIdentifier(std::string_view line);

}  // namespace quillmeter
