#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "compare/Snapshot.h"

namespace quillmeter {

/// A snapshot, or why there is none: a text for the user, without the file's name.
struct SnapshotReading {
  std::optional<Snapshot> snapshot;
  std::string error;  ///< empty when there is a snapshot
};

/// Reads the JSON that `measure` writes. Members that it does not know are skipped. A text without "rules" is
/// of the classic ones; one without "version" is from before there were versions, and of the first. Names
/// that are not UTF-8 become bytes again (see `JsonWriter`).
///
/// Any text is safe to give: what is not JSON, ends too early, lacks a member, is of another version or
/// unknown rules, or holds a number that is no count is told of. Time and memory are linear.
[[nodiscard]] SnapshotReading readSnapshot(std::string json);

/// The same for a file, or anything else that can be read to its end, of at most 1 GiB.
[[nodiscard]] SnapshotReading readSnapshotFile(const std::string& path);

/// The text of a JSON string, whose raw content (without quotes) is given. An escaped lone surrogate U+DC80
/// to U+DCFF is the byte 0x80 to 0xFF. Absent when an escape is broken, or of a surrogate that is no byte.
[[nodiscard]] std::optional<std::string> unescapedJson(std::string_view raw);

}  // namespace quillmeter
