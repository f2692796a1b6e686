#include "analysis/PathIndex.h"

#include <utility>

#include "support/Text.h"

namespace quillmeter {

PathIndex::PathIndex(FolderWalk walk) : walk_(std::move(walk)) {}

void PathIndex::forEachCandidate(std::string_view reference,
                                 const std::function<bool(const std::string& path)>& visit) {
  const std::string lowerCasedReference = lowerCased(reference);
  for (FolderWalk::Index i = 0; i < walk_.size(); ++i) {
    const std::string path = walk_.path(i);
    if (lowerCased(walk_.name(i)) != lowerCasedReference) {
      if (!path.ends_with(reference)) continue;
      const std::string rest = removingOccurrences(path, reference);
      if (!rest.empty() && !rest.ends_with('/')) continue;
    }
    if (visit(path)) return;
  }
}

}  // namespace quillmeter
