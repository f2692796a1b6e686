#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "files/FileSystem.h"

namespace quillmeter {

// What several calls to the disk give together. A file is read as long as it was when it was opened, or as
// far as it goes if that is less; what is appended meanwhile does not count, so no growing file is without
// end.

/// A file whose size the file system does not tell (it says 0) is read no further than this.
inline constexpr std::uint64_t kLargestText = std::uint64_t{1} << 30;

/// Fills `buffer` from the file as far as it goes, through short reads. Gives the bytes read, 0 at the end of
/// the file.
[[nodiscard]] Result<std::size_t> readBlock(const FileSystem& fileSystem, int descriptor,
                                            std::span<char> buffer);

/// EPERM for a file that the kernel makes up while it is read, or why that cannot be told; else no error.
[[nodiscard]] DiskError refusalOfKernelFile(const FileSystem& fileSystem, const Descriptor& file);

/// The whole content of a regular file. Fails with EFBIG for one of more than `largest` bytes, with ENOMEM
/// for one that does not fit into memory, with EISDIR or EINVAL for what is no regular file, and with EPERM
/// for one that the kernel makes up and gives no size.
[[nodiscard]] Result<std::string> readWholeFile(
    const FileSystem& fileSystem, const std::string& path,
    std::uint64_t largest = std::numeric_limits<std::uint64_t>::max());

/// The names directly inside a folder, without "." and "..", in ascending byte order.
[[nodiscard]] Result<std::vector<std::string>> listFolder(const FileSystem& fileSystem,
                                                          const std::string& path);

}  // namespace quillmeter
