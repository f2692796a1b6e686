#include "xcode/ObjectGraph.h"

namespace quillmeter {

std::variant<ObjectGraph, PropertyListFault> ObjectGraph::read(std::string text) {
  auto parsed = PropertyList::parse(std::move(text));
  if (auto* fault = std::get_if<PropertyListFault>(&parsed)) return std::move(*fault);
  auto list = std::make_unique<const PropertyList>(std::get<PropertyList>(std::move(parsed)));
  const auto objects = list->root().find("objects");
  if (!objects || !objects->isDictionary())
    return PropertyListFault{1, "expected a dictionary called 'objects'"};
  const auto root = list->root().find("rootObject");
  if (!root || !root->isString()) return PropertyListFault{1, "expected a string called 'rootObject'"};
  return ObjectGraph(std::move(list), *objects, root->text());
}

std::optional<ObjectGraph::Object> ObjectGraph::object(std::string_view identifier) const {
  const auto index = objects_.indexOf(identifier);
  if (!index || !objects_.at(*index).isDictionary()) return std::nullopt;
  return Object(*this, *index);
}

std::optional<ObjectGraph::Object> ObjectGraph::root() const {
  return object(rootIdentifier_);
}

std::optional<std::string_view> ObjectGraph::Object::text(std::string_view key) const {
  const auto value = values_.find(key);
  if (!value || !value->isString()) return std::nullopt;
  return value->text();
}

std::optional<std::string_view> ObjectGraph::Object::nonEmptyText(std::string_view key) const {
  const auto value = text(key);
  if (value && value->empty()) return std::nullopt;
  return value;
}

std::optional<ObjectGraph::Object> ObjectGraph::Object::object(std::string_view key) const {
  const auto identifier = text(key);
  return identifier ? graph_->object(*identifier) : std::nullopt;
}

ObjectGraph::References ObjectGraph::Object::objects(std::string_view key) const {
  return {*graph_, array(key)};
}

std::optional<PropertyList::Value> ObjectGraph::Object::array(std::string_view key) const {
  const auto value = values_.find(key);
  if (!value || !value->isArray()) return std::nullopt;
  return value;
}

std::optional<ObjectGraph::Object> ObjectGraph::References::at(std::size_t index) const {
  const PropertyList::Value identifier = values_->at(index);
  return identifier.isString() ? graph_->object(identifier.text()) : std::nullopt;
}

}  // namespace quillmeter
