#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xcode/Locations.h"
#include "xcode/ObjectGraph.h"

namespace quillmeter {

/// Where a reference leads to, before anybody has looked.
struct ReferencedLocation {
  std::string path;
  bool isFromAbsolutePath = false;  ///< its own, or that of a group it lies in
};

/// Receives what the groups of a project refer to, in their order.
class ReferenceSink {
 public:
  virtual ~ReferenceSink() = default;
  /// A file reference: a file or a folder.
  virtual void referenced(const ObjectGraph::Object& reference, const ReferencedLocation& location) = 0;
  /// A group whose contents are those of a folder.
  virtual void synchronised(const ObjectGraph::Object& group, const ReferencedLocation& location) = 0;
};

/// Goes through the groups of a project in their order, each object once. It keeps a stack of its own, so
/// that groups may lie inside each other as deep as they like.
class GroupWalk {
 public:
  /// `projectFolder` is the normalised folder that the project's paths begin at; it, the graph and the sink
  /// must outlive the walk.
  GroupWalk(const ObjectGraph& graph, std::string_view projectFolder, ReferenceSink& sink);

  void walk(const ObjectGraph::Object& mainGroup);

 private:
  struct Place {
    Locations::Id location;
    bool isFromAbsolutePath;
  };
  /// A group whose children are being visited.
  struct Level {
    ObjectGraph::References children;
    std::size_t next;
    std::optional<Place> place;
  };

  void visit(const ObjectGraph::Object& object, const std::optional<Place>& parent);
  [[nodiscard]] std::optional<Place> placeOf(const ObjectGraph::Object& object,
                                             std::optional<std::string_view> path,
                                             const std::optional<Place>& parent);
  [[nodiscard]] ReferencedLocation locationOf(const Place& place) const;

  ReferenceSink& sink_;
  Locations locations_;
  Place projectFolder_;
  std::vector<bool> visited_;
  std::vector<Level> levels_;
};

}  // namespace quillmeter
