#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compare/Snapshot.h"

namespace quillmeter {

enum class ChangeKind { added, removed, moved, grown, shrunk, changed, unchanged };

inline constexpr std::size_t kChangeKinds = 7;

/// "added", "removed" and so on: in every output.
[[nodiscard]] std::string_view changeName(ChangeKind kind);

/// What became of one file.
struct FileChange {
  ChangeKind kind = ChangeKind::unchanged;
  std::string path;                ///< in the later snapshot; of a removed file in the earlier one
  std::string earlierPath;         ///< of a moved file; else the same as `path`
  std::optional<Counters> before;  ///< absent for an added file
  std::optional<Counters> after;   ///< absent for a removed file

  /// How much a counter has grown; a file that is not there has 0 of everything.
  [[nodiscard]] std::int64_t difference(std::size_t counter) const;
};

/// How two snapshots of a project differ, file by file. Files are the same when their paths are; of one that
/// is referenced more than once each reference has its partner, in the order of their counters. What is
/// left over on both sides is *moved* where name and all counters are equal, in the order of the paths.
/// A file is *grown* or *shrunk* by its lines, or by its bytes where the lines are as before; *changed* means
/// that only other counters differ.
struct Differences {
  Totals before{};
  Totals after{};
  std::vector<FileChange> files;  ///< unchanged ones too: most lines first, then most bytes, then by path
  std::array<std::size_t, kChangeKinds> numbers{};  ///< of files of each kind

  [[nodiscard]] std::size_t number(ChangeKind kind) const { return numbers[static_cast<std::size_t>(kind)]; }
  /// How many of `files` are not unchanged: they come first.
  [[nodiscard]] std::size_t changes() const { return files.size() - number(ChangeKind::unchanged); }
};

/// Takes n log n time. The snapshots' rules are not looked at.
[[nodiscard]] Differences differencesBetween(const Snapshot& before, const Snapshot& after);

}  // namespace quillmeter
