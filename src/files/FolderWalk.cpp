#include "files/FolderWalk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <future>
#include <memory>
#include <system_error>
#include <utility>

#include "files/FileSystem.h"

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

struct FolderChild {
  std::uint64_t nameOffset;
  std::uint16_t nameLength;
  FolderWalk::Type type;
};

/// Lists open folders into a walk's names, with one buffer for all of them.
class FolderLister {
 public:
  /// Appends the folder's entries to `children`, in ascending byte order of their names, and their names to
  /// `names`, each followed by a NUL.
  void list(int folder, std::string& names, std::vector<FolderChild>& children) {
    const std::size_t first = children.size();
    for (;;) {
      const ssize_t filled = ::getdents64(folder, buffer_.data(), buffer_.size());
      if (filled <= 0) break;
      take(folder, static_cast<std::size_t>(filled), names, children);
    }
    const auto name = [&names](const FolderChild& child) {
      return std::string_view(names).substr(child.nameOffset, child.nameLength);
    };
    std::sort(children.begin() + static_cast<std::ptrdiff_t>(first), children.end(),
              [&name](const FolderChild& a, const FolderChild& b) { return name(a) < name(b); });
  }

 private:
  void take(int folder, std::size_t filled, std::string& names, std::vector<FolderChild>& children) const {
    for (std::size_t at = 0; at < filled;) {
      const auto& entry = *reinterpret_cast<const dirent64*>(buffer_.data() + at);
      at += entry.d_reclen;
      const std::string_view name = entry.d_name;
      if (name == "." || name == "..") continue;
      children.push_back({names.size(), static_cast<std::uint16_t>(name.size()), typeOf(folder, entry)});
      names.append(name).push_back('\0');
    }
  }

  alignas(dirent64) std::array<char, 1 << 15> buffer_;
};

Descriptor openFolder(int parent, const char* name) {
  return Descriptor(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

}  // namespace

/// Walks depth first with a stack of its own, so that no nesting exhausts the thread's.
class FolderWalker {
 public:
  explicit FolderWalker(FolderWalk& walk) : walk_(walk) {}

  /// Walks everything below an open folder; one that could not be opened has nothing below it.
  void run(Descriptor folder) {
    enter(std::move(folder), FolderWalk::kNone);
    while (!levels_.empty())
      step();
  }

 private:
  /// A folder being walked: its children are a range of `children_`, of which `next` comes next.
  struct Level {
    Descriptor folder;
    FolderWalk::Index entry;
    std::size_t firstChild;
    std::size_t next;
  };

  void enter(Descriptor folder, FolderWalk::Index entry) {
    if (!folder) return;
    const std::size_t first = children_.size();
    lister_.list(folder.value(), walk_.names_, children_);
    levels_.push_back({std::move(folder), entry, first, first});
    if (levels_.size() > kOpenFolders) levels_[levels_.size() - 1 - kOpenFolders].folder.reset();
  }

  /// Takes the next child of the current level, or goes back up.
  void step() {
    Level& level = levels_.back();
    if (level.next == children_.size()) return leave();
    const FolderChild child = children_[level.next++];
    const auto entry = static_cast<FolderWalk::Index>(walk_.entries_.size());
    walk_.entries_.push_back({child.nameOffset, level.entry, child.nameLength, child.type});
    if (child.type != FolderWalk::Type::folder) return;
    if (!level.folder) {
      level.folder = Descriptor(openPath(walk_.path(level.entry), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    if (level.folder) enter(openFolder(level.folder.value(), walk_.names_.data() + child.nameOffset), entry);
  }

  void leave() {
    children_.resize(levels_.back().firstChild);
    levels_.pop_back();
  }

  FolderWalk& walk_;
  std::vector<Level> levels_;
  std::vector<FolderChild> children_;
  FolderLister lister_;
};

/// Moves the calling thread away from a processor, where there is another. Left alone, the system often lets
/// a thread that lives for milliseconds wait for the processor of the one that made it.
void leaveProcessor(int processor) {
  cpu_set_t processors;
  if (processor < 0 || ::sched_getaffinity(0, sizeof(processors), &processors) != 0) return;
  CPU_CLR(static_cast<std::size_t>(processor), &processors);
  if (CPU_COUNT(&processors) > 0) ::sched_setaffinity(0, sizeof(processors), &processors);
}

/// Walks the folders directly inside the root by two threads, which take them in turn and are done when `run`
/// returns. A walk waits for the disk and the system most of the time, and is most of what reading a project
/// takes.
class SharedFolderWalk {
 public:
  explicit SharedFolderWalk(FolderWalk& walk) : walk_(walk) {}

  void run(const Descriptor& root) {
    if (!root) return;
    std::make_unique<FolderLister>()->list(root.value(), names_, children_);
    parts_.resize(children_.size());
    const auto folders = std::count_if(children_.begin(), children_.end(), [](const FolderChild& child) {
      return child.type == FolderWalk::Type::folder;
    });
    walkTogether(root, folders > 1);
    putTogether();
  }

 private:
  /// What the other thread fails of, memory say, is a failure of the walk.
  void walkTogether(const Descriptor& root, bool wantsHelp) {
    std::future<void> helper;  // waited for on every way out
    try {
      const int processor = ::sched_getcpu();
      if (wantsHelp) {
        helper = std::async(std::launch::async, [this, &root, processor] {
          leaveProcessor(processor);
          walkParts(root);
        });
      }
    } catch (const std::system_error&) {
      // No thread to be had: this one walks alone.
    }
    walkParts(root);
    if (helper.valid()) helper.get();
  }

  void walkParts(const Descriptor& root) {
    for (std::size_t i = next_++; i < children_.size(); i = next_++) {
      if (children_[i].type != FolderWalk::Type::folder) continue;
      const char* name = names_.data() + children_[i].nameOffset;
      parts_[i].root_ = walk_.root_ + "/" + name;
      const auto walker = std::make_unique<FolderWalker>(parts_[i]);
      walker->run(openFolder(root.value(), name));
    }
  }

  void putTogether() {
    std::size_t entries = children_.size();
    std::size_t names = names_.size();
    for (const FolderWalk& part : parts_) {
      entries += part.entries_.size();
      names += part.names_.size();
    }
    walk_.entries_.reserve(entries);
    walk_.names_.reserve(names);
    walk_.names_ = names_;
    for (std::size_t i = 0; i < children_.size(); ++i) {
      const FolderChild& child = children_[i];
      walk_.entries_.push_back({child.nameOffset, FolderWalk::kNone, child.nameLength, child.type});
      append(std::exchange(parts_[i], {}));
    }
  }

  /// Appends what lies below the entry that was appended last.
  void append(const FolderWalk& part) {
    const auto folder = static_cast<FolderWalk::Index>(walk_.entries_.size() - 1);
    const std::uint64_t names = walk_.names_.size();
    for (FolderWalk::Entry entry : part.entries_) {
      entry.nameOffset += names;
      entry.parent = entry.parent == FolderWalk::kNone ? folder : entry.parent + folder + 1;
      walk_.entries_.push_back(entry);
    }
    walk_.names_.append(part.names_);
  }

  FolderWalk& walk_;
  std::string names_;
  std::vector<FolderChild> children_;
  std::vector<FolderWalk> parts_;
  std::atomic<std::size_t> next_ = 0;
};

FolderWalk::FolderWalk(std::string_view root) {
  while (root.ends_with('/'))
    root.remove_suffix(1);
  root_ = root;
  SharedFolderWalk(*this).run(
      Descriptor(openPath(root_.empty() ? "/" : root_, O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
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
