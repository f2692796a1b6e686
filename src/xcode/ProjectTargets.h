#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "xcode/ObjectGraph.h"
#include "xcode/ProjectFiles.h"

namespace quillmeter {

/// A target and the files it is built from.
struct ProjectTarget {
  std::string name;
  std::vector<std::uint32_t> files;  ///< ascending indices into the project's files
};

/// The targets of a project that have build phases, in their order, a target that is named twice once. A file
/// may be in several of them, or in none.
[[nodiscard]] std::vector<ProjectTarget> projectTargetsOf(const ObjectGraph& graph,
                                                          const ProjectFiles& files);

}  // namespace quillmeter
