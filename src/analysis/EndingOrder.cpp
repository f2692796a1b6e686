#include "analysis/EndingOrder.h"

#include <algorithm>
#include <cstdint>

namespace quillmeter {

EndingOrder::EndingOrder(const PathTree& tree)
    : tree_(tree),
      names_(tree, 0, NameTable::Letters::asTheyAre),
      begins_(names_.slots().size()),
      nodes_(tree.size()),
      positions_(tree.size()) {
  groupByName();
  splitGroups();
  folderKeys_.resize(nodes_.size());
  for (Node position = 0; position < size(); ++position)
    folderKeys_[position] = keyOf(tree_.parent(nodes_[position]));
}

void EndingOrder::groupByName() {
  Node position = 0;
  for (std::size_t slot = 0; slot < begins_.size(); ++slot) {
    begins_[slot] = position;
    for (Node node = names_.slots()[slot].first; node != PathTree::kNone; node = names_.next(node)) {
      positions_[node] = begins_[slot];
      nodes_[position++] = node;
    }
  }
}

/// Orders each group of nodes whose last components are the same by the components above these, of which
/// twice as many are known after each round.
void EndingOrder::splitGroups() {
  std::vector<Node> above(nodes_.size());
  for (Node node = 0; node < size(); ++node)
    above[node] = tree_.parent(node);
  for (;;) {
    bool isUndecided = false;
    for (Node begin = 0; begin < size();) {
      const Node end = endOfGroup(begin);
      if (end - begin > 1 && split({begin, end}, above)) isUndecided = true;
      begin = end;
    }
    if (!isUndecided) return;
    // From the last node to the first, since what lies above has a lower number and is still as it was.
    for (Node node = size(); node-- > 0;) {
      if (above[node] != PathTree::kNone) above[node] = above[above[node]];
    }
  }
}

EndingOrder::Node EndingOrder::endOfGroup(Node begin) const {
  Node end = begin + 1;
  while (end < size() && positions_[nodes_[end]] == begin)
    ++end;
  return end;
}

/// Sorts a group by the folders in `above` and makes groups of those with the same. Gives whether any of
/// these has still to be split.
bool EndingOrder::split(Range group, const std::vector<Node>& above) {
  std::vector<std::uint64_t> sorted;
  sorted.reserve(group.end - group.begin);
  for (Node position = group.begin; position < group.end; ++position) {
    const Node node = nodes_[position];
    sorted.push_back(std::uint64_t{keyOf(above[node])} << 32U | node);
  }
  std::sort(sorted.begin(), sorted.end());
  bool isUndecided = false;
  Node begin = group.begin;
  for (Node position = group.begin; position < group.end; ++position) {
    const std::size_t i = position - group.begin;
    const bool isSame = i > 0 && sorted[i] >> 32U == sorted[i - 1] >> 32U;
    // Only entries that were listed twice have the same path up to its very beginning, key 0.
    if (isSame && sorted[i] >> 32U != 0) isUndecided = true;
    if (!isSame) begin = position;
    nodes_[position] = static_cast<Node>(sorted[i]);
    positions_[nodes_[position]] = begin;
  }
  return isUndecided;
}

/// What folders are compared by: 0 for none, which comes first, or else behind their positions.
EndingOrder::Node EndingOrder::keyOf(Node folder) const {
  return folder == PathTree::kNone ? 0 : positions_[folder] + 1;
}

EndingOrder::Range EndingOrder::find(std::string_view ending) const {
  std::size_t slash = ending.find('/');
  Range found = named(ending.substr(0, slash));
  while (slash != std::string_view::npos && !found.isEmpty()) {
    ending.remove_prefix(slash + 1);
    slash = ending.find('/');
    found = inside(named(ending.substr(0, slash)), found);
  }
  return found;
}

EndingOrder::Range EndingOrder::named(std::string_view name) const {
  const NameTable::Group* group = names_.find(name);
  if (group == nullptr) return {};
  const Node begin = begins_[static_cast<std::size_t>(group - names_.slots().data())];
  return {begin, begin + group->count};
}

/// Those of `names`, all of one name, whose folders are in `folders`.
EndingOrder::Range EndingOrder::inside(Range names, Range folders) const {
  const auto begin = folderKeys_.begin() + names.begin;
  const auto end = folderKeys_.begin() + names.end;
  const auto first = std::lower_bound(begin, end, folders.begin + 1);
  const auto last = std::lower_bound(first, end, folders.end + 1);
  return {static_cast<Node>(first - folderKeys_.begin()), static_cast<Node>(last - folderKeys_.begin())};
}

}  // namespace quillmeter
