#include "support/WritingSystem.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "support/Uninterrupted.h"

namespace quillmeter {
namespace {

/// Where a file without a name can be found all the same.
std::string pathOfOpen(int descriptor) {
  return "/proc/self/fd/" + std::to_string(descriptor);
}

}  // namespace

int WritingSystem::status(const std::string& path, struct stat& status) const {
  return uninterrupted([&] { return doStatus(path, status); });
}
int WritingSystem::statusOfOpen(int descriptor, struct stat& status) const {
  return uninterrupted([&] { return doStatusOfOpen(descriptor, status); });
}
ssize_t WritingSystem::readLink(const std::string& path, char* target, std::size_t size) const {
  return uninterrupted([&] { return doReadLink(path, target, size); });
}
int WritingSystem::accessForWriting(const std::string& path) const {
  return uninterrupted([&] { return doAccessForWriting(path); });
}
int WritingSystem::openUnnamed(const std::string& folder, mode_t mode) const {
  return uninterrupted([&] { return doOpenUnnamed(folder, mode); });
}
int WritingSystem::openNew(const std::string& path, mode_t mode) const {
  return uninterrupted([&] { return doOpenNew(path, mode); });
}
int WritingSystem::lock(int descriptor) const {
  return uninterrupted([&] { return doLock(descriptor); });
}
int WritingSystem::setOwner(int descriptor, uid_t owner, gid_t group) const {
  return uninterrupted([&] { return doSetOwner(descriptor, owner, group); });
}
int WritingSystem::setMode(int descriptor, mode_t mode) const {
  return uninterrupted([&] { return doSetMode(descriptor, mode); });
}
ssize_t WritingSystem::write(int descriptor, std::string_view bytes) const {
  return uninterrupted([&] { return doWrite(descriptor, bytes); });
}
int WritingSystem::sync(int descriptor) const {
  return uninterrupted([&] { return doSync(descriptor); });
}
int WritingSystem::link(int descriptor, const std::string& path) const {
  return uninterrupted([&] { return doLink(descriptor, path); });
}
int WritingSystem::rename(const std::string& from, const std::string& to) const {
  return uninterrupted([&] { return doRename(from, to); });
}
int WritingSystem::remove(const std::string& path) const {
  return uninterrupted([&] { return doRemove(path); });
}

int WritingSystem::doStatus(const std::string& path, struct stat& status) const {
  return ::stat(path.c_str(), &status);
}

int WritingSystem::doStatusOfOpen(int descriptor, struct stat& status) const {
  return ::fstat(descriptor, &status);
}

ssize_t WritingSystem::doReadLink(const std::string& path, char* target, std::size_t size) const {
  return ::readlink(path.c_str(), target, size);
}

int WritingSystem::doAccessForWriting(const std::string& path) const {
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS);
}

int WritingSystem::doOpenUnnamed(const std::string& folder, mode_t mode) const {
  const int descriptor = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
  if (descriptor < 0 || ::access(pathOfOpen(descriptor).c_str(), F_OK) == 0) return descriptor;
  // Without /proc it could never be linked.
  ::close(descriptor);
  errno = EOPNOTSUPP;
  return -1;
}

int WritingSystem::doOpenNew(const std::string& path, mode_t mode) const {
  return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
}

int WritingSystem::doLock(int descriptor) const {
  return ::flock(descriptor, LOCK_EX | LOCK_NB);
}

int WritingSystem::doSetOwner(int descriptor, uid_t owner, gid_t group) const {
  return ::fchown(descriptor, owner, group);
}

int WritingSystem::doSetMode(int descriptor, mode_t mode) const {
  return ::fchmod(descriptor, mode);
}

ssize_t WritingSystem::doWrite(int descriptor, std::string_view bytes) const {
  return ::write(descriptor, bytes.data(), bytes.size());
}

int WritingSystem::doSync(int descriptor) const {
  return ::fsync(descriptor);
}

int WritingSystem::doLink(int descriptor, const std::string& path) const {
  return ::linkat(AT_FDCWD, pathOfOpen(descriptor).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
}

int WritingSystem::doRename(const std::string& from, const std::string& to) const {
  return ::rename(from.c_str(), to.c_str());
}

int WritingSystem::doRemove(const std::string& path) const {
  return ::unlink(path.c_str());
}

const WritingSystem& WritingSystem::real() {
  static const WritingSystem system;
  return system;
}

}  // namespace quillmeter
