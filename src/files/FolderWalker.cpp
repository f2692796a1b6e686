#include "files/FolderWalker.h"

#include <algorithm>
#include <utility>

namespace quillmeter {
namespace {

/// How many folders stay open for the folders in them.
constexpr int kKeptFolders = 64;

}  // namespace

FolderWalker::FolderWalker(FolderWalk& walk, const FileSystem& fileSystem, WorkerPool& pool)
    : walk_(walk), fileSystem_(fileSystem), pool_(pool) {}

FolderWalker::~FolderWalker() {
  pool_.drop();
}

void FolderWalker::run() {
  list(folders_.emplace_back());
  pool_.workUntilIdle();
  listPostponed();
  putTogether();
}

/// With nothing else open any more, what still cannot be opened stays unlisted.
void FolderWalker::listPostponed() {
  if (postponed_.empty()) return;
  pool_.workAlone();
  isShort_ = true;
  for (Folder* folder : std::exchange(postponed_, {}))
    pool_.add(taskFor(*folder));
  pool_.workUntilIdle();
}

void FolderWalker::list(Folder& folder) {
  Result<Descriptor> handle = opened(folder);
  if (handle) {
    listAll(folder, *handle);
    addInner(folder, *std::move(handle));
  } else if (handle.error().kind() == DiskError::Kind::fewDescriptors && !isShort_) {
    const std::lock_guard lock(mutex_);
    postponed_.push_back(&folder);
  } else {
    folder.error = handle.error();
  }
}

Result<Descriptor> FolderWalker::opened(Folder& folder) {
  if (folder.parent == nullptr) {
    return fileSystem_.openListing(walk_.root_.empty() ? "/" : walk_.root_, FileSystem::Links::follow);
  }
  if (!folder.parent->handle) return fileSystem_.openListing(pathOf(folder), FileSystem::Links::refuse);
  const char* name = folder.parent->listing.names().data() + folder.nameOffset;
  Result<Descriptor> handle = fileSystem_.openListingIn(folder.parent->handle, name);
  letGoOfParent(folder);
  return handle;
}

/// Closes the folder's parent when this was the last folder that waited for it.
void FolderWalker::letGoOfParent(Folder& folder) {
  if (folder.parent->unopened.fetch_sub(1) != 1) return;
  folder.parent->handle.reset();
  --kept_;
}

void FolderWalker::listAll(Folder& folder, const Descriptor& handle) {
  for (;;) {
    const auto more = fileSystem_.listSome(handle, folder.listing);
    if (!more) folder.error = more.error();
    if (!more || !*more) break;
  }
  for (auto& entry : folder.listing.entries()) {
    if (entry.type != EntryType::unknown) continue;
    const auto type = fileSystem_.entryType(handle, folder.listing.name(entry).data());
    if (!type) folder.error = type.error();
    entry.type = type ? *type : EntryType::other;
  }
  folder.listing.sort();
}

/// Lets the folders in a listed folder be listed in turn.
void FolderWalker::addInner(Folder& folder, Descriptor handle) {
  const auto& entries = folder.listing.entries();
  const auto isFolder = [](const auto& entry) { return entry.type == EntryType::folder; };
  const auto count = std::count_if(entries.begin(), entries.end(), isFolder);
  if (count == 0) return;
  if (const int kept = kept_++; kept < kKeptFolders && !isShort_) {
    folder.unopened = static_cast<std::uint32_t>(count);
    folder.handle = std::move(handle);
  } else {
    --kept_;
    handle.reset();
  }
  std::vector<WorkerPool::Task> tasks;
  tasks.reserve(static_cast<std::size_t>(count));
  {
    const std::lock_guard lock(mutex_);
    folder.firstInner = folders_.size();
    for (const auto& entry : entries) {
      if (!isFolder(entry)) continue;
      Folder& found = folders_.emplace_back();
      found.parent = &folder;
      found.nameOffset = entry.nameOffset;
      tasks.push_back(taskFor(found));
    }
  }
  // Put before all others, so that the way leads down and few folders wait for theirs.
  pool_.addFirst(std::move(tasks));
}

WorkerPool::Task FolderWalker::taskFor(Folder& folder) {
  return [this, &folder] { list(folder); };
}

std::string FolderWalker::pathOf(const Folder& folder) const {
  std::vector<std::string_view> pieces;
  for (const Folder* at = &folder; at->parent != nullptr; at = at->parent)
    pieces.emplace_back(at->parent->listing.names().data() + at->nameOffset);
  std::string path = walk_.root_;
  for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece)
    path.append("/").append(*piece);
  return path;
}

/// Goes through the folders as a walk would, with a stack of its own, so that no nesting exhausts the
/// thread's. A listing is let go of once it is copied.
void FolderWalker::putTogether() {
  std::size_t entries = 0;
  std::size_t names = 0;
  for (const Folder& folder : folders_) {
    entries += folder.listing.entries().size();
    names += folder.listing.names().size();
  }
  walk_.entries_.reserve(entries);
  walk_.names_.reserve(names);

  struct Level {
    Folder* folder;
    FolderWalk::Index entry;
    std::uint64_t names;  ///< where its names begin
    std::size_t next = 0;
    std::size_t nextInner = 0;
  };
  std::vector<Level> levels;
  const auto enter = [&](Folder& folder, FolderWalk::Index entry) {
    note(folder, entry);
    levels.push_back({&folder, entry, walk_.names_.size(), 0, folder.firstInner});
    walk_.names_.append(folder.listing.names());
  };
  enter(folders_.front(), FolderWalk::kNone);
  while (!levels.empty()) {
    Level& level = levels.back();
    const auto& found = level.folder->listing.entries();
    if (level.next == found.size()) {
      level.folder->listing = {};
      levels.pop_back();
      continue;
    }
    const auto& child = found[level.next++];
    const FolderWalk::Index entry = walk_.size();
    walk_.entries_.push_back({level.names + child.nameOffset, level.entry, child.nameLength, child.type});
    if (child.type == EntryType::folder) enter(folders_[level.nextInner++], entry);
  }
}

void FolderWalker::note(const Folder& folder, FolderWalk::Index entry) {
  if (!folder.error) return;
  const std::string path = entry == FolderWalk::kNone ? walk_.root_ : walk_.path(entry);
  walk_.faults_.note(path.empty() ? "/" : path, folder.error);
  if (folder.error.kind() == DiskError::Kind::fewDescriptors) walk_.wants_.note(path, folder.error);
}

}  // namespace quillmeter
