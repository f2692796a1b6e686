#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/FolderWalk.h"

namespace quillmeter {

/// Answers which of a walk's paths a reference may stand for, without looking at all of them.
///
/// The rule it answers for: a path C matches a reference R when C's last component, lower-cased, equals R
/// lower-cased; or when C ends with R (case-sensitively) and C with every occurrence of R removed is empty or
/// ends with "/". The candidates of R are the matching paths in walk order.
///
/// Why an index can give exactly these: when C matches by its ending, the removed occurrences at C's end form
/// R repeated k times, k ≥ 1, and begin behind a "/" (or at C's start). So C ends in whole components that
/// spell R^k, and a table from such endings to paths finds all of them. There is one table for each number of
/// components that references have, made when first needed; for k ≥ 2 the tables are asked only where a
/// component exists that such a repetition must contain. Each candidate found is still tested by the rule
/// itself.
///
/// Not for use by two threads at a time: asking may build a table.
class PathIndex {
 public:
  explicit PathIndex(FolderWalk walk);

  [[nodiscard]] const FolderWalk& walk() const { return walk_; }

  /// Calls `visit` with each candidate of `reference` in walk order until it returns true (it took the
  /// candidate) or none is left. A candidate that `visit` refuses is taken for missing on disk and may not be
  /// offered again.
  void forEachCandidate(std::string_view reference,
                        const std::function<bool(const std::string& path)>& visit);

 private:
  FolderWalk walk_;
};

}  // namespace quillmeter
