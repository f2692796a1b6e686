#include "compare/Snapshot.h"

#include <algorithm>
#include <tuple>

#include "analysis/MeasuredProject.h"
#include "compare/CountedRules.h"
#include "support/Paths.h"

namespace quillmeter {
namespace {

Counters countersOf(const FileObject& file) {
  Counters counters{};
  for (std::size_t i = 0; i < kFileCounters; ++i)
    counters[i] = std::max<std::int64_t>(0, integerValue((file.*kFileCounterFields[i].value)()));
  return counters;
}

}  // namespace

const std::array<std::string_view, kTotals>& totalNames() {
  static constexpr auto names = [] {
    std::array<std::string_view, kTotals> all{};
    for (std::size_t i = 0; i < kFileCounters; ++i)
      all[i] = kFileCounterFields[i].name;
    constexpr std::array<std::string_view, kTotals - kFileCounters> counts = {
        "getNumberCodeFiles", "getNumberImageFiles", "getNumberXIBFiles", "getNumberInstanceMethods",
        "getNumberStaticMethods"};
    for (std::size_t i = 0; i < counts.size(); ++i)
      all[kFileCounters + i] = counts[i];
    return all;
  }();
  return names;
}

std::optional<std::size_t> totalNamed(std::string_view name) {
  const auto& names = totalNames();
  const auto* const found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return std::nullopt;
  return static_cast<std::size_t>(found - names.begin());
}

Snapshot snapshotOf(const MeasuredProject& project) {
  Snapshot snapshot;
  snapshot.projectTitle = project.projectTitle();
  snapshot.initialPath = project.initialPath();
  snapshot.rules = rulesName(project.rules());
  const std::string_view folder = parentFolder(snapshot.initialPath);
  snapshot.files.reserve(project.files().size());
  for (const auto& file : project.files())
    snapshot.files.push_back({relativePath(file->filePath().value_or(""), folder), countersOf(*file)});
  const std::array<std::size_t, kTotals - kFileCounters> counts = {
      project.getNumberCodeFiles(), project.getNumberImageFiles(), project.getNumberXIBFiles(),
      project.getNumberInstanceMethods(), project.getNumberStaticMethods()};
  for (std::size_t i = 0; i < counts.size(); ++i)
    snapshot.totals[kFileCounters + i] = static_cast<std::int64_t>(counts[i]);
  arrange(snapshot);
  return snapshot;
}

void arrange(Snapshot& snapshot) {
  std::sort(snapshot.files.begin(), snapshot.files.end(), [](const SnapshotFile& a, const SnapshotFile& b) {
    return std::tie(a.path, a.counters) < std::tie(b.path, b.counters);
  });
  for (std::size_t i = 0; i < kFileCounters; ++i)
    snapshot.totals[i] = 0;
  for (const SnapshotFile& file : snapshot.files) {
    const bool isCode = isSourceCode(file.path, snapshot.rules);
    for (std::size_t i = 0; i < kFileCounters; ++i) {
      if (i == kSizeCounter || isCode)
        snapshot.totals[i] = saturatedSum(snapshot.totals[i], file.counters[i]);
    }
  }
}

}  // namespace quillmeter
