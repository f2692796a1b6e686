#pragma once

#include <optional>
#include <string_view>

namespace quillmeter {

/// The sets of rules that say which files a project has. How a file is measured is the same under both.
enum class ProjectRules {
  classic,  ///< the file-reference section line by line, each name looked up below the project's folder
  current,  ///< the object graph, as today's Xcode reads it
};

/// What outputs and options call a set of rules: "classic" or "current".
[[nodiscard]] std::string_view rulesName(ProjectRules rules);
/// The rules of that name; absent when there are none.
[[nodiscard]] std::optional<ProjectRules> rulesNamed(std::string_view name);

}  // namespace quillmeter
