#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace quillmeter {

/// The groups that files are shown, exported and reported in.
enum class FileGroup : std::uint8_t { c, headers, objectiveC, swift, images, interfaceFiles, storyboards };

/// A set of groups: what a filter shows, what an export covers. A plain value.
class FileGroups {
 public:
  static constexpr std::size_t kMost = 32;

  constexpr FileGroups() = default;
  constexpr FileGroups(std::initializer_list<FileGroup> groups) {
    for (const FileGroup group : groups)
      insert(group);
  }

  constexpr void insert(FileGroup group) { bits_ |= bit(group); }
  constexpr void insert(const FileGroups& groups) { bits_ |= groups.bits_; }
  [[nodiscard]] constexpr bool contains(FileGroup group) const { return (bits_ & bit(group)) != 0; }
  [[nodiscard]] constexpr bool empty() const { return bits_ == 0; }
  [[nodiscard]] constexpr bool operator==(const FileGroups&) const = default;

 private:
  [[nodiscard]] static constexpr std::uint32_t bit(FileGroup group) {
    return std::uint32_t{1} << static_cast<unsigned>(group);
  }

  std::uint32_t bits_ = 0;
};

}  // namespace quillmeter
