#include "helpers/FailingCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstring>

namespace quillmeter::testing {
namespace {

enum Kind : unsigned char { opening, looking, lookingAtOpen, listing, reading, writing, placing };

constexpr std::array kOfOpening = {ENOENT, EACCES, ENOTDIR, ELOOP,  EMFILE,
                                   ENFILE, EIO,    EINTR,   ENOMEM, ESTALE};
constexpr std::array kOfLooking = {ENOENT, EACCES, ENOTDIR, ELOOP, EIO, EINTR, ENOMEM, ESTALE};
constexpr std::array kOfLookingAtOpen = {EIO, EINTR, ENOMEM, ESTALE};
constexpr std::array kOfListing = {EIO, EINTR, ENOENT, ESTALE};
constexpr std::array kOfReading = {EIO, EINTR, ESTALE};
constexpr std::array kOfWriting = {ENOSPC, EDQUOT, EIO, EINTR, EFBIG};
constexpr std::array kOfPlacing = {ENOSPC, EDQUOT, EIO, EINTR, EACCES, EPERM, EROFS};

constinit FailingCall wanted;
constinit std::atomic<long> calls = 0;
constinit std::atomic<bool> isOn = false;
constinit std::atomic<bool> failed = false;
constinit std::array<unsigned char, 4096> noted{};
/// What stays failed: the kind of a call and the name, without its folder, that it was about.
constinit std::array<char, 4096> failedName{};
constinit Kind failedKind = opening;
constinit std::atomic<bool> isNameSet = false;

bool stays(Kind kind, const char* name) {
  return wanted.stays && isNameSet && kind == failedKind && std::strcmp(name, failedName.data()) == 0;
}

/// Whether a call fails; errno is set then.
bool fails(Kind kind, const char* path = "") {
  if (!isOn) return false;
  const char* const slash = std::strrchr(path, '/');
  const char* const name = slash != nullptr ? slash + 1 : path;
  const long number = calls++;
  if (number >= 0 && static_cast<std::size_t>(number) < noted.size())
    noted[static_cast<std::size_t>(number)] = kind;
  if (number == wanted.number) {
    failed = true;
    if (*name != '\0' && std::strlen(name) < failedName.size()) {
      std::strcpy(failedName.data(), name);  // NOLINT(clang-analyzer-security.insecureAPI.strcpy): it fits
      failedKind = kind;
      isNameSet = true;
    }
  } else if (!stays(kind, name)) {
    return false;
  }
  errno = wanted.error;
  return true;
}

}  // namespace

void failCall(const FailingCall& failing) {
  wanted = failing;
  calls = 0;
  failed = false;
  isNameSet = false;
  isOn = true;
}

long callsMade() {
  return calls;
}

bool hasCallFailed() {
  return failed;
}

std::span<const unsigned char> callsNoted() {
  const auto count = static_cast<std::size_t>(calls.load());
  return std::span(noted).first(std::min(count, noted.size()));
}

std::span<const int> errorsOfCall(unsigned char kind) {
  switch (static_cast<Kind>(kind)) {
    case opening:
      return kOfOpening;
    case looking:
      return kOfLooking;
    case lookingAtOpen:
      return kOfLookingAtOpen;
    case listing:
      return kOfListing;
    case reading:
      return kOfReading;
    case writing:
      return kOfWriting;
    case placing:
      return kOfPlacing;
  }
  return {};
}

}  // namespace quillmeter::testing

// In front of the C library's own, and asking the kernel itself.
namespace {
using namespace quillmeter::testing;  // NOLINT(google-build-using-namespace): of this file

int openedAt(int folder, const char* path, int flags, mode_t mode) {
  if (fails((flags & (O_CREAT | O_WRONLY)) != 0 ? placing : opening, path)) return -1;
  return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
}

mode_t modeOf(int flags, va_list& rest) {
  return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(rest, mode_t) : 0;
}
}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = modeOf(flags, rest);
  va_end(rest);
  return openedAt(AT_FDCWD, path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = modeOf(flags, rest);
  va_end(rest);
  return openedAt(folder, path, flags, mode);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
  if (fails(looking, path)) return -1;
  return static_cast<int>(::syscall(SYS_newfstatat, folder, path, status, flags));
}

int stat(const char* path, struct stat* status) noexcept {
  return ::fstatat(AT_FDCWD, path, status, 0);
}

int lstat(const char* path, struct stat* status) noexcept {
  return ::fstatat(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}

int fstat(int file, struct stat* status) noexcept {
  if (fails(lookingAtOpen)) return -1;
  return static_cast<int>(::syscall(SYS_fstat, file, status));
}

int fstatfs(int file, struct statfs* status) noexcept {
  if (fails(lookingAtOpen)) return -1;
  return static_cast<int>(::syscall(SYS_fstatfs, file, status));
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  if (fails(looking, path)) return -1;
  return static_cast<int>(::syscall(SYS_faccessat2, folder, path, mode, flags));
}

char* realpath(const char* path, char* resolved) noexcept {
  if (fails(looking, path)) return nullptr;
  static const auto next = reinterpret_cast<char* (*)(const char*, char*)>(::dlsym(RTLD_NEXT, "realpath"));
  return next(path, resolved);
}

ssize_t getdents64(int folder, void* buffer, size_t size) noexcept {
  if (fails(listing)) return -1;
  return ::syscall(SYS_getdents64, folder, buffer, size);
}

ssize_t read(int file, void* buffer, size_t size) {
  if (fails(reading)) return -1;
  return ::syscall(SYS_read, file, buffer, size);
}

ssize_t write(int file, const void* bytes, size_t size) {
  if (file != STDERR_FILENO && fails(writing)) return -1;
  return ::syscall(SYS_write, file, bytes, size);
}

int fsync(int file) {
  if (fails(writing)) return -1;
  return static_cast<int>(::syscall(SYS_fsync, file));
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  if (fails(placing)) return -1;
  return static_cast<int>(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

int rename(const char* from, const char* to) noexcept {
  if (fails(placing)) return -1;
  return static_cast<int>(::syscall(SYS_rename, from, to));
}

int fchmod(int file, mode_t mode) noexcept {
  if (fails(placing)) return -1;
  return static_cast<int>(::syscall(SYS_fchmod, file, mode));
}
}
