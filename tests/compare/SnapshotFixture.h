#pragma once

#include <string>
#include <utility>
#include <vector>

#include "compare/Snapshot.h"

namespace quillmeter::testing {

/// A file with lines and bytes, the other counters following from its lines.
inline SnapshotFile snapshotFile(std::string path, std::int64_t lines, std::int64_t size) {
  return {std::move(path), {size, lines, lines / 10, lines / 2, lines * 3, lines * 20, lines * 25}};
}

inline Snapshot snapshotWith(std::vector<SnapshotFile> files) {
  Snapshot snapshot;
  snapshot.projectTitle = "App";
  snapshot.initialPath = "/w/App.xcodeproj";
  snapshot.rules = "classic";
  snapshot.files = std::move(files);
  arrange(snapshot);
  return snapshot;
}

}  // namespace quillmeter::testing
