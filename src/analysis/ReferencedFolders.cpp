#include "analysis/ReferencedFolders.h"

#include <string>

#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {

void ReferencedFolders::add(std::string_view reference) {
  bool isKnown = false;
  auto candidates = index_.candidatesOf(reference);
  while (const auto candidate = candidates.next()) {
    if (candidate->type != FolderWalk::Type::folder) continue;
    isKnown = true;
    addFilesBelow(candidate->entry);
    if (hasOthers_) return;
  }
  if (!isKnown) hasOthers_ = true;
}

/// They are what follows the folder in the walk, as long as it lies in the folder or behind it.
void ReferencedFolders::addFilesBelow(FolderWalk::Index folder) {
  const FolderWalk& walk = index_.walk();
  for (FolderWalk::Index entry = folder + 1; entry < walk.size(); ++entry) {
    const FolderWalk::Index parent = walk.parent(entry);
    if (parent == FolderWalk::kNone || parent < folder) break;
    // Folders in folders that are all referred to are looked through again and again.
    if (++looked_ > 4 * std::size_t{walk.size()}) {
      hasOthers_ = true;
      return;
    }
    if (walk.type(entry) == FolderWalk::Type::folder || isCounted_[entry]) continue;
    isCounted_[entry] = true;
    files_.add(lowerCased(pathExtension(walk.name(entry))));
  }
}

}  // namespace quillmeter
