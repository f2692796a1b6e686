#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "xcode/PropertyList.h"

namespace quillmeter {

/// The objects of a project description as a thin typed view of its property list. Inside it nothing is a
/// fault: an identifier that leads nowhere, or a value of the wrong type, is as if it were not there.
class ObjectGraph {
 public:
  class Object;
  class References;

  /// The graph of a description; its fault when the text is no property list, its `objects` no dictionary or
  /// its `rootObject` no string.
  [[nodiscard]] static std::variant<ObjectGraph, PropertyListFault> read(std::string text);

  /// How many objects there are at most; every `Object::index` is less.
  [[nodiscard]] std::size_t size() const { return objects_.size(); }
  [[nodiscard]] std::optional<Object> object(std::string_view identifier) const;
  [[nodiscard]] std::optional<Object> root() const;

 private:
  ObjectGraph(std::unique_ptr<const PropertyList> list, PropertyList::Value objects,
              std::string_view rootIdentifier)
      : list_(std::move(list)), objects_(objects), rootIdentifier_(rootIdentifier) {}

  std::unique_ptr<const PropertyList> list_;  ///< on the heap, because values point at it
  PropertyList::Value objects_;
  std::string_view rootIdentifier_;
};

/// One object of a graph: a small handle, good as long as the graph is.
class ObjectGraph::Object {
 public:
  /// A number of its own in the graph.
  [[nodiscard]] std::size_t index() const { return index_; }
  [[nodiscard]] std::string_view identifier() const { return graph_->objects_.key(index_); }
  [[nodiscard]] std::string_view isa() const { return text("isa").value_or(std::string_view()); }

  [[nodiscard]] bool has(std::string_view key) const { return values_.find(key).has_value(); }
  [[nodiscard]] std::optional<std::string_view> text(std::string_view key) const;
  /// The same, absent also when it is empty.
  [[nodiscard]] std::optional<std::string_view> nonEmptyText(std::string_view key) const;
  /// The object that a key names.
  [[nodiscard]] std::optional<Object> object(std::string_view key) const;
  /// The objects that a key lists; none when it lists none.
  [[nodiscard]] References objects(std::string_view key) const;
  /// An array of anything; absent when the key has none.
  [[nodiscard]] std::optional<PropertyList::Value> array(std::string_view key) const;

 private:
  friend class ObjectGraph;
  Object(const ObjectGraph& graph, std::size_t index)
      : graph_(&graph), index_(index), values_(graph.objects_.at(index)) {}

  const ObjectGraph* graph_;
  std::size_t index_;
  PropertyList::Value values_;
};

/// A list of identifiers in an object, in its order.
class ObjectGraph::References {
 public:
  [[nodiscard]] std::size_t size() const { return values_ ? values_->size() : 0; }
  /// The object that is named there; absent when the identifier leads nowhere.
  [[nodiscard]] std::optional<Object> at(std::size_t index) const;

  /// Calls `action` with every object that the list leads to, in order.
  template <class Action>
  void forEach(Action&& action) const {
    for (std::size_t i = 0; i < size(); ++i)
      if (const auto object = at(i)) action(*object);
  }

 private:
  friend class Object;
  References(const ObjectGraph& graph, std::optional<PropertyList::Value> values)
      : graph_(&graph), values_(values) {}

  const ObjectGraph* graph_;
  std::optional<PropertyList::Value> values_;
};

}  // namespace quillmeter
