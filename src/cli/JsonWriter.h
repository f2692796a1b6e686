#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/Number.h"

namespace quillmeter {

class Output;

/// Writes JSON as it comes, so that a result of any size needs no memory. Objects inside an array stand on a
/// line of their own, which keeps the difference between two weeks' outputs readable.
///
/// Text that is not UTF-8 is written reversibly: each bad byte 0xHH becomes the escaped lone surrogate \udcHH
/// (what Python calls "surrogateescape"), which no valid text contains.
class JsonWriter {
 public:
  explicit JsonWriter(Output& output) : output_(output) {}

  void beginObject();
  void endObject();
  void beginArray();
  void endArray();
  /// `name` is plain ASCII without quotes.
  void key(std::string_view name);
  /// The same for any text.
  void textKey(std::string_view name);
  void value(std::string_view text);
  void value(const std::optional<std::string>& text);
  void value(std::int64_t number);
  void value(const std::optional<Number>& number);
  void null();

  /// A key and its value.
  template <class Value>
  void member(std::string_view name, const Value& content) {
    key(name);
    value(content);
  }

 private:
  struct Level {
    bool isArray;
    bool isEmpty;
    bool holdsObjects;
  };

  void beforeValue(bool isObject);
  void writeText(std::string_view text);

  Output& output_;
  std::vector<Level> levels_;
  bool afterKey_ = false;
};

}  // namespace quillmeter
