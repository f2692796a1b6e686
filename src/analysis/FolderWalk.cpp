#include "analysis/FolderWalk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "analysis/FileSystem.h"

namespace quillmeter {
namespace {

/// How many folders on the way down stay open. A folder further up is closed and opened again on the way
/// back.
constexpr std::size_t kOpenFolders = 64;

FolderWalk::Type typeOf(int folder, const dirent64& entry) {
  switch (entry.d_type) {
    case DT_REG:
      return FolderWalk::Type::regular;
    case DT_DIR:
      return FolderWalk::Type::folder;
    case DT_LNK:
      return FolderWalk::Type::link;
    case DT_UNKNOWN:
      break;
    default:
      return FolderWalk::Type::other;
  }
  struct stat status {};
  if (::fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) return FolderWalk::Type::other;
  if (S_ISREG(status.st_mode)) return FolderWalk::Type::regular;
  if (S_ISDIR(status.st_mode)) return FolderWalk::Type::folder;
  return S_ISLNK(status.st_mode) ? FolderWalk::Type::link : FolderWalk::Type::other;
}

}  // namespace

/// Walks depth first with a stack of its own, so that no nesting exhausts the thread's.
class FolderWalker {
 public:
  explicit FolderWalker(FolderWalk& walk) : walk_(walk) {}

  void run() {
    const std::string root = walk_.root_.empty() ? "/" : walk_.root_;
    enter(Descriptor(openPath(root, O_RDONLY | O_DIRECTORY | O_CLOEXEC)), FolderWalk::kNone);
    while (!levels_.empty())
      step();
  }

 private:
  struct Child {
    std::uint64_t nameOffset;
    std::uint16_t nameLength;
    FolderWalk::Type type;
  };
  /// A folder being walked: its children are a range of `children_`, of which `next` comes next.
  struct Level {
    Descriptor folder;
    FolderWalk::Index entry;
    std::size_t firstChild;
    std::size_t next;
  };

  /// Lists an open folder and makes it the current level. One that could not be opened is passed over.
  void enter(Descriptor folder, FolderWalk::Index entry) {
    if (!folder) return;
    const std::size_t first = children_.size();
    for (;;) {
      const ssize_t filled = ::getdents64(folder.value(), listing_.data(), listing_.size());
      if (filled <= 0) break;
      list(folder.value(), static_cast<std::size_t>(filled));
    }
    std::sort(children_.begin() + static_cast<std::ptrdiff_t>(first), children_.end(),
              [this](const Child& a, const Child& b) { return name(a) < name(b); });
    levels_.push_back({std::move(folder), entry, first, first});
    if (levels_.size() > kOpenFolders) levels_[levels_.size() - 1 - kOpenFolders].folder.reset();
  }

  /// Notes the entries of one filled listing buffer as children.
  void list(int folder, std::size_t filled) {
    for (std::size_t at = 0; at < filled;) {
      const auto& entry = *reinterpret_cast<const dirent64*>(listing_.data() + at);
      at += entry.d_reclen;
      const std::string_view name = entry.d_name;
      if (name == "." || name == "..") continue;
      children_.push_back(
          {walk_.names_.size(), static_cast<std::uint16_t>(name.size()), typeOf(folder, entry)});
      walk_.names_.append(name).push_back('\0');
    }
  }

  /// Takes the next child of the current level, or goes back up.
  void step() {
    Level& level = levels_.back();
    if (level.next == children_.size()) return leave();
    const Child child = children_[level.next++];
    const auto entry = static_cast<FolderWalk::Index>(walk_.entries_.size());
    walk_.entries_.push_back({child.nameOffset, level.entry, child.nameLength, child.type});
    if (child.type != FolderWalk::Type::folder) return;
    if (!level.folder) {
      level.folder = Descriptor(openPath(walk_.path(level.entry), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    if (!level.folder) return;
    enter(Descriptor(::openat(level.folder.value(), walk_.names_.data() + child.nameOffset,
                              O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)),
          entry);
  }

  void leave() {
    children_.resize(levels_.back().firstChild);
    levels_.pop_back();
  }

  [[nodiscard]] std::string_view name(const Child& child) const {
    return std::string_view(walk_.names_).substr(child.nameOffset, child.nameLength);
  }

  FolderWalk& walk_;
  std::vector<Level> levels_;
  std::vector<Child> children_;
  alignas(dirent64) std::array<char, 1 << 15> listing_{};
};

FolderWalk::FolderWalk(std::string_view root) {
  while (root.ends_with('/'))
    root.remove_suffix(1);
  root_ = root;
  FolderWalker(*this).run();
  entries_.shrink_to_fit();
  names_.shrink_to_fit();
}

std::string FolderWalk::path(Index entry) const {
  std::size_t length = root_.size();
  for (Index i = entry; i != kNone; i = parent(i))
    length += 1 + name(i).size();
  std::string result(length, '/');
  std::copy(root_.begin(), root_.end(), result.begin());
  for (Index i = entry; i != kNone; i = parent(i)) {
    const std::string_view piece = name(i);
    length -= piece.size();
    std::copy(piece.begin(), piece.end(), result.begin() + static_cast<std::ptrdiff_t>(length));
    --length;
  }
  return result;
}

}  // namespace quillmeter
