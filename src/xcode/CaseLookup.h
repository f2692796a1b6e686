#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "xcode/DiskView.h"

namespace quillmeter {

/// Finds what stands at a location, if need be without regard to letter case: piece by piece from "/", each
/// piece as it stands if it exists, else the entry, first in byte order, that is called the same otherwise.
class CaseLookup {
 public:
  struct Found {
    std::string path;  ///< with the names found on disk
    FileStatus::Type type = FileStatus::Type::other;
  };

  explicit CaseLookup(DiskView& disk) : disk_(disk) {}

  [[nodiscard]] std::optional<Found> find(const std::string& location);

 private:
  /// The names of a folder, first in byte order, by what they are called without regard to case.
  using Names = std::unordered_map<std::string, std::string_view>;

  [[nodiscard]] const std::optional<std::string>& folder(std::string_view location);
  [[nodiscard]] std::optional<Found> inFolder(const std::string& folder, std::string_view name);
  [[nodiscard]] const Names& names(const std::string& folder);

  DiskView& disk_;
  std::unordered_map<std::string, std::optional<std::string>> folders_;  ///< absent: there is none
  std::unordered_map<std::string, Names> names_;
};

}  // namespace quillmeter
