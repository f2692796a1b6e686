#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "analysis/EndingTable.h"
#include "files/FolderWalk.h"

namespace quillmeter {

/// Answers which of a walk's paths a reference may stand for, in time that does not depend on how many there
/// are.
///
/// The rule it answers for: a path C matches a reference R when C's last component, lower-cased, equals R
/// lower-cased; or when C ends with R (case-sensitively) and C with every occurrence of R removed is empty or
/// ends with "/". The candidates of R are the matching paths in walk order.
///
/// Why an index can give exactly these: when C matches by its ending, the occurrences removed at C's end
/// spell R repeated k times, k ≥ 1, and begin at C's start or behind a "/".
///  - R without "/": C's last component is R or R repeated. A table of all names finds the first, and names
///    that are repetitions are listed beside it.
///  - R = A/…/Z: C's last component is Z; if R has three components or more, C's last two are those of R.
///    Where the table of names or that of two components has few such entries, which is nearly always so,
///    they are all looked at. Otherwise C ends in whole components that spell R (k = 1) or ZA/…/Z (k ≥ 2),
///    and a table of endings of so many components, made when first needed, finds those.
/// What is found for an ending is still tested by the rule itself. A long group of entries belongs to one
/// reference only, and what was missing or failed the test is dropped from it, so that all questions together
/// stay linear.
///
/// Not for use by two threads at a time: asking may make a table.
class PathIndex {
 public:
  explicit PathIndex(FolderWalk walk);
  PathIndex(const PathIndex&) = delete;
  PathIndex& operator=(const PathIndex&) = delete;

  /// Takes a candidate (its path, and what the walk found there) by returning true. A candidate that it
  /// refuses is taken for missing on disk and may not be offered again.
  using Visitor = std::function<bool(const std::string& path, FolderWalk::Type type)>;

  /// Offers each candidate of `reference` to `visit` in walk order until one is taken or none is left. The
  /// empty reference has none.
  void forEachCandidate(std::string_view reference, const Visitor& visit);

 private:
  using Entries = std::vector<FolderWalk::Index>;

  void visitSorted(const Entries& entries, std::string_view reference, const Visitor& visit) const;
  [[nodiscard]] static std::optional<Entries> fewIn(EndingTable& table, std::string_view ending);
  [[nodiscard]] std::optional<Entries> fewThatEndLike(std::string_view reference);
  [[nodiscard]] EndingTable& names();
  [[nodiscard]] EndingTable& endings(std::size_t components);
  void listRepeatedName(FolderWalk::Index entry);
  [[nodiscard]] const Entries& repetitions(const std::string& reference, EndingTable& table);
  [[nodiscard]] bool endsInReference(const std::string& path, std::string_view reference) const;

  FolderWalk walk_;
  std::unique_ptr<EndingTable> names_;
  std::map<std::size_t, EndingTable> endings_;
  /// The entries that match a reference repeated, by reference: all there are for plain names, and for others
  /// those asked for so far whose ending exists.
  std::unordered_map<std::string, Entries> repetitions_;
};

}  // namespace quillmeter
