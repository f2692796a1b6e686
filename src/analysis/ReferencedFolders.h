#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "analysis/ExtensionCounts.h"
#include "analysis/PathIndex.h"

namespace quillmeter {

/// Counts the files below folders that a description refers to as wholes, as far as the walk tells, without
/// following the groups that say where exactly such a folder lies: every folder of the walk that a reference
/// may stand for counts. Costs a look at each of their entries.
class ReferencedFolders {
 public:
  /// Must outlive this object.
  explicit ReferencedFolders(PathIndex& index) : index_(index), isCounted_(index.walk().size()) {}

  void add(std::string_view reference);

  /// Each file of these folders once.
  [[nodiscard]] const ExtensionCounts& files() const { return files_; }
  /// Whether there are others, which the walk does not know, or which would take long to look through.
  [[nodiscard]] bool hasOthers() const { return hasOthers_; }

 private:
  void addFilesBelow(FolderWalk::Index folder);

  PathIndex& index_;
  std::vector<bool> isCounted_;  ///< by entry
  std::size_t looked_ = 0;
  ExtensionCounts files_;
  bool hasOthers_ = false;
};

}  // namespace quillmeter
