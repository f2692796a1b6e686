#include "xcode/GroupWalk.h"

namespace quillmeter {
namespace {

bool isGroup(std::string_view isa) {
  return isa == "PBXGroup" || isa == "PBXVariantGroup" || isa == "XCVersionGroup";
}

}  // namespace

GroupWalk::GroupWalk(const ObjectGraph& graph, std::string_view projectFolder, ReferenceSink& sink)
    : sink_(sink),
      projectFolder_{locations_.joined(Locations::kRoot, projectFolder), false},
      visited_(graph.size()) {}

void GroupWalk::walk(const ObjectGraph::Object& mainGroup) {
  visit(mainGroup, projectFolder_);
  while (!levels_.empty()) {
    Level& level = levels_.back();
    if (level.next == level.children.size()) {
      levels_.pop_back();
      continue;
    }
    const auto child = level.children.at(level.next++);
    const auto place = level.place;
    if (child) visit(*child, place);
  }
}

void GroupWalk::visit(const ObjectGraph::Object& object, const std::optional<Place>& parent) {
  if (visited_[object.index()]) return;
  visited_[object.index()] = true;
  const std::string_view isa = object.isa();
  const auto path = object.nonEmptyText("path");
  if (isGroup(isa)) {
    levels_.push_back({object.objects("children"), 0, placeOf(object, path, parent)});
  } else if (isa == "PBXFileReference") {
    const auto name = path ? path : object.nonEmptyText("name");
    const auto place = name ? placeOf(object, name, parent) : std::nullopt;
    if (place) sink_.referenced(object, locationOf(*place));
  } else if (isa == "PBXFileSystemSynchronizedRootGroup") {
    if (const auto place = placeOf(object, path, parent)) sink_.synchronised(object, locationOf(*place));
  }
}

std::optional<GroupWalk::Place> GroupWalk::placeOf(const ObjectGraph::Object& object,
                                                   std::optional<std::string_view> path,
                                                   const std::optional<Place>& parent) {
  const std::string_view sourceTree = object.text("sourceTree").value_or("<group>");
  std::optional<Place> base;
  if (sourceTree == "<group>") base = parent;
  if (sourceTree == "SOURCE_ROOT") base = projectFolder_;
  if (sourceTree == "<absolute>" && path && path->starts_with('/')) base = Place{Locations::kRoot, true};
  if (base && path) base->location = locations_.joined(base->location, *path);
  return base;
}

ReferencedLocation GroupWalk::locationOf(const Place& place) const {
  return {locations_.text(place.location), place.isFromAbsolutePath};
}

}  // namespace quillmeter
