#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "analysis/EndingOrder.h"
#include "analysis/NameTable.h"
#include "analysis/PathTree.h"
#include "analysis/RangeMinima.h"
#include "files/FolderWalk.h"

namespace quillmeter {

/// Answers which of a walk's paths a reference may stand for, without looking at all of them.
///
/// The rule it answers for: a path C matches a reference R when C's last component, lower-cased, equals R
/// lower-cased; or when C ends with R (case-sensitively) and C with every occurrence of R removed is empty or
/// ends with "/". The candidates of R are the matching paths in walk order.
///
/// Why an index can give exactly these: when C matches by its ending, the occurrences removed at C's end
/// spell R repeated k times, k ≥ 1, and begin at C's start or behind a "/".
///  - R without "/": C's last component is R, or R repeated. A table of all names (`NameTable`) finds both;
///    what names of the walk are repetitions of is noted when it is made.
///  - R = A/…/Z: C ends in whole components that spell R (k = 1) or ZA/…/Z (k ≥ 2), and its last one is Z.
///  The
///    entries called Z are looked at one by one while that is little work. Otherwise the order of all paths
///    by their endings (`EndingOrder`) finds those two endings of any number of components, and the least of
///    their entries in walk order (`RangeMinima`).
/// What is found is still tested by the rule itself.
///
/// What it takes, for n entries in folders at most d deep and references of r bytes altogether: 23 bytes an
/// entry with the table alone, about 67 with the order, whatever the references are. The table takes time
/// linear in n, the order O(n log n log d); all questions together O((n + r) log n) and the length of the
/// paths that they give. One kind of reference can take longer: one that overlaps itself (m/m, or mm/m) may
/// have entries that end in it and do not match (x/m/m/m), and these are all tested, once for each such
/// reference, which is kept with its first candidate then; at worst that is every entry for each number of
/// components that references have.
///
/// Not for use by two threads at a time: asking may make a table.
class PathIndex {
 public:
  explicit PathIndex(FolderWalk walk);
  PathIndex(const PathIndex&) = delete;
  PathIndex& operator=(const PathIndex&) = delete;

  struct Candidate {
    FolderWalk::Index entry = FolderWalk::kNone;
    std::string path;
    FolderWalk::Type type = FolderWalk::Type::other;
  };

  class Candidates;

  [[nodiscard]] const FolderWalk& walk() const { return walk_; }

  /// The candidates of `reference`, none for the empty one. The index must outlive them.
  [[nodiscard]] Candidates candidatesOf(std::string_view reference);

  /// Tells that an entry is missing on disk. It is no candidate of any reference any more.
  void markMissing(FolderWalk::Index entry);

  /// Takes a candidate (its path, and what the walk found there) by returning true. One that it refuses is
  /// marked as missing.
  using Visitor = std::function<bool(const std::string& path, FolderWalk::Type type)>;

  /// Offers each candidate of `reference` to `visit` in walk order until one is taken or none is left.
  void forEachCandidate(std::string_view reference, const Visitor& visit);

 private:
  using Node = PathTree::Node;

  void noteRepeatedName(std::string_view name);
  [[nodiscard]] bool isRepeatedByNames(std::string_view reference) const;
  [[nodiscard]] const NameTable::Group* entriesCalled(std::string_view name);
  [[nodiscard]] bool mayLookAtEach(const NameTable::Group& group, std::size_t components);
  [[nodiscard]] const EndingOrder& order();
  [[nodiscard]] bool isMissing(Node node) const { return !missing_.empty() && missing_[node]; }
  [[nodiscard]] bool matches(Node node, std::string_view reference) const;
  [[nodiscard]] bool endsLike(Node node, std::string_view reference) const;
  [[nodiscard]] std::string pathOf(Node node) const { return walk_.path(node - tree_.firstEntry()); }

  FolderWalk walk_;
  PathTree tree_;
  std::optional<NameTable> names_;      ///< of entries, lower-cased; made for the first question
  std::optional<EndingOrder> order_;    ///< made when looking at each entry has become too much
  std::optional<RangeMinima> minima_;   ///< of the nodes in that order, without the missing
  std::vector<bool> missing_;           ///< by node; empty while none is
  std::size_t looked_ = 0;              ///< components that were looked at one by one
  std::vector<std::uint32_t> periods_;  ///< hashes of what names are repetitions of, sorted
  std::size_t longestRepetition_ = 0;   ///< the length of the longest name that is a repetition
  /// The first candidate of references that had many entries which do not match.
  std::unordered_map<std::string, Node> firsts_;
};

/// The candidates of one reference in walk order, found as they are asked for. Any number of these may be in
/// use at a time, and entries be marked as missing meanwhile.
class PathIndex::Candidates {
 public:
  /// The next candidate; absent when there is none any more.
  [[nodiscard]] std::optional<Candidate> next();

 private:
  friend class PathIndex;

  /// Entries that stand side by side in the order, with the first of them in the walk.
  struct Part {
    Node first = PathTree::kNone;
    EndingOrder::Range range;
  };
  static bool isBehind(const Part& left, const Part& right) { return left.first > right.first; }

  Candidates(PathIndex& index, std::string_view reference);

  void gather();
  void gatherRepeatedNames();
  void gatherEnding(const NameTable::Group* group, std::string_view ending, std::size_t components);
  void addPart(EndingOrder::Range range);
  [[nodiscard]] Node takeFirst();
  [[nodiscard]] Node nextNode();

  PathIndex* index_;
  std::string reference_;
  std::optional<Node> known_;  ///< the first candidate, from an earlier question
  Node behind_ = 0;            ///< only nodes behind this one are still to be given
  bool isFirst_ = true;        ///< whether none was given so far
  bool isGathered_ = false;
  bool isOrdered_ = false;    ///< whether the order of endings was asked
  std::vector<Node> chains_;  ///< the heads of chains in the table of names
  std::vector<Part> parts_;   ///< a heap, the first in the walk on top
};

}  // namespace quillmeter
