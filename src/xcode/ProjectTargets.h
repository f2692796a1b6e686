#pragma once

#include <vector>

#include "analysis/ProjectFindings.h"
#include "xcode/ObjectGraph.h"
#include "xcode/ProjectFiles.h"

namespace quillmeter {

/// The targets of a project that have build phases, in their order, a target that is named twice once. A file
/// may be in several of them, or in none.
[[nodiscard]] std::vector<ProjectTarget> projectTargetsOf(const ObjectGraph& graph,
                                                          const ProjectFiles& files);

}  // namespace quillmeter
