#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmeter {

/// Finds the last of many entries that have a key: a hash table of entry numbers, which asks for the keys
/// themselves as it needs them, so that it takes eight to sixteen bytes an entry.
class KeyTable {
 public:
  KeyTable() = default;

  /// `keyAt(i)` is the key of entry i, here and in `find`.
  template <class KeyAt>
  KeyTable(std::size_t entries, KeyAt keyAt) {
    std::size_t size = 2;
    while (size < 2 * entries)
      size *= 2;
    slots_.assign(size, kEmpty);
    for (std::size_t entry = 0; entry < entries; ++entry)
      slots_[slotOf(keyAt(entry), keyAt)] = static_cast<std::uint32_t>(entry);
  }

  template <class KeyAt>
  [[nodiscard]] std::optional<std::size_t> find(std::string_view key, KeyAt keyAt) const {
    const std::uint32_t entry = slots_[slotOf(key, keyAt)];
    if (entry == kEmpty) return std::nullopt;
    return entry;
  }

 private:
  static constexpr std::uint32_t kEmpty = UINT32_MAX;

  /// The slot that holds an entry of `key`, or the empty one where it belongs.
  template <class KeyAt>
  [[nodiscard]] std::size_t slotOf(std::string_view key, KeyAt keyAt) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = std::hash<std::string_view>()(key) & mask;
    while (slots_[slot] != kEmpty && keyAt(slots_[slot]) != key)
      slot = (slot + 1) & mask;
    return slot;
  }

  std::vector<std::uint32_t> slots_;
};

}  // namespace quillmeter
