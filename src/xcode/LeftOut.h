#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "files/FileSystem.h"

namespace quillmeter {

/// The source files of a project that the current rules would measure and the classic ones did not.
struct LeftOut {
  /// By extension, the most first.
  std::vector<std::pair<std::string, std::size_t>> sources;
  /// The classic rules measured nothing, or left out more source files than they measured.
  bool isMuch = false;

  [[nodiscard]] std::size_t count() const;
};

/// What a read by the classic rules left out.
[[nodiscard]] LeftOut leftOutByClassic(const MeasuredProject& classic,
                                       const FileSystem& fileSystem = FileSystem::real());

}  // namespace quillmeter
