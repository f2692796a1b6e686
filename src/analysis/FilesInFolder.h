#pragma once

#include <string_view>

#include "files/ReadFaults.h"
#include "measuring/FileObject.h"

namespace quillmeter {

class FileKindTable;
class FileSystem;

/// Every file of a kind that `kinds` knows below `folder`, in walk order, hidden files left out, and those
/// left out whose path is, byte by byte, the path of one of `except`. Regular files only, through links. Each
/// record has name, path and size.
///
/// Linear in what lies below the folder and in `except`. The disk is asked about the files of the result
/// alone (and about links of a known kind that lead elsewhere), so that where nearly all is left out the
/// search takes little more than the walk.
///
/// What could not be listed or looked at is added to `faults` and is not among the files.
[[nodiscard]] FileList filesInFolder(const FileSystem& fileSystem, const FileKindTable& kinds,
                                     std::string_view folder, const FileList& except, ReadFaults& faults);

}  // namespace quillmeter
