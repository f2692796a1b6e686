#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "files/FolderWalk.h"
#include "support/Paths.h"

namespace quillmeter {

/// A walk's paths as one tree of components: first a node for each component of the walked folder's own path,
/// each inside the one before, then one for each entry of the walk. So a path is read from its end to its
/// very beginning by going from parent to parent, and a parent's number is always below its child's. Refers
/// to the walk, which must outlive it.
class PathTree {
 public:
  using Node = FolderWalk::Index;
  static constexpr Node kNone = FolderWalk::kNone;

  explicit PathTree(const FolderWalk& walk)
      : walk_(walk),
        rootComponents_(pathComponents(walk.root())),
        firstEntry_(static_cast<Node>(rootComponents_.size())) {}

  [[nodiscard]] Node size() const { return firstEntry_ + walk_.size(); }
  /// The node of the walk's first entry; those of the others follow in walk order.
  [[nodiscard]] Node firstEntry() const { return firstEntry_; }

  [[nodiscard]] std::string_view name(Node node) const {
    return node < firstEntry_ ? rootComponents_[node] : walk_.name(node - firstEntry_);
  }
  /// `kNone` for the first component of all.
  [[nodiscard]] Node parent(Node node) const {
    if (node == 0) return kNone;
    if (node < firstEntry_) return node - 1;
    const FolderWalk::Index folder = walk_.parent(node - firstEntry_);
    return folder == FolderWalk::kNone ? firstEntry_ - 1 : folder + firstEntry_;
  }

 private:
  const FolderWalk& walk_;
  std::vector<std::string_view> rootComponents_;
  Node firstEntry_;
};

}  // namespace quillmeter
