#pragma once

#include "analysis/ProjectRules.h"
#include "measuring/FileKinds.h"

namespace quillmeter {

/// The table of the current rules: the kinds of files that a project of today is made of. A file without an
/// extension is of no kind, whatever its name is: ask `currentKind`.
[[nodiscard]] const FileKindTable& currentKinds();

/// The table of kinds of a set of rules.
[[nodiscard]] const FileKindTable& kindsBy(ProjectRules rules);

/// The kind of the file at a location.
[[nodiscard]] FileKind currentKind(std::string_view location);

}  // namespace quillmeter
