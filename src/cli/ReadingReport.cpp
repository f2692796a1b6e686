#include "cli/ReadingReport.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "analysis/ProjectChooser.h"
#include "cli/Measurement.h"
#include "cli/NearbyProject.h"
#include "files/ReadingFiles.h"
#include "support/Paths.h"
#include "support/Text.h"
#include "xcode/LeftOut.h"

namespace quillmeter {
namespace {

using Counts = std::vector<std::pair<std::string, std::size_t>>;

/// More extensions than this make no line that anybody reads.
constexpr std::size_t kMostExtensions = 8;

/// "12 .swift, 3 .plist and 1 without extension"; from a certain number of extensions on, all the rest as
/// one.
std::string countsText(const Counts& counts) {
  const std::size_t shown = counts.size() > kMostExtensions ? kMostExtensions - 1 : counts.size();
  std::vector<std::string> pieces;
  for (const auto& [extension, files] : std::span(counts).first(shown))
    pieces.push_back(std::to_string(files) + " " +
                     (extension.empty() ? "without extension" : "." + extension));
  if (shown < counts.size()) {
    const auto rest = std::span(counts).subspan(shown);
    const std::size_t others =
        std::accumulate(rest.begin(), rest.end(), std::size_t{0},
                        [](std::size_t sum, const auto& count) { return sum + count.second; });
    pieces.push_back(std::to_string(others) + " others");
  }
  return listInWords(pieces);
}

bool isBundle(const std::string& path) {
  return lowerCased(lastPathComponent(path)).ends_with(".xcodeproj");
}

/// What keeps the description of a bundle from being read; empty when nothing does.
std::string obstacleTo(const std::string& bundle) {
  const std::string description = joinedPath(bundle, "project.pbxproj");
  const auto status = FileSystem::real().status(description);
  if (!status && status.error().kind() == DiskError::Kind::missing)
    return bundle + " holds no project.pbxproj";
  const auto file = FileSystem::real().open(description);
  const int error = !status ? status.error().number : !file ? file.error().number : 0;
  if (error != 0) return description + ": " + std::generic_category().message(error);
  if (status->type != FileStatus::Type::regular) return description + " is no file";
  return {};
}

/// Why a path that exists and is no bundle is no project either.
std::string noProjectIn(const std::string& path, bool isFolder) {
  if (isFolder) {
    const auto names = listFolder(FileSystem::real(), path);
    if (!names) return path + ": " + std::generic_category().message(names.error().number);
  }
  return path + (isFolder ? " holds" : " is no folder, so it holds") + " no .xcodeproj bundle" +
         questionForNearbyProject(path);
}

std::string nothingKnown(const ProjectFindings& findings) {
  std::string text = "the project references no file of a known kind that is there";
  if (!findings.other.empty()) text += "; it references " + countsText(findings.other.counts());
  if (!findings.missing.empty()) {
    text += "; nothing is found for " + std::to_string(findings.missing.size()) +
            (findings.missing.size() == 1 ? " reference" : " references");
  }
  return text;
}

}  // namespace

std::string whyNothingIsMeasured(const MeasuredProject& project) {
  const std::string& path = project.initialPath();
  const auto status = FileSystem::real().status(path);
  if (!status) {
    return path + (status.error().kind() == DiskError::Kind::missing
                       ? ": no such file or folder" + questionForNearbyProject(path)
                       : ": " + std::generic_category().message(status.error().number));
  }
  if (!isBundle(path)) return noProjectIn(path, status->type == FileStatus::Type::folder);
  if (std::string obstacle = obstacleTo(path); !obstacle.empty()) return obstacle;
  const std::string description = joinedPath(path, "project.pbxproj");
  if (project.faults().firstPath == description)
    return description + ": " + reasonFor(project.faults().firstError);
  if (!project.findings().error.empty()) return joinedPath(path, project.findings().error);
  return path + ": " + nothingKnown(project.findings());
}

std::string hintAtCurrentRules(const MeasuredProject& project) {
  const LeftOut leftOut = leftOutByClassic(project);
  if (!leftOut.isMuch) return {};
  return "the classic rules leave out " + std::to_string(leftOut.count()) +
         (leftOut.count() == 1 ? " source file (" : " source files (") + countsText(leftOut.sources) +
         "); '--rules current' measures them";
}

void tellOfOtherProjects(const std::string& folder, const std::string& taken) {
  if (taken == folder) return;
  const auto names = listFolder(FileSystem::real(), folder);
  if (!names) return;
  std::string others;
  for (const std::string& name : *names) {
    if (!isBundle(name) || name == lastPathComponent(taken)) continue;
    others += (others.empty() ? "" : ", ") + name;
  }
  if (!others.empty())
    complain(folder + " holds several projects: this is " + std::string(lastPathComponent(taken)) + ", not " +
             others);
}

}  // namespace quillmeter
