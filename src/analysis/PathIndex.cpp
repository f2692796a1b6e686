#include "analysis/PathIndex.h"

#include <algorithm>
#include <utility>

#include "support/Text.h"

namespace quillmeter {
namespace {

/// So many entries of one name are always looked at one by one.
constexpr std::size_t kFew = 16;
/// For each entry of the walk, so many components may be looked at one by one before the order of endings,
/// which takes about as long to make, is made.
constexpr std::size_t kLooksAnEntry = 4;

std::string_view lastComponent(std::string_view reference) {
  return reference.substr(reference.rfind('/') + 1);
}

/// What a path ends in that ends in R = A/…/Z repeated: ZA/…/Z.
std::string joinOfRepetition(std::string_view reference) {
  return std::string(lastComponent(reference)).append(reference);
}

/// The shortest text that `text`, which is not empty, is a repetition of; `text` itself when it is none.
std::string_view periodOf(std::string_view text) {
  std::size_t period = text.find(text.front(), 1);
  for (; period <= text.size() / 2; period = text.find(text.front(), period + 1)) {
    if (text.size() % period == 0 && text.substr(period) == text.substr(0, text.size() - period))
      return text.substr(0, period);
  }
  return text;
}

std::uint32_t hashOf(std::string_view text) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
}

/// Whether `path`, with every occurrence of `reference` removed, is empty or ends with "/".
bool isFolderWithout(std::string_view path, std::string_view reference) {
  char last = '/';
  for (;;) {
    const std::size_t found = findPiece(path, reference);
    const std::string_view kept = path.substr(0, found);
    if (!kept.empty()) last = kept.back();
    if (found == std::string_view::npos) return last == '/';
    path.remove_prefix(found + reference.size());
  }
}

}  // namespace

PathIndex::PathIndex(FolderWalk walk) : walk_(std::move(walk)), tree_(walk_) {}

PathIndex::Candidates PathIndex::candidatesOf(std::string_view reference) {
  return {*this, reference};
}

void PathIndex::markMissing(FolderWalk::Index entry) {
  const Node node = entry + tree_.firstEntry();
  if (missing_.empty()) missing_.resize(tree_.size());
  missing_[node] = true;
  if (minima_) minima_->remove(order_->positionOf(node));
}

void PathIndex::forEachCandidate(std::string_view reference, const Visitor& visit) {
  Candidates candidates = candidatesOf(reference);
  while (const auto candidate = candidates.next()) {
    if (visit(candidate->path, candidate->type)) return;
    markMissing(candidate->entry);
  }
}

void PathIndex::noteRepeatedName(std::string_view name) {
  const std::string_view period = periodOf(name);
  if (period.size() == name.size()) return;
  longestRepetition_ = std::max(longestRepetition_, name.size());
  // Names of the same are often many, and follow each other.
  if (const std::uint32_t hash = hashOf(period); periods_.empty() || periods_.back() != hash)
    periods_.push_back(hash);
}

/// Whether names of the walk may be repetitions of `reference`.
bool PathIndex::isRepeatedByNames(std::string_view reference) const {
  if (2 * reference.size() > longestRepetition_) return false;
  return std::binary_search(periods_.begin(), periods_.end(), hashOf(periodOf(reference)));
}

/// The entries called `name` in any letter case, those known to be missing left out at the beginning; null
/// for none.
const NameTable::Group* PathIndex::entriesCalled(std::string_view name) {
  if (!names_) {
    names_.emplace(tree_, tree_.firstEntry(), NameTable::Letters::lowerCased);
    for (FolderWalk::Index entry = 0; entry < walk_.size(); ++entry)
      noteRepeatedName(walk_.name(entry));
    std::sort(periods_.begin(), periods_.end());
  }
  NameTable::Group* group = names_->find(lowerCased(name));
  if (group == nullptr) return nullptr;
  while (group->count > 0 && isMissing(group->first))
    names_->dropFirst(*group);
  return group->count > 0 ? group : nullptr;
}

/// Whether comparing each entry of a group with an ending of so many components is little work.
bool PathIndex::mayLookAtEach(const NameTable::Group& group, std::size_t components) {
  if (group.count <= kFew) return true;
  const std::size_t looks = group.count * components;
  if (order_ || looked_ + looks > kLooksAnEntry * walk_.size()) return false;
  looked_ += looks;
  return true;
}

const EndingOrder& PathIndex::order() {
  if (!order_) {
    order_.emplace(tree_);
    minima_.emplace(order_->size(), [&](std::size_t position) {
      const Node node = order_->nodeAt(static_cast<Node>(position));
      return node < tree_.firstEntry() || isMissing(node) ? RangeMinima::kNone : node;
    });
  }
  return *order_;
}

bool PathIndex::matches(Node node, std::string_view reference) const {
  if (reference.find('/') != std::string_view::npos)
    return endsLike(node, reference) && isFolderWithout(pathOf(node), reference);
  const std::string_view name = tree_.name(node);
  return haveSameLowerCase(name, reference) || isFolderWithout(name, reference);
}

/// Whether the node's path ends in the whole components of R = A/…/Z or in ZA/…/Z.
bool PathIndex::endsLike(Node node, std::string_view reference) const {
  const std::string_view last = lastComponent(reference);
  std::size_t slash = reference.rfind('/');
  for (; slash != std::string_view::npos; slash = reference.rfind('/')) {
    if (node == PathTree::kNone || tree_.name(node) != reference.substr(slash + 1)) return false;
    reference = reference.substr(0, slash);
    node = tree_.parent(node);
  }
  if (node == PathTree::kNone) return false;
  std::string_view name = tree_.name(node);
  if (!name.ends_with(reference)) return false;
  name.remove_suffix(reference.size());
  return name.empty() || name == last;
}

PathIndex::Candidates::Candidates(PathIndex& index, std::string_view reference)
    : index_(&index), reference_(reference) {
  if (index.firsts_.empty()) return;
  const auto known = index.firsts_.find(reference_);
  if (known != index.firsts_.end()) known_ = known->second;
}

std::optional<PathIndex::Candidate> PathIndex::Candidates::next() {
  const Node node = nextNode();
  if (node == PathTree::kNone) return std::nullopt;
  const FolderWalk::Index entry = node - index_->tree_.firstEntry();
  return Candidate{entry, index_->walk_.path(entry), index_->walk_.type(entry)};
}

PathIndex::Node PathIndex::Candidates::nextNode() {
  if (known_) {
    isFirst_ = false;
    behind_ = *std::exchange(known_, std::nullopt);
    if (behind_ == PathTree::kNone) isGathered_ = true;
    if (behind_ == PathTree::kNone || !index_->isMissing(behind_)) return behind_;
  }
  if (!std::exchange(isGathered_, true)) gather();
  std::size_t failures = 0;
  Node node = takeFirst();
  for (; node != PathTree::kNone; node = takeFirst()) {
    if (node <= behind_ || index_->isMissing(node)) continue;
    if (index_->matches(node, reference_)) break;
    ++failures;
  }
  if (std::exchange(isFirst_, false) && isOrdered_ && failures > kFew) index_->firsts_[reference_] = node;
  return node;
}

/// Finds what may match by the ends of names and paths, and more that will not.
void PathIndex::Candidates::gather() {
  if (reference_.empty()) return;
  const NameTable::Group* group = index_->entriesCalled(lastComponent(reference_));
  const auto slashes = static_cast<std::size_t>(std::count(reference_.begin(), reference_.end(), '/'));
  if (slashes > 0) return gatherEnding(group, reference_, slashes + 1);
  if (group != nullptr) chains_.push_back(group->first);
  if (index_->isRepeatedByNames(reference_)) gatherRepeatedNames();
}

void PathIndex::Candidates::gatherRepeatedNames() {
  std::string name = reference_ + reference_;
  for (; name.size() <= index_->longestRepetition_; name += reference_)
    gatherEnding(index_->entriesCalled(name), name, 1);
}

/// Finds the entries that end in `ending` (of so many components) or in it repeated, all of them in `group`.
void PathIndex::Candidates::gatherEnding(const NameTable::Group* group, std::string_view ending,
                                         std::size_t components) {
  if (group == nullptr) return;
  if (index_->mayLookAtEach(*group, components)) return chains_.push_back(group->first);
  const EndingOrder& order = index_->order();
  isOrdered_ = true;
  addPart(order.find(ending));
  if (components > 1) addPart(order.find(joinOfRepetition(ending)));
}

void PathIndex::Candidates::addPart(EndingOrder::Range range) {
  const Node first = index_->minima_->least(range.begin, range.end);
  if (first == PathTree::kNone) return;
  parts_.push_back({first, range});
  std::push_heap(parts_.begin(), parts_.end(), isBehind);
}

/// The first entry in the walk of all that were gathered, which are one fewer then; `PathTree::kNone` when
/// there is none.
PathIndex::Node PathIndex::Candidates::takeFirst() {
  const auto chain = std::min_element(chains_.begin(), chains_.end());
  if (chain != chains_.end() && (parts_.empty() || *chain < parts_.front().first)) {
    const Node first = *chain;
    *chain = index_->names_->next(first);
    if (*chain == PathTree::kNone) chains_.erase(chain);
    return first;
  }
  if (parts_.empty()) return PathTree::kNone;
  std::pop_heap(parts_.begin(), parts_.end(), isBehind);
  const Part part = parts_.back();
  parts_.pop_back();
  const Node position = index_->order_->positionOf(part.first);
  addPart({part.range.begin, position});
  addPart({position + 1, part.range.end});
  return part.first;
}

}  // namespace quillmeter
