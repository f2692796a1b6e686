#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "measuring/FileCounters.h"

namespace quillmeter {

class MeasuredProject;

/// The numbers of one file, in the order of `kFileCounterFields`; an absent one is 0.
using Counters = std::array<std::int64_t, kFileCounters>;

/// The counters that decide how much a file has changed.
inline constexpr std::size_t kSizeCounter = 0;
inline constexpr std::size_t kLinesCounter = 1;

/// The numbers of a whole project: the sums of the counters, then the numbers of files of each kind.
inline constexpr std::size_t kTotals = kFileCounters + 5;
using Totals = std::array<std::int64_t, kTotals>;

/// The names of `Totals`, in its order: those of the counters and those under "totals" in the JSON.
[[nodiscard]] const std::array<std::string_view, kTotals>& totalNames();

/// The place of a name in `totalNames`; nothing for any other text. Places below `kFileCounters` are
/// counters, which single files have as well.
[[nodiscard]] std::optional<std::size_t> totalNamed(std::string_view name);

struct SnapshotFile {
  std::string path;  ///< bytes, as reached from the project's folder: two checkouts have the same
  Counters counters{};
};

/// What a comparison knows of a measured project. A plain value, made of a project that was read or of the
/// JSON that `measure` wrote of it, which give the same.
struct Snapshot {
  std::string projectTitle;
  std::string initialPath;  ///< the bundle
  std::string rules;        ///< by which the files were chosen
  std::vector<SnapshotFile>
      files;  ///< by path, then by counters; one that is referenced twice is there twice
  Totals totals{};
};

[[nodiscard]] Snapshot snapshotOf(const MeasuredProject& project);

/// Brings the files of a snapshot into order and adds their counters up: sizes of all files, everything else
/// of source code alone, as the overview does. The numbers of files are left as they are. Sums stay at the
/// largest number where they leave 64 bits.
void arrange(Snapshot& snapshot);

}  // namespace quillmeter
