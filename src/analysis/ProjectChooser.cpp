#include "analysis/ProjectChooser.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <optional>
#include <system_error>

#include "files/ReadingFiles.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

std::optional<std::string> projectInside(const std::string& folder, const FileSystem& fileSystem) {
  const auto names = listFolder(fileSystem, folder);
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

std::string absoluteFolder(const std::string& argument) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::path path = fs::absolute(argument, error);
  if (error == std::errc::not_enough_memory) throw std::bad_alloc();
  if (error) path = argument;
  if (std::find(path.begin(), path.end(), "..") != path.end()) {
    const fs::path resolved = fs::canonical(path, error);
    if (error == std::errc::not_enough_memory) throw std::bad_alloc();
    if (!error) path = resolved;
  }
  return std::string(withoutTrailingSlashes(path.lexically_normal().string()));
}

bool holdsProject(const std::string& folder) {
  return holdsProject(folder, FileSystem::real());
}

bool holdsProject(const std::string& folder, const FileSystem& fileSystem) {
  return projectInside(folder, fileSystem).has_value();
}

}  // namespace quillmeter
