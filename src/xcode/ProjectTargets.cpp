#include "xcode/ProjectTargets.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "xcode/MembershipExceptions.h"

namespace quillmeter {
namespace {

using Object = ObjectGraph::Object;
using FileIndices = std::vector<std::uint32_t>;

void append(FileIndices& files, const FileIndices& more) {
  files.insert(files.end(), more.begin(), more.end());
}

/// The files that the build phases of a target name. Serves one target after the other, each with a number of
/// its own by which it notes what it has visited.
class PhaseFiles {
 public:
  PhaseFiles(const ObjectGraph& graph, const ProjectFiles& files)
      : files_(files), phases_(graph.size()), references_(graph.size()) {}

  void addAll(const Object& target, FileIndices& result) {
    ++target_;
    folders_.clear();
    target.objects("buildPhases").forEach([&](const Object& phase) {
      if (std::exchange(phases_[phase.index()], target_) != target_) addPhase(phase, result);
    });
  }

 private:
  void addPhase(const Object& phase, FileIndices& result) {
    phase.objects("files").forEach([&](const Object& buildFile) {
      if (buildFile.isa() != "PBXBuildFile") return;
      if (const auto reference = buildFile.object("fileRef")) addReference(*reference, result);
    });
  }

  /// A reference, or a group with all references in it, at any depth.
  void addReference(const Object& reference, FileIndices& result) {
    waiting_.push_back(reference);
    while (!waiting_.empty()) {
      const Object object = waiting_.back();
      waiting_.pop_back();
      if (std::exchange(references_[object.index()], target_) == target_) continue;
      addOrigin(files_.references[object.index()], result);
      object.objects("children").forEach([this](const Object& child) { waiting_.push_back(child); });
    }
  }

  void addOrigin(ProjectFiles::Origin origin, FileIndices& result) {
    // Several references to one folder share what came from it.
    if (origin.count > 1 && !folders_.insert(origin.first).second) return;
    const auto first = files_.appearances.begin() + origin.first;
    result.insert(result.end(), first, first + origin.count);
  }

  const ProjectFiles& files_;
  std::uint32_t target_ = 0;
  std::vector<std::uint32_t> phases_;      ///< the last target that visited an object, by its index
  std::vector<std::uint32_t> references_;  ///< the same
  std::unordered_set<std::uint32_t> folders_;
  std::vector<Object> waiting_;
};

/// The synchronised folders of a project and the exceptions from them, by target.
class SynchronisedMembers {
 public:
  explicit SynchronisedMembers(const ProjectFiles& files) : files_(files) {
    for (std::size_t folder = 0; folder < files.synchronisedFolders.size(); ++folder) {
      const Object& group = files.synchronisedFolders[folder].group;
      folders_.emplace(group.index(), folder);
      group.objects("exceptions").forEach([&](const Object& set) {
        const auto target = set.object("target");
        const auto paths = set.array("membershipExceptions");
        if (target && paths) exceptions_[target->index()][folder].push_back(*paths);
      });
    }
  }

  void addAll(const Object& target, FileIndices& result) {
    const auto found = exceptions_.find(target.index());
    const auto& exceptions = found != exceptions_.end() ? found->second : kNone;
    std::unordered_set<std::size_t> named;
    target.objects("fileSystemSynchronizedGroups").forEach([&](const Object& group) {
      const auto folder = folders_.find(group.index());
      if (folder == folders_.end() || !named.insert(folder->second).second) return;
      const auto lists = exceptions.find(folder->second);
      append(result, membersOf(folder->second, lists != exceptions.end() ? lists->second : Lists()).others());
    });
    for (const auto& [folder, lists] : exceptions)
      if (!named.contains(folder)) append(result, membersOf(folder, lists).listed());
  }

 private:
  using Lists = std::vector<PropertyList::Value>;
  using ListsByFolder = std::unordered_map<std::size_t, Lists>;
  inline static const ListsByFolder kNone;

  /// A folder's files, with the exceptions that these arrays of paths list.
  const MembershipExceptions& membersOf(std::size_t folder, const Lists& lists) {
    auto& members = members_.try_emplace(folder, files_, files_.synchronisedFolders[folder]).first->second;
    members.clear();
    for (const PropertyList::Value& paths : lists)
      for (std::size_t i = 0; i < paths.size(); ++i)
        if (paths.at(i).isString()) members.add(paths.at(i).text());
    return members;
  }

  const ProjectFiles& files_;
  std::unordered_map<std::size_t, std::size_t> folders_;       ///< by the group's index in the graph
  std::unordered_map<std::size_t, ListsByFolder> exceptions_;  ///< by the target's index in the graph
  std::unordered_map<std::size_t, MembershipExceptions> members_;
};

}  // namespace

std::vector<ProjectTarget> projectTargetsOf(const ObjectGraph& graph, const ProjectFiles& files) {
  std::vector<ProjectTarget> targets;
  const auto root = graph.root();
  if (!root) return targets;
  PhaseFiles phases(graph, files);
  SynchronisedMembers synchronised(files);
  std::unordered_set<std::size_t> visited;
  root->objects("targets").forEach([&](const Object& object) {
    if (!object.array("buildPhases") || !visited.insert(object.index()).second) return;
    auto name = object.nonEmptyText("name");
    if (!name) name = object.nonEmptyText("productName");
    ProjectTarget target{std::string(name.value_or("")), {}};
    phases.addAll(object, target.files);
    synchronised.addAll(object, target.files);
    std::sort(target.files.begin(), target.files.end());
    target.files.erase(std::unique(target.files.begin(), target.files.end()), target.files.end());
    targets.push_back(std::move(target));
  });
  return targets;
}

}  // namespace quillmeter
