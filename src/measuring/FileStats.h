#pragma once

#include <memory>
#include <string>

#include "files/FileSystem.h"
#include "measuring/FileObject.h"

namespace quillmeter {

class FileKindTable;

/// What is known of an item before it is measured.
enum class Beforehand {
  nothing,
  regular,  ///< a regular file was found there: asks the disk once less
};

struct MeasuredFile {
  std::shared_ptr<FileObject> file;  ///< null when nothing exists there
  DiskError error;                   ///< why it could not be looked at, opened or read; none when it could
};

/// The measured record of the item at `path`. Only regular files that `kinds` has as code or interface files
/// are opened; one that cannot be read, or is not UTF-8, has all six counters 0. So has one that the kernel
/// makes up while it is read (/proc, /sys), which may have no end; its error is a missing permission. Type
/// and size are those of the opened file, and what is appended while it is read does not count. Whatever is
/// there, the record is the same with and without knowing something beforehand.
[[nodiscard]] MeasuredFile measuredFile(const FileSystem& fileSystem, const FileKindTable& kinds,
                                        const std::string& path, Beforehand beforehand);

/// The record of that alone.
[[nodiscard]] std::shared_ptr<FileObject> fileStats(const FileSystem& fileSystem, const FileKindTable& kinds,
                                                    const std::string& path);

}  // namespace quillmeter
