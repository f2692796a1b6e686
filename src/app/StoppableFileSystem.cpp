#include "app/StoppableFileSystem.h"

#include <cerrno>

namespace quillmeter {

std::optional<FileStatus> StoppableFileSystem::status(const std::string& path) const {
  return stopped_ ? std::nullopt : FileSystem::status(path);
}

std::optional<std::vector<std::string>> StoppableFileSystem::listFolder(const std::string& path) const {
  return stopped_ ? std::nullopt : FileSystem::listFolder(path);
}

Descriptor StoppableFileSystem::open(const std::string& path) const {
  return stopped_ ? Descriptor() : FileSystem::open(path);
}

ssize_t StoppableFileSystem::read(int descriptor, std::span<char> buffer) const {
  if (stopped_) {
    errno = ECANCELED;
    return -1;
  }
  return FileSystem::read(descriptor, buffer);
}

}  // namespace quillmeter
