#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "measuring/FileKinds.h"
#include "measuring/FileObject.h"
#include "tables/FileTable.h"

/// What the clean-up tool shows: the files in a project's folder that the project does not reference.
namespace quillmeter {

class MeasuredProject;

/// What the tool says when there are none.
inline constexpr std::string_view kCleanProjectText =
    "Your project is clean and safe.\nThere are no inconsistencies, congratulations!";

/// The files of a known kind in the project's folder, in walk order, whose path is not the path of any of its
/// files. Paths are compared byte by byte: another letter case, a "." or ".." step or a way through a link is
/// another path. Linear in what lies in the folder and in the project's files. What a stranger's folder holds
/// is looked at by threads that can do nothing but read; the caller waits for them.
[[nodiscard]] FileList unreferencedFiles(const MeasuredProject& project);

[[nodiscard]] std::vector<FileTableColumn> cleanUpColumns();

/// The unreferenced files in the order of their names ignoring letter case, with sizes in units of 1000
/// bytes.
[[nodiscard]] FileTable cleanUpTable(FileList unreferenced, const FileKindTable& kinds,
                                     const std::string& locale = {});

}  // namespace quillmeter
