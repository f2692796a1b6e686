#include "analysis/ProjectChooser.h"

#include <optional>

#include "analysis/FileSystem.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

std::optional<std::string> projectInside(const std::string& folder, const FileSystem& fileSystem) {
  const auto names = fileSystem.listFolder(folder);
  if (!names) return std::nullopt;
  for (const std::string& name : *names) {
    if (lowerCased(name).ends_with(".xcodeproj")) return joinedPath(folder, name);
  }
  return std::nullopt;
}

}  // namespace

std::string chosenProject(const std::string& folder) {
  return chosenProject(folder, FileSystem::real());
}

std::string chosenProject(const std::string& folder, const FileSystem& fileSystem) {
  return projectInside(folder, fileSystem).value_or(folder);
}

bool holdsProject(const std::string& folder) {
  return projectInside(folder, FileSystem::real()).has_value();
}

}  // namespace quillmeter
