#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "files/FileSystem.h"

namespace quillmeter {

/// The source files of a project that the classic rules leave out and the current rules would measure.
struct LeftOut {
  /// How many there are of each extension, most first. Only looked for where there may be many.
  std::vector<std::pair<std::string, std::size_t>> sources;
  /// Whether the user should hear of it: the classic rules measured nothing, or less than they left out.
  bool isMuch = false;

  [[nodiscard]] std::size_t count() const;
};

/// What a read by the classic rules left out, where that may be much. Follows the references by the current
/// rules then, without measuring anything; what the read found beside its files tells most projects apart
/// before, at no cost. None for a project read by other rules, one that was never read, and one whose
/// description has a fault; and where too many files are open to look.
[[nodiscard]] LeftOut leftOutByClassic(const MeasuredProject& classic,
                                       const FileSystem& fileSystem = FileSystem::real());

}  // namespace quillmeter
