#include "xcode/PropertyList.h"

#include "xcode/PropertyListParser.h"

namespace quillmeter {

std::variant<PropertyList, PropertyListFault> PropertyList::parse(std::string text) {
  PropertyList list;
  list.text_ = std::move(text);
  if (auto fault = PropertyListParser(list).parse()) return *std::move(fault);
  return list;
}

PropertyList::Value PropertyList::root() const {
  return {*this, root_};
}

std::string_view PropertyList::textOf(Node node) const {
  const std::string_view whole = node.isUnescaped() ? unescaped_ : text_;
  return whole.substr(node.start(), node.size());
}

std::string_view PropertyList::Value::text() const {
  return isArray() || isDictionary() ? std::string_view() : list_->textOf(node_);
}

std::size_t PropertyList::Value::size() const {
  return isArray() || isDictionary() ? node_.size() : 0;
}

PropertyList::Value PropertyList::Value::at(std::size_t index) const {
  return {*list_, list_->nodes_[node_.start() + (isDictionary() ? 2 * index + 1 : index)]};
}

std::string_view PropertyList::Value::key(std::size_t index) const {
  return list_->textOf(list_->nodes_[node_.start() + 2 * index]);
}

std::optional<std::size_t> PropertyList::Value::indexOf(std::string_view wanted) const {
  if (!isDictionary()) return std::nullopt;
  if (const auto table = list_->tables_.find(node_.start()); table != list_->tables_.end())
    return table->second.find(wanted, [this](std::size_t entry) { return key(entry); });
  for (std::size_t entry = size(); entry > 0; --entry)
    if (key(entry - 1) == wanted) return entry - 1;
  return std::nullopt;
}

std::optional<PropertyList::Value> PropertyList::Value::find(std::string_view wanted) const {
  const auto entry = indexOf(wanted);
  if (!entry) return std::nullopt;
  return at(*entry);
}

}  // namespace quillmeter
