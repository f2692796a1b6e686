#include "analysis/ProjectRules.h"

namespace quillmeter {

std::string_view rulesName(ProjectRules rules) {
  return rules == ProjectRules::current ? "current" : "classic";
}

std::optional<ProjectRules> rulesNamed(std::string_view name) {
  for (const ProjectRules rules : {ProjectRules::classic, ProjectRules::current}) {
    if (name == rulesName(rules)) return rules;
  }
  return std::nullopt;
}

}  // namespace quillmeter
