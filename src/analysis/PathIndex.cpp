#include "analysis/PathIndex.h"

#include <algorithm>
#include <utility>

#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

/// How many entries of one name are looked at one by one.
constexpr std::size_t kFew = 16;

/// What R = A/…/Z repeated must end in: ZA/…/Z.
std::string joinOfRepetition(std::string_view reference) {
  return std::string(reference.substr(reference.rfind('/') + 1)).append(reference);
}

/// Whether `text` is its first `period` bytes over and over.
bool hasPeriod(std::string_view text, std::size_t period) {
  return text.substr(period) == text.substr(0, text.size() - period);
}

}  // namespace

PathIndex::PathIndex(FolderWalk walk) : walk_(std::move(walk)) {}

void PathIndex::forEachCandidate(std::string_view reference, const Visitor& visit) {
  if (reference.empty()) return;
  const bool isName = reference.find('/') == std::string_view::npos;
  if (!isName) {
    if (const auto few = fewThatEndLike(reference)) return visitSorted(*few, reference, visit);
  }
  EndingTable& table = isName ? names() : endings(pathComponents(reference).size());
  EndingTable::Group* group = isName ? table.find(lowerCased(reference)) : table.find(reference);
  const Entries& repeated = repetitions(std::string(reference), table);
  // No entry is in both lists: the ending of one that repeats the reference is longer than the reference.
  auto nextRepeated = repeated.begin();
  for (;;) {
    const FolderWalk::Index single = group != nullptr ? group->candidate : FolderWalk::kNone;
    const FolderWalk::Index twice = nextRepeated != repeated.end() ? *nextRepeated : FolderWalk::kNone;
    const FolderWalk::Index entry = std::min(single, twice);
    if (entry == FolderWalk::kNone) return;
    const std::string path = walk_.path(entry);
    const bool matches = (isName && entry == single) || endsInReference(path, reference);
    if (matches && visit(path, walk_.type(entry))) return;
    if (entry == single) {
      group->candidate = table.next(single);
    } else {
      ++nextRepeated;
    }
  }
}

void PathIndex::visitSorted(const Entries& entries, std::string_view reference, const Visitor& visit) const {
  for (const FolderWalk::Index entry : entries) {
    const std::string path = walk_.path(entry);
    if (endsInReference(path, reference) && visit(path, walk_.type(entry))) return;
  }
}

/// The entries of an ending in walk order; absent when they are many.
std::optional<PathIndex::Entries> PathIndex::fewIn(EndingTable& table, std::string_view ending) {
  Entries entries;
  const EndingTable::Group* group = table.find(ending);
  if (group == nullptr) return entries;
  for (FolderWalk::Index entry = group->chain; entry != FolderWalk::kNone; entry = table.next(entry)) {
    if (entries.size() == kFew) return std::nullopt;
    entries.push_back(entry);
  }
  return entries;
}

/// The entries that end as the reference does, by its name or else by its last two components of three or
/// more; absent when they are many.
std::optional<PathIndex::Entries> PathIndex::fewThatEndLike(std::string_view reference) {
  const std::size_t last = reference.rfind('/');
  if (auto few = fewIn(names(), lowerCased(reference.substr(last + 1)))) return few;
  const std::size_t secondLast = reference.substr(0, last).rfind('/');
  if (secondLast == std::string_view::npos) return std::nullopt;
  return fewIn(endings(2), reference.substr(secondLast + 1));
}

EndingTable& PathIndex::names() {
  if (!names_) {
    names_ = std::make_unique<EndingTable>(walk_, 1, EndingTable::Letters::lowerCased);
    for (FolderWalk::Index entry = 0; entry < walk_.size(); ++entry)
      listRepeatedName(entry);
  }
  return *names_;
}

EndingTable& PathIndex::endings(std::size_t components) {
  return endings_.try_emplace(components, walk_, components, EndingTable::Letters::asTheyAre).first->second;
}

/// Notes the entry under each shorter name that its own name repeats.
void PathIndex::listRepeatedName(FolderWalk::Index entry) {
  const std::string_view name = walk_.name(entry);
  for (std::size_t period = name.size() / 2; period > 0; --period) {
    if (name.size() % period != 0 || !hasPeriod(name, period)) continue;
    repetitions_[std::string(name.substr(0, period))].push_back(entry);
  }
}

const PathIndex::Entries& PathIndex::repetitions(const std::string& reference, EndingTable& table) {
  static const Entries none;
  const auto known = repetitions_.find(reference);
  if (known != repetitions_.end()) return known->second;
  if (reference.find('/') == std::string::npos) return none;
  const EndingTable::Group* group = table.find(joinOfRepetition(reference));
  if (group == nullptr) return none;
  Entries& entries = repetitions_[reference];
  for (FolderWalk::Index entry = group->chain; entry != FolderWalk::kNone; entry = table.next(entry)) {
    if (endsInReference(walk_.path(entry), reference)) entries.push_back(entry);
  }
  return entries;
}

bool PathIndex::endsInReference(const std::string& path, std::string_view reference) const {
  if (!path.ends_with(reference)) return false;
  const std::string rest = removingOccurrences(path, reference);
  return rest.empty() || rest.ends_with('/');
}

}  // namespace quillmeter
