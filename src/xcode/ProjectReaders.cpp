#include "xcode/ProjectReaders.h"

#include "analysis/ParseProject.h"
#include "xcode/CurrentProject.h"

namespace quillmeter {

std::unique_ptr<ProjectReader> projectReader(ProjectRules rules, const FileSystem& fileSystem) {
  if (rules == ProjectRules::current) return std::make_unique<CurrentProject>(fileSystem);
  return std::make_unique<ParseProject>(fileSystem);
}

}  // namespace quillmeter
