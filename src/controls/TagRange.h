#pragma once

#include <cstdint>

namespace quillmeter {

/// A run of `length` tags that begins with `location`.
struct TagRange {
  std::uint64_t location;
  std::uint64_t length;

  /// Compared as unsigned numbers: a tag below the range is very far above it, and so is not in it.
  [[nodiscard]] constexpr bool contains(std::int64_t tag) const {
    return static_cast<std::uint64_t>(tag) - location < length;
  }
};

/// The tags from `startTag` to `endTag`, both included. An end just before the start gives no tag at all.
[[nodiscard]] constexpr TagRange tagRange(std::int64_t startTag, std::int64_t endTag) {
  return {static_cast<std::uint64_t>(startTag),
          static_cast<std::uint64_t>(endTag) - static_cast<std::uint64_t>(startTag) + 1};
}

}  // namespace quillmeter
