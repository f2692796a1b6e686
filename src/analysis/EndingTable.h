#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "files/FolderWalk.h"

namespace quillmeter {

/// A hash table from the endings of a walk's paths to the entries that have them, for endings of a fixed
/// number of components. Entries of one ending form a group, a chain in walk order. The table refers to the
/// walk, which must outlive it, and holds no text of its own.
class EndingTable {
 public:
  enum class Letters { asTheyAre, lowerCased };

  struct Group {
    std::uint32_t hash = 0;                           ///< 0 marks a slot that no group has taken
    FolderWalk::Index chain = FolderWalk::kNone;      ///< all entries of the group, in walk order
    FolderWalk::Index candidate = FolderWalk::kNone;  ///< the first that has not been dropped
  };

  /// `components` is at least 1. Paths with fewer components are in no group.
  EndingTable(const FolderWalk& walk, std::size_t components, Letters letters);

  /// The group of an ending (given lower-cased to a table of lower-cased letters); null when no path has it.
  [[nodiscard]] Group* find(std::string_view ending);

  /// The entry behind `entry` in its group; `FolderWalk::kNone` at the end.
  [[nodiscard]] FolderWalk::Index next(FolderWalk::Index entry) const { return next_[entry]; }

 private:
  [[nodiscard]] bool hasEnding(FolderWalk::Index entry, std::string_view ending) const;
  [[nodiscard]] std::optional<std::uint32_t> hashOfEnding(FolderWalk::Index entry) const;
  [[nodiscard]] bool haveSameEnding(FolderWalk::Index left, FolderWalk::Index right) const;
  void insert(FolderWalk::Index entry, std::uint32_t hash);

  template <class IsGroup>
  [[nodiscard]] Group& slotFor(std::uint32_t hash, const IsGroup& isGroup);

  const FolderWalk& walk_;
  std::size_t components_;
  Letters letters_;
  std::vector<std::string_view> rootComponents_;
  std::vector<Group> slots_;
  std::vector<FolderWalk::Index> next_;
};

}  // namespace quillmeter
