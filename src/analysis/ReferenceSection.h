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

/// The lower-cased extension, perhaps empty, of the path in a line that `referencedPath` gives none for
/// because of its kind; absent when the line has no path.
[[nodiscard]] std::optional<std::string> extensionOfOtherReference(std::string_view line);

/// Whether a description refers to folders whose files it does not list one by one.
[[nodiscard]] bool refersToFolders(std::string_view project);

/// The identifier that a line begins with; empty when it has none.
[[nodiscard]] std::string referenceIdentifier(std::string_view line);

}  // namespace quillmeter
