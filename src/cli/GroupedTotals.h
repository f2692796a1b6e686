#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "measuring/FileCounters.h"

namespace quillmeter {

class JsonWriter;
class Output;

/// What the files of a project are grouped by.
enum class Grouping { target, folder, kind };

/// The sums over a group's files: every counter and the size, each file of the group counted in full.
struct GroupTotals {
  std::string name;
  std::uint64_t files = 0;
  std::array<std::int64_t, kFileCounters> counters{};  ///< as in `kFileCounterFields`
};

/// The groups of a project: by target in the project's order and then "no target", by the first folder below
/// the project's folder in ascending byte order ("." for files in that folder itself, "outside" last), or by
/// kind in the order of the table of kinds. A file of several targets counts in each. Groups without files
/// are left out, but for targets.
[[nodiscard]] std::vector<GroupTotals> groupedTotals(const MeasuredProject& project, Grouping grouping);

/// A line for each group, its name to the left.
void writeGroups(const std::vector<GroupTotals>& groups, Grouping grouping, Output& output);
/// An array of objects.
void writeGroups(const std::vector<GroupTotals>& groups, JsonWriter& json);

}  // namespace quillmeter
