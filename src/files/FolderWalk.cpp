#include "files/FolderWalk.h"

#include <algorithm>

#include "files/FolderWalker.h"
#include "files/WorkerPool.h"

namespace quillmeter {

FolderWalk::FolderWalk(std::string_view root, const FileSystem& fileSystem, WorkerPool& pool) {
  while (root.ends_with('/'))
    root.remove_suffix(1);
  root_ = root;
  FolderWalker(*this, fileSystem, pool).run();
}

FolderWalk::FolderWalk(std::string_view root, const FileSystem& fileSystem) {
  WorkerPool pool;
  *this = FolderWalk(root, fileSystem, pool);
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
