#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xcode/PropertyList.h"

namespace quillmeter {

/// Fills a property list from its own text, once: a descent into values, each of which is read in one pass
/// over its bytes. Children wait in `open_` until their container closes and then move behind each other.
class PropertyListParser {
 public:
  explicit PropertyListParser(PropertyList& list) : list_(list), text_(list.text_) {}

  /// The fault of the text; absent when it is a property list.
  [[nodiscard]] std::optional<PropertyListFault> parse();

 private:
  using Node = PropertyList::Node;
  using Kind = PropertyList::Kind;

  [[nodiscard]] std::optional<Node> value(int depth);
  [[nodiscard]] std::optional<Node> dictionary(int depth);
  [[nodiscard]] bool entry(int depth);
  [[nodiscard]] std::optional<Node> array(int depth);
  [[nodiscard]] std::optional<Node> data();
  [[nodiscard]] std::optional<Node> quoted();
  [[nodiscard]] Node bare();
  [[nodiscard]] bool startsString() const;
  [[nodiscard]] std::optional<Node> string();
  [[nodiscard]] Node closed(Kind kind, std::size_t firstChild);

  /// Goes on to the next token; false when a comment is not closed.
  [[nodiscard]] bool skipBlanks();
  [[nodiscard]] bool isAt(char character) const {
    return position_ < text_.size() && text_[position_] == character;
  }
  /// Goes on to the next token and past it when it is `character`; else that was expected.
  [[nodiscard]] bool take(char character, std::string_view expected);
  /// Notes the fault; always false.
  bool expected(std::string_view what);

  PropertyList& list_;
  std::string_view text_;
  std::size_t position_ = 0;
  std::vector<Node> open_;
  std::optional<PropertyListFault> fault_;
};

}  // namespace quillmeter
