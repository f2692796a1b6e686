#include "cli/NearbyProject.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "analysis/ProjectChooser.h"
#include "files/ReadingFiles.h"
#include "support/NearestWord.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

constexpr std::size_t kMostNamed = 3;

std::string question(const std::vector<std::string>& paths) {
  std::string text;
  for (const std::string& path : paths)
    text += (text.empty() ? ", did you mean " : " or ") + path;
  return text.empty() ? text : text + "?";
}

std::vector<std::string> namesIn(const std::string& folder) {
  auto names = listFolder(FileSystem::real(), folder);
  return names ? *std::move(names) : std::vector<std::string>();
}

std::vector<std::string> nearestBeside(const std::string& path) {
  const std::string folder(parentFolder(path));
  const auto nearest = nearestWord(lastPathComponent(path), namesIn(folder));
  return nearest ? std::vector{joinedPath(folder, *nearest)} : std::vector<std::string>();
}

/// A folder for everybody's files, such as /tmp: a project in there has nothing to do with what lies beside
/// it.
bool isEverybodys(const std::string& folder) {
  namespace fs = std::filesystem;
  std::error_code error;
  return (fs::status(folder, error).permissions() & fs::perms::sticky_bit) != fs::perms::none;
}

/// The bundle that `path` lies in, or else the next folder above it that holds one.
std::vector<std::string> projectAbove(const std::string& path) {
  for (std::string folder(parentFolder(path)); folder.size() > 1 && !isEverybodys(folder);
       folder = parentFolder(folder)) {
    const bool isBundle = lowerCased(folder).ends_with(".xcodeproj");
    if (isBundle || holdsProject(folder)) return {folder};
  }
  return {};
}

std::vector<std::string> projectsInside(const std::string& folder) {
  std::vector<std::string> projects;
  for (const std::string& name : namesIn(folder)) {
    std::string inside = joinedPath(folder, name);
    if (holdsProject(inside)) projects.push_back(std::move(inside));
    if (projects.size() == kMostNamed) break;
  }
  return projects;
}

}  // namespace

std::string questionForNearbyProject(const std::string& path) {
  if (!FileSystem::real().status(path)) return question(nearestBeside(path));
  const std::vector<std::string> inside = projectsInside(path);
  return question(inside.empty() ? projectAbove(path) : inside);
}

}  // namespace quillmeter
