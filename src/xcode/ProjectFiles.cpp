#include "xcode/ProjectFiles.h"

#include "xcode/FileCollector.h"
#include "xcode/GroupWalk.h"
#include "xcode/Locations.h"

namespace quillmeter {

std::string projectFolderOf(const ObjectGraph& graph, const std::string& bundleFolder) {
  const auto root = graph.root();
  const std::string_view path = root ? root->text("projectDirPath").value_or("") : "";
  return normalisedLocation(path.starts_with('/') ? "/" : bundleFolder, path);
}

ProjectFiles projectFilesOf(const ObjectGraph& graph, const std::string& projectFolder, DiskView& disk) {
  FileCollector collector(graph, projectFolder, disk);
  const auto root = graph.root();
  if (!root) return collector.take();
  if (const auto mainGroup = root->object("mainGroup"))
    GroupWalk(graph, projectFolder, collector).walk(*mainGroup);
  std::vector<bool> visited(graph.size());
  root->objects("packageReferences").forEach([&](const ObjectGraph::Object& reference) {
    const auto path = reference.nonEmptyText("relativePath");
    if (reference.isa() != "XCLocalSwiftPackageReference" || !path || visited[reference.index()]) return;
    visited[reference.index()] = true;
    collector.packageReferenced(reference, normalisedLocation(projectFolder, *path));
  });
  return collector.take();
}

}  // namespace quillmeter
