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
  std::vector<std::pair<std::string, std::size_t>>
      sources;  ///< by extension, most first, when there are many
  /// Whether the user should hear of it: the classic rules measured nothing, or less than they left out.
  bool isMuch = false;

  [[nodiscard]] std::size_t count() const;
};

<<<<<<< HEAD
/// What a read by the classic rules left out, where that may be much. Follows the references by the current
/// rules then, without measuring anything; what the read found beside its files tells most projects apart
/// before, at no cost. None for a project read by other rules, one that was never
/// read, and one whose description has a fault.
=======
/// What a read by the classic rules left out. Follows the references by the current rules without measuring
/// anything, and does even that only where the description refers to something that the classic rules do not
/// look at, so it costs most projects nothing. None for a project read by other rules, one that was never
/// read, and one whose description has a fault; and where too many files are open to look.
>>>>>>> trust
[[nodiscard]] LeftOut leftOutByClassic(const MeasuredProject& classic,
                                       const FileSystem& fileSystem = FileSystem::real());

}  // namespace quillmeter
