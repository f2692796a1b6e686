#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileSystem.h"
#include "files/ReadFaults.h"

namespace quillmeter {

class WorkerPool;

/// Every entry below a folder, in walk order: each folder's entries in ascending byte order of their names, a
/// folder followed at once by its contents. Links to folders are listed and not entered; a folder that cannot
/// be read is listed and has no contents. Names are kept once and paths put together on demand, so a million
/// entries take a few dozen megabytes.
class FolderWalk {
 public:
  using Index = std::uint32_t;
  /// No entry: the parent of what lies directly in the walked folder.
  static constexpr Index kNone = 0xFFFFFFFF;

  /// Never `unknown`.
  using Type = EntryType;

  /// An empty walk of no folder.
  FolderWalk() = default;
  /// Walks `root` now, on the threads of `pool`, which the caller owns and has no task in. A root that cannot
  /// be read has no entries. Trailing "/" are left out of the paths. What the pool's threads fail of, memory
  /// say, the walk fails of.
  FolderWalk(std::string_view root, const FileSystem& fileSystem, WorkerPool& pool);
  /// The same with threads of its own, and the disk itself unless told otherwise.
  explicit FolderWalk(std::string_view root, const FileSystem& fileSystem = FileSystem::real());

  [[nodiscard]] Index size() const { return static_cast<Index>(entries_.size()); }
  [[nodiscard]] std::string_view name(Index entry) const {
    return std::string_view(names_).substr(entries_[entry].nameOffset, entries_[entry].nameLength);
  }
  /// The folder that the entry lies in; `kNone` for the walked folder itself.
  [[nodiscard]] Index parent(Index entry) const { return entries_[entry].parent; }
  [[nodiscard]] Type type(Index entry) const { return entries_[entry].type; }
  /// The entry's path: the root joined with its path relative to the root.
  [[nodiscard]] std::string path(Index entry) const;
  /// The walked folder without trailing "/", so empty for "/".
  [[nodiscard]] const std::string& root() const { return root_; }

  /// The folders that could not be listed, or not to their ends, in walk order. One for want of descriptors
  /// is among them only when it could not be opened with nothing else open either.
  [[nodiscard]] const ReadFaults& faults() const { return faults_; }
  /// The first folder that could not be opened for want of descriptors. Whoever needs to know all entries
  /// cannot use this walk then.
  [[nodiscard]] const ReadFaults& wants() const { return wants_; }

 private:
  friend class FolderWalker;

  struct Entry {
    std::uint64_t nameOffset;
    Index parent;
    std::uint16_t nameLength;
    Type type;
  };

  std::string root_;
  std::vector<Entry> entries_;
  std::string names_;
  ReadFaults faults_;
  ReadFaults wants_;
};

}  // namespace quillmeter
