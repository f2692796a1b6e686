#pragma once

#include <string_view>
#include <vector>

#include "analysis/NameTable.h"
#include "analysis/PathTree.h"

namespace quillmeter {

/// The nodes of a tree in the order of their paths as read from the end: by their names, those of one name by
/// their folders' names, and so on. In this order the paths with a common ending of whole components stand
/// side by side, whatever the number of components, so that one order serves all endings. (It is the suffix
/// array of a tree.) Names are ordered in some way that is of no matter, letter case included. Refers to the
/// tree, which must outlive it.
///
/// Making it takes O(n log n log d) time for n nodes of at most d components, an ending O(its length +
/// its components × log n), and the whole 36 bytes a node (8 more while it is made).
class EndingOrder {
 public:
  using Node = PathTree::Node;
  /// Positions in the order, `end` not included.
  struct Range {
    Node begin = 0;
    Node end = 0;
    [[nodiscard]] bool isEmpty() const { return begin == end; }
  };

  explicit EndingOrder(const PathTree& tree);

  /// Where the nodes stand whose paths end in the components of `ending`.
  [[nodiscard]] Range find(std::string_view ending) const;

  [[nodiscard]] Node size() const { return static_cast<Node>(nodes_.size()); }
  [[nodiscard]] Node nodeAt(Node position) const { return nodes_[position]; }
  [[nodiscard]] Node positionOf(Node node) const { return positions_[node]; }

 private:
  void groupByName();
  void splitGroups();
  [[nodiscard]] Node endOfGroup(Node begin) const;
  [[nodiscard]] bool split(Range group, const std::vector<Node>& above);
  [[nodiscard]] Node keyOf(Node folder) const;
  [[nodiscard]] Range named(std::string_view name) const;
  [[nodiscard]] Range inside(Range names, Range folders) const;

  const PathTree& tree_;
  NameTable names_;
  std::vector<Node> begins_;      ///< where the names of each slot of the table begin
  std::vector<Node> nodes_;       ///< by position
  std::vector<Node> positions_;   ///< by node; while the order is made, where the node's group begins
  std::vector<Node> folderKeys_;  ///< by position: the key of the node's folder
};

}  // namespace quillmeter
