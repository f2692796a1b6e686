#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "files/FolderWalk.h"
#include "files/WorkerPool.h"

namespace quillmeter {

/// Makes a `FolderWalk`: each folder is a task of a pool, and what they found is put together in walk order
/// afterwards, so that the result does not depend on who listed what when. A folder is opened through its
/// parent, which stays open until the last of its folders has been; only so many stay open, and the others
/// are opened by their paths.
///
/// Where descriptors run short, the folders that could not be opened are tried again at the end, one by one
/// by this thread alone, when nothing else is open any more.
class FolderWalker {
 public:
  /// All must outlive this object.
  FolderWalker(FolderWalk& walk, const FileSystem& fileSystem, WorkerPool& pool);
  ~FolderWalker();
  FolderWalker(const FolderWalker&) = delete;
  FolderWalker& operator=(const FolderWalker&) = delete;

  void run();

 private:
  /// A folder on its way from being found to being put into the walk.
  struct Folder {
    Folder* parent = nullptr;      ///< null for the walked folder
    std::uint64_t nameOffset = 0;  ///< in the parent's names
    FolderListing listing;         ///< sorted
    std::size_t firstInner = 0;    ///< its folders follow each other in `folders_`, in order of their names
    Descriptor handle;             ///< open while folders in it wait to be opened, if at all
    std::atomic<std::uint32_t> unopened = 0;  ///< those folders
    DiskError error;                          ///< why it could not be listed, or not to its end
  };

  void list(Folder& folder);
  [[nodiscard]] Result<Descriptor> opened(Folder& folder);
  void letGoOfParent(Folder& folder);
  void listAll(Folder& folder, const Descriptor& handle);
  void addInner(Folder& folder, Descriptor handle);
  [[nodiscard]] WorkerPool::Task taskFor(Folder& folder);
  void listPostponed();
  [[nodiscard]] std::string pathOf(const Folder& folder) const;

  void putTogether();
  void note(const Folder& folder, FolderWalk::Index entry);

  FolderWalk& walk_;
  const FileSystem& fileSystem_;
  WorkerPool& pool_;
  std::mutex mutex_;            ///< for the two lists below
  std::deque<Folder> folders_;  ///< the walked folder, then the others as they were found
  std::vector<Folder*> postponed_;
  std::atomic<int> kept_ = 0;  ///< handles that are open
  bool isShort_ = false;       ///< of descriptors; changes only while nobody else walks
};

}  // namespace quillmeter
