#include "xcode/CaseLookup.h"

#include <algorithm>

#include "support/Paths.h"
#include "xcode/Locations.h"
#include "xcode/NameFolding.h"

namespace quillmeter {

std::optional<CaseLookup::Found> CaseLookup::find(const std::string& location) {
  if (location == "/") return Found{location, FileStatus::Type::folder};
  const auto& parent = folder(parentLocation(location));
  return parent ? inFolder(*parent, lastPathComponent(location)) : std::nullopt;
}

const std::optional<std::string>& CaseLookup::folder(std::string_view location) {
  if (const auto known = folders_.find(std::string(location)); known != folders_.end()) return known->second;
  auto* reached = &folders_.try_emplace("/", "/").first->second;
  // Each folder on the way is looked up once, however many locations lie below it.
  for (std::size_t end = 0; *reached && end < location.size();) {
    const std::size_t start = end + 1;
    end = std::min(location.find('/', start), location.size());
    const auto [step, isNew] = folders_.try_emplace(std::string(location.substr(0, end)));
    if (isNew) {
      const auto found = inFolder(**reached, location.substr(start, end - start));
      if (found && found->type == FileStatus::Type::folder) step->second = found->path;
    }
    reached = &step->second;
  }
  return *reached;
}

std::optional<CaseLookup::Found> CaseLookup::inFolder(const std::string& folder, std::string_view name) {
  std::string path = joinedPath(folder, name);
  if (const auto type = disk_.typeAt(path)) return Found{std::move(path), *type};
  const auto& inIt = names(folder);
  const auto same = inIt.find(foldedName(name));
  if (same == inIt.end()) return std::nullopt;
  path = joinedPath(folder, same->second);
  const auto type = disk_.typeAt(path);
  return type ? std::optional(Found{std::move(path), *type}) : std::nullopt;
}

const CaseLookup::Names& CaseLookup::names(const std::string& folder) {
  const auto [known, isNew] = names_.try_emplace(folder);
  if (isNew)
    for (const FolderEntry& entry : disk_.entries(folder))
      known->second.try_emplace(foldedName(entry.name), entry.name);
  return known->second;
}

}  // namespace quillmeter
