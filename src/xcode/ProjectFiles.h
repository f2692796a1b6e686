#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/ProjectFindings.h"
#include "xcode/DiskView.h"
#include "xcode/ObjectGraph.h"

namespace quillmeter {

/// The files that the groups and packages of a project lead to, in the order of visiting, with where each
/// came from, and what the references lead to beside them.
struct ProjectFiles {
  /// A run of `appearances`: the files that came from one place.
  struct Origin {
    std::uint32_t first = 0;
    std::uint32_t count = 0;
  };
  struct SynchronisedFolder {
    ObjectGraph::Object group;
    std::string location;  ///< as found on disk
    Origin files;
  };

  std::vector<std::string> files;          ///< each path once, at its first appearance
  std::vector<std::uint32_t> appearances;  ///< indices into `files`
  std::vector<Origin> references;          ///< what came from a file reference, by its index in the graph
  std::vector<SynchronisedFolder> synchronisedFolders;
  ExtensionCounts other;  ///< files of no known kind; each counts once
  std::vector<MissingReference> missing;
  std::size_t foreign = 0;  ///< references that are at home on the machine that builds
  std::vector<OtherCase> otherCase;
};

/// The folder that a project's paths begin at: `bundleFolder`, unless the description names another one.
[[nodiscard]] std::string projectFolderOf(const ObjectGraph& graph, const std::string& bundleFolder);

/// Follows every reference of the project whose paths begin at `projectFolder`. The result keeps handles of
/// the graph's objects.
[[nodiscard]] ProjectFiles projectFilesOf(const ObjectGraph& graph, const std::string& projectFolder,
                                          DiskView& disk);

}  // namespace quillmeter
