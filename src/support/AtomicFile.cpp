#include "support/AtomicFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <system_error>
#include <utility>

#include "support/PartFiles.h"
#include "support/WritingSystem.h"

namespace quillmeter {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;
constexpr int kMaximumLinks = 40;

/// Where a chain of links ends, also when nothing exists there; empty when the chain is a loop.
std::string linkTarget(const WritingSystem& system, std::string path) {
  for (int followed = 0; followed < kMaximumLinks; ++followed) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = system.readLink(path, target.data(), target.size());
    if (length < 0) return path;
    const std::string_view text(target.data(), static_cast<std::size_t>(length));
    const std::size_t slash = path.rfind('/');
    const std::string_view folder =
        slash == std::string::npos ? std::string_view() : std::string_view(path).substr(0, slash + 1);
    path = text.starts_with('/') ? std::string(text) : std::string(folder).append(text);
  }
  return {};
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path, const WritingSystem& system)
    : system_(system), destination_(linkTarget(system, path)) {
  if (destination_.empty()) {
    fail(path.empty() ? ENOENT : ELOOP);
  } else {
    open();
  }
}

void AtomicFile::open() {
  struct stat old {};
  const bool exists = system_.status(destination_, old) == 0;
  if (!exists && errno != ENOENT) return fail(errno);
  if (exists && S_ISDIR(old.st_mode)) return fail(EISDIR);
  if (exists && !S_ISREG(old.st_mode)) return fail("Not a regular file");
  if (exists && system_.accessForWriting(destination_) != 0) return fail(errno);
  const std::string folder = folderOf(destination_);
  removeLeftoverParts(system_, folder);
  // Nobody reads what replaces a private file before it has the old one's permissions.
  openPart(folder, exists ? S_IRUSR | S_IWUSR : 0666);
  if (exists && !error_) keepOwnerAndMode(old);
}

void AtomicFile::openPart(const std::string& folder, mode_t mode) {
  descriptor_ = system_.openUnnamed(folder, mode);
  if (descriptor_ >= 0) {
    // No other process can have it yet. Where nothing can be locked, nobody takes it for a leftover either.
    [[maybe_unused]] const int locked = system_.lock(descriptor_);
    return;
  }
  do {
    removeTemporary();
    temporary_ = newPartPath(folder);
    descriptor_ = system_.openNew(temporary_, mode);
    if (descriptor_ >= 0) continue;
    temporary_.clear();
    if (errno != EEXIST) return fail(errno);
  } while (descriptor_ < 0 || wasTakenForLeftover());
}

/// Another process may have come upon the new file before it could be locked, and removed it or be about to.
bool AtomicFile::wasTakenForLeftover() const {
  if (system_.lock(descriptor_) != 0) return errno == EWOULDBLOCK;
  struct stat status {};
  return system_.statusOfOpen(descriptor_, status) == 0 && status.st_nlink == 0;
}

/// Not the set-user and set-group bits: they were given to another content. An owner whom the system does not
/// let this process give a file to is not kept, and neither is such a group.
void AtomicFile::keepOwnerAndMode(const struct stat& old) {
  struct stat part {};
  if (system_.statusOfOpen(descriptor_, part) != 0) return fail(errno);
  constexpr auto unchanged = static_cast<uid_t>(-1);
  const bool foreign = part.st_uid != old.st_uid || part.st_gid != old.st_gid;
  if (foreign && system_.setOwner(descriptor_, old.st_uid, old.st_gid) != 0 &&
      system_.setOwner(descriptor_, unchanged, old.st_gid) != 0 && errno != EPERM) {
    return fail(errno);
  }
  if (system_.setMode(descriptor_, old.st_mode & 0777U) != 0) fail(errno);
}

AtomicFile::~AtomicFile() {
  removeTemporary();
}

void AtomicFile::write(std::string_view bytes) {
  if (error_) return;
  buffer_.append(bytes);
  if (buffer_.size() >= kBufferSize) flush();
}

void AtomicFile::flush() {
  std::string_view rest = buffer_;
  while (!rest.empty() && !error_) {
    const ssize_t written = system_.write(descriptor_, rest);
    if (written >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
    } else {
      fail(errno);
    }
  }
  buffer_.clear();
}

std::optional<std::string> AtomicFile::commit() {
  if (!error_) flush();
  if (error_) return error_;
  if (system_.sync(descriptor_) != 0) fail(errno);
  if (!error_ && temporary_.empty()) nameUnnamed();
  if (!error_ && system_.rename(temporary_, destination_) != 0) fail(errno);
  if (error_) return error_;
  temporary_.clear();
  // It was held until it had its place. Nothing is left to fail in closing what the disk has confirmed.
  ::close(std::exchange(descriptor_, -1));
  return std::nullopt;
}

/// A link does not replace a file as a rename does, so a file without a name gets a temporary one first.
void AtomicFile::nameUnnamed() {
  int linked = -1;
  do {
    temporary_ = newPartPath(folderOf(destination_));
    linked = system_.link(descriptor_, temporary_);
  } while (linked != 0 && errno == EEXIST);
  if (linked == 0) return;
  temporary_.clear();
  fail(errno);
}

void AtomicFile::fail(int errorNumber) {
  removeTemporary();  // before memory is asked for, which might be refused
  fail(std::generic_category().message(errorNumber));
}

void AtomicFile::fail(const std::string& reason) {
  if (!error_) error_ = reason;
  removeTemporary();
}

void AtomicFile::removeTemporary() {
  if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
  if (!temporary_.empty()) system_.remove(std::exchange(temporary_, {}));
}

std::string folderOfOutput(const std::string& path) {
  const std::string destination = linkTarget(WritingSystem::real(), path);
  return destination.empty() ? std::string() : folderOf(destination);
}

std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view bytes,
                                               const WritingSystem& system) {
  AtomicFile file(path, system);
  file.write(bytes);
  return file.commit();
}

}  // namespace quillmeter
