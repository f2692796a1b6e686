#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include "xcode/KeyTable.h"

namespace quillmeter {

/// What is wrong with a text that should be a property list, and in which line (the first one is 1).
struct PropertyListFault {
  std::size_t line = 1;
  std::string expected;  ///< such as "expected ';' after the value"
};

/// A parsed OpenStep property list. It owns its text; a value is a place in it and takes eight bytes, so that
/// a description of a hundred megabytes fits into memory a few times over. Only read after it was parsed.
class PropertyList {
 public:
  enum class Kind : std::uint8_t { string, data, array, dictionary };
  class Value;

  /// Longer texts are not taken; it also keeps every offset within thirty bits.
  static constexpr std::size_t kMaximumSize = std::size_t{1} << 30U;
  /// How deep dictionaries and arrays may nest, the outermost one being 1.
  static constexpr int kMaximumDepth = 200;

  /// Reads the whole text, in time linear in its length.
  [[nodiscard]] static std::variant<PropertyList, PropertyListFault> parse(std::string text);

  /// The outermost value; it and all values from it are good as long as this list stays where it is.
  [[nodiscard]] Value root() const;

 private:
  friend class PropertyListParser;

  /// A value: a string by its place in `text_` or `unescaped_`, a container by its children in `nodes_` (a
  /// dictionary's are keys and values in turn).
  class Node {
   public:
    Node() = default;
    Node(Kind kind, std::size_t start, std::size_t size, bool unescaped = false)
        : start_(static_cast<std::uint32_t>(start) | static_cast<std::uint32_t>(kind) << kBits),
          size_(static_cast<std::uint32_t>(size) | (unescaped ? 1U << kBits : 0U)) {}
    [[nodiscard]] Kind kind() const { return static_cast<Kind>(start_ >> kBits); }
    [[nodiscard]] std::size_t start() const { return start_ & kMask; }
    /// Bytes of a string, elements of an array, entries of a dictionary.
    [[nodiscard]] std::size_t size() const { return size_ & kMask; }
    [[nodiscard]] bool isUnescaped() const { return (size_ >> kBits) != 0; }

   private:
    static constexpr std::uint32_t kBits = 30;
    static constexpr std::uint32_t kMask = (1U << kBits) - 1;
    std::uint32_t start_ = 0;
    std::uint32_t size_ = 0;
  };

  PropertyList() = default;
  [[nodiscard]] std::string_view textOf(Node node) const;

  std::string text_;
  std::string unescaped_;  ///< strings that had escapes, one after the other
  std::vector<Node> nodes_;
  std::unordered_map<std::size_t, KeyTable> tables_;  ///< of large dictionaries, by `Node::start`
  Node root_;
};

/// One value of a property list: a small handle, good as long as the list stays where it is.
class PropertyList::Value {
 public:
  [[nodiscard]] Kind kind() const { return node_.kind(); }
  [[nodiscard]] bool isString() const { return kind() == Kind::string; }
  [[nodiscard]] bool isArray() const { return kind() == Kind::array; }
  [[nodiscard]] bool isDictionary() const { return kind() == Kind::dictionary; }

  /// A string without its quotes and escapes, or the digits and white space of data; empty for containers.
  [[nodiscard]] std::string_view text() const;

  /// Elements of an array, entries of a dictionary (a key that comes twice counts twice); 0 for others.
  [[nodiscard]] std::size_t size() const;
  /// An element of an array, or the value of a dictionary's entry.
  [[nodiscard]] Value at(std::size_t index) const;
  /// The key of a dictionary's entry.
  [[nodiscard]] std::string_view key(std::size_t index) const;

  /// The number of the last entry with a key; absent when there is none, or when this is no dictionary.
  [[nodiscard]] std::optional<std::size_t> indexOf(std::string_view key) const;
  [[nodiscard]] std::optional<Value> find(std::string_view key) const;

 private:
  friend class PropertyList;
  Value(const PropertyList& list, Node node) : list_(&list), node_(node) {}

  const PropertyList* list_;
  Node node_;
};

}  // namespace quillmeter
