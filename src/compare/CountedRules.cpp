#include "compare/CountedRules.h"

#include "analysis/ProjectRules.h"
#include "measuring/FileKinds.h"
#include "support/Paths.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter {

bool areKnownRules(std::string_view rules) {
  return rulesNamed(rules).has_value();
}

bool isSourceCode(std::string_view path, std::string_view rules) {
  const auto known = rulesNamed(rules);
  if (known == ProjectRules::classic)
    return classicKinds().kindOfPath(lastPathComponent(path)) == FileKind::code;
  return known == ProjectRules::current && currentKind(path) == FileKind::code;
}

}  // namespace quillmeter
