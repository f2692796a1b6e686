#include "xcode/FileCollector.h"

#include <unordered_set>
#include <utility>

#include "xcode/CurrentKinds.h"
#include "xcode/FolderContents.h"

namespace quillmeter {
namespace {

constexpr std::uint32_t kOther = UINT32_MAX;

/// Whether what is missing at a location is at home on the machine that builds.
bool isForeign(const ReferencedLocation& location) {
  static const std::unordered_set<std::string_view> extensions = {
      "a", "app", "appex", "bundle", "dylib", "framework", "plugin", "tbd", "xcframework", "xctest"};
  return location.isFromAbsolutePath || location.path.find("$(") != std::string::npos ||
         extensions.contains(locationExtension(location.path));
}

}  // namespace

FileCollector::FileCollector(const ObjectGraph& graph, const std::string& projectFolder, DiskView& disk)
    : projectParent_(parentLocation(projectFolder)), disk_(disk), lookup_(disk) {
  result_.references.resize(graph.size());
}

void FileCollector::referenced(const ObjectGraph::Object& reference, const ReferencedLocation& location) {
  const auto found = lookup_.find(location.path);
  const auto origin = found ? filesAt(*found) : std::nullopt;
  if (!origin) return noteMissing(reference, location);
  noteCase(reference, location.path, *found);
  result_.references[reference.index()] = *origin;
}

void FileCollector::synchronised(const ObjectGraph::Object& group, const ReferencedLocation& location) {
  const auto found = lookup_.find(location.path);
  const auto origin = found ? contentsOf(*found) : std::nullopt;
  if (!origin) return noteMissing(group, location);
  noteCase(group, location.path, *found);
  result_.synchronisedFolders.push_back({group, found->path, *origin});
}

void FileCollector::packageReferenced(const ObjectGraph::Object& reference, const std::string& location) {
  const auto found = lookup_.find(location);
  if (!found || !packageFiles(*found)) return noteMissing(reference, {location});
  noteCase(reference, location, *found);
}

std::optional<FileCollector::Origin> FileCollector::filesAt(const Found& found) {
  if (found.type == FileStatus::Type::regular) return originOf([&] { add(found.path); });
  if (found.type != FileStatus::Type::folder) return std::nullopt;
  if (disk_.isFile(found.path == "/" ? "/Package.swift" : found.path + "/Package.swift"))
    return packageFiles(found);
  if (isClosedFolder(found.path) && mayBeEntered(found.path)) return Origin();
  return contentsOf(found);
}

std::optional<FileCollector::Origin> FileCollector::contentsOf(const Found& found) {
  if (found.type != FileStatus::Type::folder || !mayBeEntered(found.path)) return std::nullopt;
  return filesIn(found.path);
}

std::optional<FileCollector::Origin> FileCollector::packageFiles(const Found& found) {
  if (found.type != FileStatus::Type::folder) return std::nullopt;
  if (const auto known = packages_.find(found.path); known != packages_.end()) return known->second;
  const auto package = packageAt(disk_, found.path);
  std::optional<Origin> origin;
  if (package && (!package->folders.empty() || mayBeEntered(found.path)))
    origin = filesOf(found.path, *package);
  packages_.emplace(found.path, origin);
  return origin;
}

FileCollector::Origin FileCollector::filesIn(const std::string& folder) {
  if (const auto known = contents_.find(folder); known != contents_.end()) return known->second;
  const Origin origin =
      originOf([&] { forEachFileIn(disk_, folder, [this](const std::string& path) { add(path); }); });
  contents_.emplace(folder, origin);
  return origin;
}

FileCollector::Origin FileCollector::filesOf(const std::string& folder, const PackageContents& package) {
  const auto addContents = [this](const std::string& inner) {
    forEachFileIn(disk_, inner, [this](const std::string& path) { add(path); });
  };
  return originOf([&] {
    for (const std::string& manifest : package.manifests)
      add(manifest);
    for (const std::string& inner : package.folders)
      addContents(inner);
    if (package.folders.empty()) addContents(folder);
  });
}

template <class Add>
FileCollector::Origin FileCollector::originOf(Add addFiles) {
  const auto first = static_cast<std::uint32_t>(result_.appearances.size());
  addFiles();
  return {first, static_cast<std::uint32_t>(result_.appearances.size()) - first};
}

void FileCollector::add(const std::string& path) {
  const auto [known, isNew] = indices_.try_emplace(path, kOther);
  if (isNew) {
    if (currentKind(path) != FileKind::none) {
      known->second = static_cast<std::uint32_t>(result_.files.size());
      result_.files.push_back(path);
    } else {
      result_.other.add(locationExtension(path));
    }
  }
  if (known->second != kOther) result_.appearances.push_back(known->second);
}

bool FileCollector::mayBeEntered(const std::string& folder) const {
  return !isBelow(projectParent_, folder);
}

void FileCollector::noteMissing(const ObjectGraph::Object& reference, const ReferencedLocation& location) {
  if (isForeign(location)) {
    ++result_.foreign;
  } else {
    result_.missing.push_back({location.path, std::string(reference.identifier())});
  }
}

void FileCollector::noteCase(const ObjectGraph::Object& reference, const std::string& location,
                             const Found& found) {
  if (found.path != location)
    result_.otherCase.push_back({location, found.path, std::string(reference.identifier())});
}

}  // namespace quillmeter
