#include "cli/ProjectPath.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "analysis/ProjectChooser.h"

namespace quillmeter {

std::string projectAtArgument(const std::string& argument) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::path path = fs::absolute(argument, error);
  if (error) path = argument;
  if (std::find(path.begin(), path.end(), "..") != path.end()) {
    const fs::path resolved = fs::canonical(path, error);
    if (!error) path = resolved;
  } else {
    path = path.lexically_normal();
  }
  std::string folder = path.string();
  while (folder.size() > 1 && folder.ends_with('/'))
    folder.pop_back();
  return chosenProject(folder);
}

}  // namespace quillmeter
