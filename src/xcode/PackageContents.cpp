#include "xcode/PackageContents.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>

#include "support/Paths.h"
#include "xcode/Locations.h"

namespace quillmeter {
namespace {

constexpr std::string_view kManifest = "Package.swift";
constexpr std::array<std::string_view, 6> kUsualFolders = {"Plugins", "Source", "Sources",
                                                           "Tests",   "src",    "srcs"};

bool isManifest(const FolderEntry& entry) {
  const std::string_view name = entry.name;
  const bool named = name == kManifest || (name.starts_with("Package@") && name.ends_with(".swift"));
  return named && entry.type == FolderEntry::Type::file;
}

/// The location that a manifest names; nothing when it lies outside of the package.
std::optional<std::string> locationInPackage(const std::string& package, std::string_view path) {
  std::string location = normalisedLocation(path.starts_with('/') ? "/" : package, path);
  return isBelow(location, package) ? std::optional(std::move(location)) : std::nullopt;
}

}  // namespace

std::vector<std::string_view> pathsInManifest(std::string_view manifest) {
  constexpr std::string_view label = "path:";
  std::vector<std::string_view> paths;
  for (std::size_t found = manifest.find(label); found != std::string_view::npos;
       found = manifest.find(label)) {
    manifest.remove_prefix(found + label.size());
    const std::size_t opening = manifest.find_first_not_of(" \t\n\v\f\r");
    if (opening == std::string_view::npos || manifest[opening] != '"') continue;
    const std::size_t closing = manifest.find_first_of("\"\\\n\r", opening + 1);
    if (closing == std::string_view::npos || manifest[closing] != '"') continue;
    paths.push_back(manifest.substr(opening + 1, closing - opening - 1));
  }
  return paths;
}

std::optional<PackageContents> packageAt(DiskView& disk, const std::string& folder) {
  const std::string manifest = joinedPath(folder, kManifest);
  if (!disk.isFile(manifest)) return std::nullopt;
  PackageContents package;
  for (const FolderEntry& entry : disk.entries(folder))
    if (isManifest(entry)) package.manifests.push_back(joinedPath(folder, entry.name));
  // A folder that can be searched but not listed.
  if (package.manifests.empty()) package.manifests.push_back(manifest);

  std::set<std::string> folders;
  for (const std::string_view name : kUsualFolders)
    folders.insert(joinedPath(folder, name));
  const std::string text = disk.textOf(manifest);
  for (const std::string_view path : pathsInManifest(text))
    if (auto location = locationInPackage(folder, path)) folders.insert(*std::move(location));
  std::copy_if(folders.begin(), folders.end(), std::back_inserter(package.folders),
               [&](const std::string& location) { return disk.isFolder(location); });
  return package;
}

}  // namespace quillmeter
