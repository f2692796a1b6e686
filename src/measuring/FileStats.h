#pragma once

#include <memory>
#include <string>

#include "measuring/FileObject.h"

namespace quillmeter {

class FileKindTable;
class FileSystem;

/// The measured record of the item at `path`; null when nothing exists there. Only regular files that `kinds`
/// has as code or interface files are opened; one that cannot be read, or is not UTF-8, has all six counters
/// 0.
[[nodiscard]] std::shared_ptr<FileObject> fileStats(const FileSystem& fileSystem, const FileKindTable& kinds,
                                                    const std::string& path);

/// The same for a path where a regular file was found before: asks the disk once less. Whatever is there by
/// now, the record is the same as `fileStats` gives.
[[nodiscard]] std::shared_ptr<FileObject> regularFileStats(const FileSystem& fileSystem,
                                                           const FileKindTable& kinds,
                                                           const std::string& path);

}  // namespace quillmeter
