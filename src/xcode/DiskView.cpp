#include "xcode/DiskView.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

namespace quillmeter {
namespace {

using Type = FolderEntry::Type;

/// The type of an entry as its folder tells it, or asked for where the folder does not.
unsigned char directoryType(DIR* folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return entry.d_type;
  struct stat status {};
  if (::fstatat(::dirfd(folder), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) return DT_UNKNOWN;
  return static_cast<unsigned char>(IFTODT(status.st_mode));
}

bool leadsToFile(DIR* folder, const char* link) {
  struct stat status {};
  return ::fstatat(::dirfd(folder), link, &status, 0) == 0 && S_ISREG(status.st_mode);
}

Type typeOf(DIR* folder, const dirent& entry) {
  const unsigned char type = directoryType(folder, entry);
  if (type == DT_DIR) return Type::folder;
  if (type == DT_REG || (type == DT_LNK && leadsToFile(folder, entry.d_name))) return Type::file;
  return Type::neither;
}

bool canExist(const std::string& path) {
  return path.find('\0') == std::string::npos;
}

}  // namespace

std::optional<FileStatus::Type> DiskView::typeAt(const std::string& path) const {
  const auto status = canExist(path) ? fileSystem_.status(path) : std::nullopt;
  if (!status) return std::nullopt;
  return status->type;
}

const DiskView::Entries& DiskView::entries(const std::string& folder) {
  const auto found = entries_.find(folder);
  return found != entries_.end() ? found->second : entries_.emplace(folder, listed(folder)).first->second;
}

std::vector<std::string> DiskView::listedFolders() const {
  std::vector<std::string> folders;
  for (const auto& entry : entries_)
    folders.push_back(entry.first);
  return folders;
}

DiskView::Entries DiskView::listed(const std::string& path) const {
  Entries entries;
  const int descriptor = canExist(path) ? openPath(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1;
  if (descriptor < 0) return entries;
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(::fdopendir(descriptor), ::closedir);
  while (const dirent* entry = ::readdir(folder.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") entries.push_back({std::string(name), typeOf(folder.get(), *entry)});
  }
  std::sort(entries.begin(), entries.end(),
            [](const FolderEntry& left, const FolderEntry& right) { return left.name < right.name; });
  return entries;
}

}  // namespace quillmeter
