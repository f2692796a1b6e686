#include "compare/Differences.h"

#include <algorithm>
#include <compare>
#include <cstdlib>
#include <tuple>
#include <utility>

#include "support/Paths.h"

namespace quillmeter {
namespace {

using Pointers = std::vector<const SnapshotFile*>;

ChangeKind kindOfPair(const Counters& before, const Counters& after) {
  if (before == after) return ChangeKind::unchanged;
  for (const std::size_t counter : {kLinesCounter, kSizeCounter}) {
    if (after[counter] > before[counter]) return ChangeKind::grown;
    if (after[counter] < before[counter]) return ChangeKind::shrunk;
  }
  return ChangeKind::changed;
}

/// Walks two sorted lists side by side: `pair` gets what is equal in both by `compare`, `left` and `right`
/// what is in one alone.
template <class List, class Compare, class Pair, class Left, class Right>
void mergeLists(const List& before, const List& after, Compare compare, Pair pair, Left left, Right right) {
  auto earlier = before.begin();
  auto later = after.begin();
  while (earlier != before.end() || later != after.end()) {
    const std::strong_ordering order = later == after.end()      ? std::strong_ordering::less
                                       : earlier == before.end() ? std::strong_ordering::greater
                                                                 : compare(*earlier, *later);
    if (std::is_lt(order)) left(*earlier++);
    if (std::is_gt(order)) right(*later++);
    if (std::is_eq(order)) pair(*earlier++, *later++);
  }
}

/// Where a file that moved is found again: its name and its counters.
auto identity(const SnapshotFile& file) {
  return std::tuple(lastPathComponent(file.path), file.counters);
}

void sortByIdentity(Pointers& files) {
  std::stable_sort(files.begin(), files.end(),
                   [](const SnapshotFile* a, const SnapshotFile* b) { return identity(*a) < identity(*b); });
}

std::strong_ordering compareIdentity(const SnapshotFile* a, const SnapshotFile* b) {
  return identity(*a) <=> identity(*b);
}

/// Most lines first, then most bytes, added or taken away alike; then by path.
bool isLargerChange(const FileChange& a, const FileChange& b) {
  const auto key = [](const FileChange& change) {
    return std::tuple(change.kind == ChangeKind::unchanged, -std::abs(change.difference(kLinesCounter)),
                      -std::abs(change.difference(kSizeCounter)), std::string_view(change.path));
  };
  return key(a) < key(b);
}

}  // namespace

std::string_view changeName(ChangeKind kind) {
  constexpr std::array<std::string_view, kChangeKinds> names = {"added",  "removed", "moved",    "grown",
                                                                "shrunk", "changed", "unchanged"};
  return names[static_cast<std::size_t>(kind)];
}

std::int64_t FileChange::difference(std::size_t counter) const {
  return (after ? (*after)[counter] : 0) - (before ? (*before)[counter] : 0);
}

Differences differencesBetween(const Snapshot& before, const Snapshot& after) {
  Differences result;
  result.before = before.totals;
  result.after = after.totals;
  const auto add = [&result](ChangeKind kind, const SnapshotFile* earlier, const SnapshotFile* later) {
    const SnapshotFile& latest = later != nullptr ? *later : *earlier;
    FileChange change{kind, latest.path, earlier != nullptr ? earlier->path : latest.path, {}, {}};
    if (earlier != nullptr) change.before = earlier->counters;
    if (later != nullptr) change.after = later->counters;
    result.files.push_back(std::move(change));
    ++result.numbers[static_cast<std::size_t>(kind)];
  };

  Pointers gone;
  Pointers come;
  mergeLists(
      before.files, after.files,
      [](const SnapshotFile& a, const SnapshotFile& b) { return a.path <=> b.path; },
      [&](const SnapshotFile& a, const SnapshotFile& b) { add(kindOfPair(a.counters, b.counters), &a, &b); },
      [&](const SnapshotFile& a) { gone.push_back(&a); }, [&](const SnapshotFile& b) { come.push_back(&b); });
  sortByIdentity(gone);
  sortByIdentity(come);
  mergeLists(
      gone, come, compareIdentity,
      [&](const SnapshotFile* a, const SnapshotFile* b) { add(ChangeKind::moved, a, b); },
      [&](const SnapshotFile* a) { add(ChangeKind::removed, a, nullptr); },
      [&](const SnapshotFile* b) { add(ChangeKind::added, nullptr, b); });
  std::stable_sort(result.files.begin(), result.files.end(), isLargerChange);
  return result;
}

}  // namespace quillmeter
