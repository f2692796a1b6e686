#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillmeter {

/// What a reference that begins with "../" begins with, once or more often.
inline constexpr std::string_view kClimb = "../";

/// Where a "../" reference leads.
struct LinkedPath {
  std::string path;
  bool foldsPastRoot = false;  ///< whether it could not be folded, and `path` is as it stood
  bool isMissing = false;      ///< whether nothing is there; false when that was not looked up
};

/// Follows references that begin with "../" from the project folder: the first existing path wins among the
/// folder joined with the reference, with one "../" less, and so on, at most 50 times; its run of ".." is
/// then folded with the folders before it.
///
/// Each distinct path is looked up on the disk once while the memory for what was seen lasts. Paths that
/// differ only in how far they climb past the root folder are the same, so a reference takes at most one look
/// for each folder that the project folder lies in.
class LinkedReferences {
 public:
  using Exists = std::function<bool(const std::string& path)>;

  /// `realFolder` is where `folder` is without any link on the way, absolute; when it is not known, paths
  /// are looked up as they are.
  LinkedReferences(std::string folder, std::optional<std::string> realFolder, Exists exists);

  [[nodiscard]] const std::string& folder() const { return folder_; }

  /// Where `reference` leads; absent when it is too long to be the path of anything that can be built.
  [[nodiscard]] std::optional<LinkedPath> follow(std::string_view reference);

 private:
  [[nodiscard]] std::string shortestPath(std::string_view reference) const;
  [[nodiscard]] bool exists(std::string path);

  std::string folder_;
  std::optional<std::string> realFolder_;
  Exists exists_;
  std::unordered_map<std::string, bool> seen_;
  std::size_t seenBytes_ = 0;  ///< the length of all paths in `seen_`
};

}  // namespace quillmeter
