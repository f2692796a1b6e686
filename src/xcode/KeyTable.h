#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmeter {

/// Finds the last of many entries that have a key: a hash table of entry numbers, which asks for the keys
/// themselves as it needs them, so that it takes sixteen to thirty-two bytes an entry.
class KeyTable {
 public:
  KeyTable() = default;

  /// `keyAt(i)` is the key of entry i, here and in `find`.
  template <class KeyAt>
  KeyTable(std::size_t entries, KeyAt keyAt) {
    std::size_t size = 2;
    while (size < 2 * entries)
      size *= 2;
    slots_.assign(size, {});
    for (std::size_t entry = 0; entry < entries; ++entry) {
      const std::string_view key = keyAt(entry);
      const std::size_t hash = hashOf(key);
      slots_[slotOf(key, hash, keyAt)] = {static_cast<std::uint32_t>(entry), tagOf(hash)};
    }
  }

  template <class KeyAt>
  [[nodiscard]] std::optional<std::size_t> find(std::string_view key, KeyAt keyAt) const {
    const std::uint32_t entry = slots_[slotOf(key, hashOf(key), keyAt)].entry;
    if (entry == kEmpty) return std::nullopt;
    return entry;
  }

 private:
  static constexpr std::uint32_t kEmpty = UINT32_MAX;

  /// The tag is another part of the key's hash: where it differs, the key need not be fetched.
  struct Slot {
    std::uint32_t entry = kEmpty;
    std::uint32_t tag = 0;
  };

  [[nodiscard]] static std::size_t hashOf(std::string_view key) { return std::hash<std::string_view>()(key); }
  [[nodiscard]] static std::uint32_t tagOf(std::size_t hash) {
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(hash) >> 32U);
  }

  /// The slot that holds an entry of `key`, or the empty one where it belongs.
  template <class KeyAt>
  [[nodiscard]] std::size_t slotOf(std::string_view key, std::size_t hash, KeyAt keyAt) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot].entry != kEmpty &&
           (slots_[slot].tag != tagOf(hash) || keyAt(slots_[slot].entry) != key))
      slot = (slot + 1) & mask;
    return slot;
  }

  std::vector<Slot> slots_;
};

}  // namespace quillmeter
