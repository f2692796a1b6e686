#include "files/FileSystem.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>

#include "support/Uninterrupted.h"

namespace quillmeter {
namespace {

DiskError lastError() {
  return {errno};
}

Result<Descriptor> opened(int descriptor) {
  if (descriptor < 0) return lastError();
  return Descriptor(descriptor);
}

/// A call that is about what is at `path`, made again for as long as signals interrupt it. No path holds a
/// zero byte, but the system would stop reading one there and take what lies in front of it for the whole.
template <class Call>
auto uninterruptedAt(const std::string& path, const Call& call) -> decltype(call()) {
  if (path.find('\0') != std::string::npos) return DiskError{ENOENT};
  return uninterrupted(call);
}

/// A path cut so that the system takes it: what is left of it, relative to an open folder.
struct ShortenedPath {
  Descriptor folder;
  std::string rest;
  [[nodiscard]] int folderValue() const { return folder ? folder.value() : AT_FDCWD; }
};

/// Opens folder after folder until the rest of `path` is short enough for one call; fails when a folder on
/// the way cannot be opened.
Result<ShortenedPath> shortened(std::string_view path) {
  ShortenedPath result;
  while (path.size() >= PATH_MAX) {
    const std::size_t cut = path.rfind('/', PATH_MAX - 2);
    if (cut == std::string_view::npos || cut == 0) return DiskError{ENAMETOOLONG};
    const std::string head(path.substr(0, cut));
    Descriptor next(::openat(result.folderValue(), head.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!next) return lastError();
    result.folder = std::move(next);
    path.remove_prefix(cut + 1);
  }
  result.rest = path;
  return result;
}

/// open(2) for a path of any length.
Result<Descriptor> openPath(const std::string& path, int flags) {
  if (path.size() < PATH_MAX) return opened(::open(path.c_str(), flags));
  const auto parts = shortened(path);
  if (!parts) return parts.error();
  return opened(::openat(parts->folderValue(), parts->rest.c_str(), flags));
}

FileStatus meaningOf(const struct stat& status) {
  FileStatus result;
  if (S_ISREG(status.st_mode)) result.type = FileStatus::Type::regular;
  if (S_ISDIR(status.st_mode)) result.type = FileStatus::Type::folder;
  result.size = static_cast<std::uint64_t>(status.st_size);
  return result;
}

Result<FileStatus> statusOf(int folder, const char* path) {
  struct stat status {};
  if (::fstatat(folder, path, &status, 0) != 0) return lastError();
  return meaningOf(status);
}

EntryType typeOf(const dirent64& entry) {
  switch (entry.d_type) {
    case DT_REG:
      return EntryType::regular;
    case DT_DIR:
      return EntryType::folder;
    case DT_LNK:
      return EntryType::link;
    case DT_UNKNOWN:
      return EntryType::unknown;
    default:
      return EntryType::other;
  }
}

/// Calls `use(name, type)` for each entry of a filled buffer but "." and "..".
template <class Use>
void forEachEntry(std::span<const char> filled, const Use& use) {
  for (std::size_t at = 0; at < filled.size();) {
    const auto& entry = *reinterpret_cast<const dirent64*>(filled.data() + at);
    at += entry.d_reclen;
    const std::string_view name = entry.d_name;
    if (name != "." && name != "..") use(name, typeOf(entry));
  }
}

}  // namespace

DiskError::Kind DiskError::kind() const {
  switch (number) {
    case 0:
      return Kind::none;
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
      return Kind::missing;
    case EACCES:
    case EPERM:
      return Kind::noPermission;
    case EMFILE:
    case ENFILE:
      return Kind::fewDescriptors;
    case ECANCELED:
      return Kind::stopped;
    default:
      return Kind::other;
  }
}

Descriptor::~Descriptor() {
  reset();
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(value_, other.value_);
  return *this;
}

void Descriptor::reset() {
  if (value_ < 0) return;
  const int error = errno;
  ::close(std::exchange(value_, -1));
  errno = error;
}

void FolderListing::reserve(std::size_t moreEntries, std::size_t moreNameBytes) {
  // Exact for the first, and by doubling for what follows, so that many small steps cost no more than few.
  const auto grow = [](auto& list, std::size_t more) {
    const std::size_t wanted = list.size() + more;
    if (wanted > list.capacity()) list.reserve(list.empty() ? wanted : std::max(wanted, 2 * list.capacity()));
  };
  grow(entries_, moreEntries);
  grow(names_, moreNameBytes);
}

void FolderListing::add(std::string_view name, EntryType type) {
  entries_.push_back({names_.size(), static_cast<std::uint16_t>(name.size()), type});
  names_.append(name).push_back('\0');
}

void FolderListing::sort() {
  std::sort(entries_.begin(), entries_.end(),
            [this](const Entry& a, const Entry& b) { return name(a) < name(b); });
}

Result<FileStatus> FileSystem::status(const std::string& path) const {
  return uninterruptedAt(path, [&] { return doStatus(path); });
}
Result<FileStatus> FileSystem::statusInFolder(const Descriptor& folder, const std::string& name) const {
  return uninterruptedAt(name, [&] { return doStatusInFolder(folder, name); });
}
Result<FileStatus> FileSystem::statusOfOpen(const Descriptor& file) const {
  return uninterrupted([&] { return doStatusOfOpen(file); });
}
Result<Descriptor> FileSystem::openFolder(const std::string& path) const {
  return uninterruptedAt(path, [&] { return doOpenFolder(path); });
}
Result<Descriptor> FileSystem::openListing(const std::string& path, Links links) const {
  return uninterruptedAt(path, [&] { return doOpenListing(path, links); });
}
Result<Descriptor> FileSystem::openListingIn(const Descriptor& parent, const char* name) const {
  return uninterrupted([&] { return doOpenListingIn(parent, name); });
}
Result<bool> FileSystem::listSome(const Descriptor& folder, FolderListing& listing) const {
  return uninterrupted([&] { return doListSome(folder, listing); });
}
Result<EntryType> FileSystem::entryType(const Descriptor& folder, const char* name) const {
  return uninterrupted([&] { return doEntryType(folder, name); });
}
Result<Descriptor> FileSystem::open(const std::string& path) const {
  return uninterruptedAt(path, [&] { return doOpen(path); });
}
Result<std::size_t> FileSystem::read(int descriptor, std::span<char> buffer) const {
  return uninterrupted([&] { return doRead(descriptor, buffer); });
}
Result<bool> FileSystem::isMadeByKernel(const Descriptor& file) const {
  return uninterrupted([&] { return doIsMadeByKernel(file); });
}

Result<std::string> FileSystem::realPath(const std::string& path) const {
  return uninterruptedAt(path, [&] { return doRealPath(path); });
}

Result<FileStatus> FileSystem::doStatus(const std::string& path) const {
  if (path.size() < PATH_MAX) return statusOf(AT_FDCWD, path.c_str());
  const auto parts = shortened(path);
  if (!parts) return parts.error();
  return statusOf(parts->folderValue(), parts->rest.c_str());
}

Result<FileStatus> FileSystem::doStatusInFolder(const Descriptor& folder, const std::string& name) const {
  return statusOf(folder.value(), name.c_str());
}

Result<FileStatus> FileSystem::doStatusOfOpen(const Descriptor& file) const {
  struct stat status {};
  if (::fstat(file.value(), &status) != 0) return lastError();
  return meaningOf(status);
}

Result<Descriptor> FileSystem::doOpenFolder(const std::string& path) const {
  return openPath(path, O_PATH | O_DIRECTORY | O_CLOEXEC);
}

Result<Descriptor> FileSystem::doOpenListing(const std::string& path, Links links) const {
  const int noLink = links == Links::refuse ? O_NOFOLLOW : 0;
  return openPath(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC | noLink);
}

Result<Descriptor> FileSystem::doOpenListingIn(const Descriptor& parent, const char* name) const {
  return opened(::openat(parent.value(), name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

Result<bool> FileSystem::doListSome(const Descriptor& folder, FolderListing& listing) const {
  alignas(dirent64) std::array<char, std::size_t{1} << 15> buffer;  // NOLINT: filled by the call
  const ssize_t count = ::getdents64(folder.value(), buffer.data(), buffer.size());
  // Of a folder that is removed meanwhile: it is not missing, its list is.
  if (count < 0) return errno == ENOENT ? DiskError{ESTALE} : lastError();
  const std::span<const char> filled = std::span(buffer).first(static_cast<std::size_t>(count));
  std::size_t entries = 0;
  std::size_t bytes = 0;
  // Exact, since a walk keeps the lists of many small folders, whose names take no memory of their own then.
  forEachEntry(filled, [&](std::string_view name, EntryType /*type*/) {
    ++entries;
    bytes += name.size() + 1;
  });
  listing.reserve(entries, bytes);
  forEachEntry(filled, [&](std::string_view name, EntryType type) { listing.add(name, type); });
  return count > 0;
}

Result<EntryType> FileSystem::doEntryType(const Descriptor& folder, const char* name) const {
  struct stat status {};
  if (::fstatat(folder.value(), name, &status, AT_SYMLINK_NOFOLLOW) != 0) return lastError();
  if (S_ISREG(status.st_mode)) return EntryType::regular;
  if (S_ISDIR(status.st_mode)) return EntryType::folder;
  return S_ISLNK(status.st_mode) ? EntryType::link : EntryType::other;
}

Result<Descriptor> FileSystem::doOpen(const std::string& path) const {
  return openPath(path, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
}

Result<std::size_t> FileSystem::doRead(int descriptor, std::span<char> buffer) const {
  const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
  if (count < 0) return lastError();
  return static_cast<std::size_t>(count);
}

Result<bool> FileSystem::doIsMadeByKernel(const Descriptor& file) const {
  constexpr std::array<std::uint32_t, 12> kMade = {
      PROC_SUPER_MAGIC,   SYSFS_MAGIC,         DEBUGFS_MAGIC,    TRACEFS_MAGIC,
      CGROUP_SUPER_MAGIC, CGROUP2_SUPER_MAGIC, SECURITYFS_MAGIC, BPF_FS_MAGIC,
      PSTOREFS_MAGIC,     EFIVARFS_MAGIC,      SELINUX_MAGIC,    0x62656570 /* configfs */};
  struct statfs status {};
  if (::fstatfs(file.value(), &status) != 0) return lastError();
  return std::find(kMade.begin(), kMade.end(), static_cast<std::uint32_t>(status.f_type)) != kMade.end();
}

Result<std::string> FileSystem::doRealPath(const std::string& path) const {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
  if (!real) return lastError();
  return std::string(real.get());
}

const FileSystem& FileSystem::real() {
  static const FileSystem fileSystem;
  return fileSystem;
}

}  // namespace quillmeter
