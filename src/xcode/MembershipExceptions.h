#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "xcode/ProjectFiles.h"

namespace quillmeter {

/// Finds the files of one synchronised folder that the exceptions to its membership list. The files are
/// sorted by path once, so that a listed folder is one run of them; no exception is compared with every file.
class MembershipExceptions {
 public:
  /// `files` must stay as it is meanwhile.
  MembershipExceptions(const ProjectFiles& files, const ProjectFiles::SynchronisedFolder& folder);

  /// Adds an exception as the description writes it: a path relative to the folder, exact in case, where a
  /// folder stands for everything in it; or "/Localized: D/N" or "/Localized/D/N" for N in each folder
  /// "*.lproj" of D. One that is empty lists nothing.
  void add(std::string_view exception);

  /// Whose files were listed: indices into the project's files, each once, in no order.
  [[nodiscard]] std::vector<std::uint32_t> listed() const;
  /// Those that were not.
  [[nodiscard]] std::vector<std::uint32_t> others() const;

  /// Starts again without exceptions.
  void clear() { runs_.clear(); }

 private:
  using Run = std::pair<std::size_t, std::size_t>;  ///< first, and one past the last of `sorted_`

  void addPath(const std::string& path);
  void addLocalized(std::string_view path);
  [[nodiscard]] const std::vector<std::string>& localizedFolders(const std::string& folder);
  [[nodiscard]] std::size_t firstFrom(std::string_view path) const;
  /// The runs in order, none touching another.
  [[nodiscard]] std::vector<Run> joinedRuns() const;
  [[nodiscard]] std::vector<std::uint32_t>::const_iterator at(std::size_t position) const {
    return sorted_.begin() + static_cast<std::ptrdiff_t>(position);
  }
  [[nodiscard]] std::string_view path(std::size_t position) const { return files_.files[sorted_[position]]; }

  const ProjectFiles& files_;
  std::string location_;
  std::vector<std::uint32_t> sorted_;
  std::unordered_map<std::string, std::vector<std::string>> localizedFolders_;  ///< by the folder they are in
  bool knowsLocalizedFolders_ = false;
  std::vector<Run> runs_;
};

}  // namespace quillmeter
