#include "compare/CountedRules.h"

#include "measuring/FileKinds.h"
#include "support/Paths.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter {

bool areKnownRules(std::string_view rules) {
  return rules == kClassicRules || rules == kCurrentRules;
}

bool isSourceCode(std::string_view path, std::string_view rules) {
  if (rules == kClassicRules) return classicKinds().kindOfPath(lastPathComponent(path)) == FileKind::code;
  return rules == kCurrentRules && currentKind(path) == FileKind::code;
}

}  // namespace quillmeter
