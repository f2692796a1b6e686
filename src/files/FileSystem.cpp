#include "files/FileSystem.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <exception>
#include <memory>
#include <new>
#include <string_view>

namespace quillmeter {
namespace {

/// A path cut so that the system takes it: what is left of it, relative to an open folder.
struct ShortenedPath {
  Descriptor folder;
  std::string rest;
  [[nodiscard]] int folderValue() const { return folder ? folder.value() : AT_FDCWD; }
};

/// Opens folder after folder until the rest of `path` is short enough for one call; absent when a folder on
/// the way cannot be opened.
std::optional<ShortenedPath> shortened(std::string_view path) {
  ShortenedPath result;
  while (path.size() >= PATH_MAX) {
    const std::size_t cut = path.rfind('/', PATH_MAX - 2);
    if (cut == std::string_view::npos || cut == 0) return std::nullopt;
    const std::string head(path.substr(0, cut));
    Descriptor next(::openat(result.folderValue(), head.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!next) return std::nullopt;
    result.folder = std::move(next);
    path.remove_prefix(cut + 1);
  }
  result.rest = path;
  return result;
}

FileStatus meaningOf(const struct stat& status) {
  FileStatus result;
  if (S_ISREG(status.st_mode)) result.type = FileStatus::Type::regular;
  if (S_ISDIR(status.st_mode)) result.type = FileStatus::Type::folder;
  result.size = static_cast<std::uint64_t>(status.st_size);
  return result;
}

std::optional<FileStatus> statusOf(int folder, const char* path) {
  struct stat status {};
  if (::fstatat(folder, path, &status, 0) != 0) return std::nullopt;
  return meaningOf(status);
}

/// The content of an open file that is said to be of `size` bytes; absent when it cannot be read to its end.
std::optional<std::string> contentOf(const FileSystem& fileSystem, const Descriptor& file,
                                     std::uint64_t size) {
  constexpr std::size_t growth = std::size_t{1} << 16;
  std::string content;
  std::size_t filled = 0;
  // One byte more than the size shows the end of the file without growing once more.
  content.resize(static_cast<std::size_t>(size) + 1);
  for (;;) {
    const auto count = readBlock(fileSystem, file.value(), std::span(content).subspan(filled));
    if (!count) return std::nullopt;
    filled += *count;
    if (filled < content.size()) break;
    content.resize(content.size() + std::max(growth, content.size() / 2));
  }
  content.resize(filled);
  return content;
}

}  // namespace

Descriptor::~Descriptor() {
  reset();
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(value_, other.value_);
  return *this;
}

void Descriptor::reset() {
  if (value_ >= 0) ::close(std::exchange(value_, -1));
}

int openPath(const std::string& path, int flags) {
  if (path.size() < PATH_MAX) return ::open(path.c_str(), flags);
  const auto parts = shortened(path);
  return parts ? ::openat(parts->folderValue(), parts->rest.c_str(), flags) : -1;
}

std::optional<FileStatus> FileSystem::status(const std::string& path) const {
  if (path.size() < PATH_MAX) return statusOf(AT_FDCWD, path.c_str());
  const auto parts = shortened(path);
  return parts ? statusOf(parts->folderValue(), parts->rest.c_str()) : std::nullopt;
}

std::optional<FileStatus> FileSystem::statusInFolder(const Descriptor& folder,
                                                     const std::string& name) const {
  return statusOf(folder.value(), name.c_str());
}

Descriptor FileSystem::openFolder(const std::string& path) const {
  return Descriptor(openPath(path, O_PATH | O_DIRECTORY | O_CLOEXEC));
}

std::optional<FileStatus> FileSystem::statusOfOpen(const Descriptor& file) const {
  struct stat status {};
  if (::fstat(file.value(), &status) != 0) return std::nullopt;
  return meaningOf(status);
}

std::optional<std::vector<std::string>> FileSystem::listFolder(const std::string& path) const {
  const int descriptor = openPath(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return std::nullopt;
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(::fdopendir(descriptor), ::closedir);
  if (!folder) {
    ::close(descriptor);
    throw std::bad_alloc();  // an open folder can fail of nothing else
  }
  std::vector<std::string> names;
  while (const dirent* entry = ::readdir(folder.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

Descriptor FileSystem::open(const std::string& path) const {
  return Descriptor(openPath(path, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
}

ssize_t FileSystem::read(int descriptor, std::span<char> buffer) const {
  return ::read(descriptor, buffer.data(), buffer.size());
}

const FileSystem& FileSystem::real() {
  static const FileSystem fileSystem;
  return fileSystem;
}

std::optional<std::size_t> readBlock(const FileSystem& fileSystem, int descriptor, std::span<char> buffer) {
  std::size_t filled = 0;
  while (filled < buffer.size()) {
    const ssize_t count = fileSystem.read(descriptor, buffer.subspan(filled));
    if (count == 0) break;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    filled += static_cast<std::size_t>(count);
  }
  return filled;
}

std::optional<std::string> readWholeFile(const FileSystem& fileSystem, const std::string& path) {
  const auto status = fileSystem.status(path);
  if (!status || status->type != FileStatus::Type::regular) return std::nullopt;
  const Descriptor file = fileSystem.open(path);
  if (!file) return std::nullopt;
  try {
    return contentOf(fileSystem, file, status->size);
  } catch (const std::exception&) {
    return std::nullopt;  // more than the memory, or than a text, can hold
  }
}

}  // namespace quillmeter
