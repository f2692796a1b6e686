#include "files/ReadingFiles.h"

#include <algorithm>
#include <cerrno>
#include <exception>

namespace quillmeter {
namespace {

/// What one call asks for at most, so that a large file can be given up in its middle.
constexpr std::size_t kLargestRequest = std::size_t{1} << 20;

/// Reads a file whose size the file system does not tell, to its end.
Result<std::string> contentOfUnknownSize(const FileSystem& fileSystem, const Descriptor& file,
                                         std::uint64_t largest) {
  std::string content;
  for (std::size_t filled = 0;;) {
    content.resize(filled + std::max(kLargestRequest, filled / 2));
    const auto count = readBlock(fileSystem, file.value(), std::span(content).subspan(filled));
    if (!count) return count.error();
    if (filled == 0 && *count > 0) {
      if (const DiskError refusal = refusalOfKernelFile(fileSystem, file)) return refusal;
    }
    filled += *count;
    if (filled > largest) return DiskError{EFBIG};
    if (filled == content.size()) continue;
    content.resize(filled);
    return content;
  }
}

Result<std::string> contentOf(const FileSystem& fileSystem, const Descriptor& file, std::uint64_t size) {
  std::string content(static_cast<std::size_t>(size), '\0');
  const auto count = readBlock(fileSystem, file.value(), content);
  if (!count) return count.error();
  content.resize(*count);
  return content;
}

}  // namespace

DiskError refusalOfKernelFile(const FileSystem& fileSystem, const Descriptor& file) {
  const auto made = fileSystem.isMadeByKernel(file);
  if (!made) return made.error();
  return *made ? DiskError{EPERM} : DiskError{};
}

Result<std::size_t> readBlock(const FileSystem& fileSystem, int descriptor, std::span<char> buffer) {
  std::size_t filled = 0;
  while (filled < buffer.size()) {
    const std::size_t wanted = std::min(buffer.size() - filled, kLargestRequest);
    const auto count = fileSystem.read(descriptor, buffer.subspan(filled, wanted));
    if (!count) return count.error();
    if (*count == 0) break;
    filled += *count;
  }
  return filled;
}

Result<std::string> readWholeFile(const FileSystem& fileSystem, const std::string& path,
                                  std::uint64_t largest) {
  const auto file = fileSystem.open(path);
  if (!file) return file.error();
  const auto status = fileSystem.statusOfOpen(*file);
  if (!status) return status.error();
  if (status->type == FileStatus::Type::folder) return DiskError{EISDIR};
  if (status->type != FileStatus::Type::regular) return DiskError{EINVAL};
  if (status->size > largest) return DiskError{EFBIG};
  try {
    if (status->size > 0) return contentOf(fileSystem, *file, status->size);
    return contentOfUnknownSize(fileSystem, *file, std::min(largest, kLargestText));
  } catch (const std::exception&) {
    return DiskError{ENOMEM};  // more than the memory can hold
  }
}

Result<std::vector<std::string>> listFolder(const FileSystem& fileSystem, const std::string& path) {
  const auto folder = fileSystem.openListing(path, FileSystem::Links::follow);
  if (!folder) return folder.error();
  FolderListing listing;
  for (;;) {
    const auto more = fileSystem.listSome(*folder, listing);
    if (!more) return more.error();
    if (!*more) break;
  }
  listing.sort();
  std::vector<std::string> names;
  names.reserve(listing.entries().size());
  for (const auto& entry : listing.entries())
    names.emplace_back(listing.name(entry));
  return names;
}

}  // namespace quillmeter
