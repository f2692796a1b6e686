#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "analysis/PathTree.h"

namespace quillmeter {

/// A hash table from names to the nodes of a tree that have them. Nodes of one name form a group, a chain in
/// walk order. The table refers to the tree, which must outlive it, and holds no text of its own.
class NameTable {
 public:
  using Node = PathTree::Node;
  enum class Letters { asTheyAre, lowerCased };

  struct Group {
    std::uint32_t hash = 0;        ///< 0 marks a slot that no group has taken
    Node first = PathTree::kNone;  ///< the head of the chain
    Node count = 0;                ///< the nodes in the chain
  };

  /// A table of the nodes from `first` on.
  NameTable(const PathTree& tree, Node first, Letters letters);

  /// The group of a name (given lower-cased to a table of lower-cased letters); null when nothing has it.
  [[nodiscard]] const Group* find(std::string_view name) const;
  [[nodiscard]] Group* find(std::string_view name);

  /// The node behind `node` in its group; `PathTree::kNone` at the end.
  [[nodiscard]] Node next(Node node) const { return next_[node - first_]; }
  /// Takes the head out of a group's chain.
  void dropFirst(Group& group) const;

  /// Every slot, taken or not.
  [[nodiscard]] const std::vector<Group>& slots() const { return slots_; }

 private:
  [[nodiscard]] std::uint32_t hashOf(std::string_view name) const;
  [[nodiscard]] bool isCalled(Node node, std::string_view name) const;
  [[nodiscard]] bool haveSameName(Node left, Node right) const;
  [[nodiscard]] std::size_t slotOf(std::uint32_t hash) const;
  void insert(Node node, std::uint32_t hash);

  template <class IsGroup>
  [[nodiscard]] std::size_t slotFor(std::uint32_t hash, const IsGroup& isGroup) const;

  const PathTree& tree_;
  Node first_;
  Letters letters_;
  std::vector<Group> slots_;
  std::vector<Node> next_;
};

}  // namespace quillmeter
