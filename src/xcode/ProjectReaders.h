#pragma once

#include <memory>

#include "analysis/ProjectReader.h"

namespace quillmeter {

/// A reader of projects by one set of rules. `fileSystem` must outlive it.
[[nodiscard]] std::unique_ptr<ProjectReader> projectReader(ProjectRules rules,
                                                           const FileSystem& fileSystem = FileSystem::real());

}  // namespace quillmeter
