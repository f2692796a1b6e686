#include "xcode/LeftOut.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <string_view>
#include <unordered_set>
#include <variant>

#include "support/Paths.h"
#include "xcode/CurrentKinds.h"
#include "xcode/Description.h"
#include "xcode/DiskView.h"
#include "xcode/Locations.h"
#include "xcode/ProjectFiles.h"

namespace quillmeter {
namespace {

std::size_t sourcesIn(const ExtensionCounts& files) {
  return std::accumulate(files.begin(), files.end(), std::size_t{0}, [](std::size_t sum, const auto& entry) {
    return sum + (currentKinds().kind(entry.first) == FileKind::code ? entry.second : 0);
  });
}

/// Whether a closer look may find more source files than the classic rules measured. They may be what the
/// references name, what lies in folders, and what the classic rules look for in the wrong place.
bool mayBeMuch(const MeasuredProject& project) {
  const ProjectFindings& found = project.findings();
  if (project.files().empty() || found.hasOtherFolders) return true;
  const std::size_t most = sourcesIn(found.other) + sourcesIn(found.inFolders) + found.missing.size();
  return most > 0 && most > project.getNumberCodeFiles();
}

std::vector<std::pair<std::string, std::size_t>> mostFirst(const std::map<std::string, std::size_t>& counts) {
  std::vector<std::pair<std::string, std::size_t>> sorted(counts.begin(), counts.end());
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto& left, const auto& right) { return left.second > right.second; });
  return sorted;
}

}  // namespace

std::size_t LeftOut::count() const {
  return std::accumulate(sources.begin(), sources.end(), std::size_t{0},
                         [](std::size_t sum, const auto& entry) { return sum + entry.second; });
}

namespace {

LeftOut leftOut(const MeasuredProject& classic, const FileSystem& fileSystem) {
  LeftOut result;
  if (classic.rules() != ProjectRules::classic || classic.findings().folder.empty()) return result;
  if (!mayBeMuch(classic)) return result;
  const auto description = readDescription(fileSystem, classic.initialPath());
  const auto* graph = std::get_if<ObjectGraph>(&description);
  if (graph == nullptr) return result;
  std::unordered_set<std::string_view> measured;
  for (const auto& file : classic.files())
    if (file->filePath()) measured.insert(*file->filePath());
  DiskView disk(fileSystem);
  const std::string folder = projectFolderOf(*graph, normalisedLocation(classic.findings().folder));
  std::map<std::string, std::size_t> counts;
  const ProjectFiles current = projectFilesOf(*graph, folder, disk);
  for (const std::string& path : current.files) {
    if (currentKind(path) == FileKind::code && !measured.contains(path)) ++counts[locationExtension(path)];
  }
  result.sources = mostFirst(counts);
  result.isMuch = result.count() > classic.getNumberCodeFiles();
  return result;
}

}  // namespace

LeftOut leftOutByClassic(const MeasuredProject& classic, const FileSystem& fileSystem) {
  try {
    return leftOut(classic, fileSystem);
  } catch (const TooFewDescriptors&) {
    return {};  // a hint that is too small would be none
  }
}

}  // namespace quillmeter
