#include "support/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <random>
#include <system_error>
#include <utility>

#include "support/Paths.h"

namespace quillmeter {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;
constexpr int kMaximumLinks = 40;

/// Where a chain of links ends, also when nothing exists there; empty when the chain is a loop.
std::string linkTarget(std::string path) {
  for (int followed = 0; followed < kMaximumLinks; ++followed) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
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

/// Makes a file of a name that is not taken in `folder`, with the permissions of a new file.
int openTemporary(const std::string& folder, std::string& path) {
  std::random_device random;
  for (;;) {
    path = joinedPath(folder, ".quillmeter-" + std::to_string(random()) + ".part");
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor >= 0 || errno != EEXIST) return descriptor;
  }
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path) : destination_(linkTarget(path)) {
  if (destination_.empty()) {
    fail(path.empty() ? ENOENT : ELOOP);
  } else {
    openPart();
  }
}

void AtomicFile::openPart() {
  struct stat status {};
  const bool exists = ::stat(destination_.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) return fail(EISDIR);
  if (exists && !S_ISREG(status.st_mode)) return fail("Not a regular file");
  descriptor_ = openTemporary(folderOf(destination_), temporary_);
  const int reason = errno;
  if (descriptor_ < 0) temporary_.clear();
  if (descriptor_ < 0) return fail(reason);
  if (exists && ::fchmod(descriptor_, status.st_mode & 07777U) != 0) fail(errno);
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
    const ssize_t written = ::write(descriptor_, rest.data(), rest.size());
    if (written >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      fail(errno);
    }
  }
  buffer_.clear();
}

std::optional<std::string> AtomicFile::commit() {
  if (!error_) flush();
  if (error_) return error_;
  if (::fsync(descriptor_) != 0) fail(errno);
  if (!error_ && ::close(std::exchange(descriptor_, -1)) != 0) fail(errno);
  if (!error_ && ::rename(temporary_.c_str(), destination_.c_str()) != 0) fail(errno);
  if (!error_) temporary_.clear();
  return error_;
}

void AtomicFile::fail(int errorNumber) {
  fail(std::generic_category().message(errorNumber));
}

void AtomicFile::fail(const std::string& reason) {
  if (!error_) error_ = reason;
  removeTemporary();
}

void AtomicFile::removeTemporary() {
  if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
  if (!temporary_.empty()) ::unlink(std::exchange(temporary_, {}).c_str());
}

std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view bytes) {
  AtomicFile file(path);
  file.write(bytes);
  return file.commit();
}

}  // namespace quillmeter
