#include "cli/JsonWriter.h"

#include "cli/Output.h"
#include "support/Utf8.h"

namespace quillmeter {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

/// A \u escape of a code unit whose upper byte is given as text.
std::string escaped(std::string_view upperByte, unsigned char lowerByte) {
  return std::string("\\u").append(upperByte) + kHexDigits[lowerByte >> 4U] + kHexDigits[lowerByte & 0x0FU];
}

std::string escapedControl(unsigned char byte) {
  switch (byte) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return escaped("00", byte);
  }
}

/// Whether a byte is a character that stands in a JSON text as it is.
bool isPlainAscii(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x20 && value < 0x7F && value != '"' && value != '\\';
}

}  // namespace

void JsonWriter::beforeValue(bool isObject) {
  if (afterKey_ || levels_.empty()) {
    afterKey_ = false;
    return;
  }
  Level& level = levels_.back();
  if (!level.isEmpty) output_.write(isObject ? "," : ", ");
  if (isObject) output_.write("\n");
  level.isEmpty = false;
  level.holdsObjects = isObject;
}

void JsonWriter::beginObject() {
  beforeValue(true);
  output_.write("{");
  levels_.push_back({false, true, false});
}

void JsonWriter::endObject() {
  levels_.pop_back();
  output_.write(levels_.empty() ? "}\n" : "}");
}

void JsonWriter::beginArray() {
  beforeValue(false);
  output_.write("[");
  levels_.push_back({true, true, false});
}

void JsonWriter::endArray() {
  output_.write(levels_.back().holdsObjects ? "\n]" : "]");
  levels_.pop_back();
}

void JsonWriter::textKey(std::string_view name) {
  if (!levels_.back().isEmpty) output_.write(", ");
  levels_.back().isEmpty = false;
  writeText(name);
  output_.write(": ");
  afterKey_ = true;
}

void JsonWriter::key(std::string_view name) {
  output_.write(levels_.back().isEmpty ? "\"" : ", \"");
  levels_.back().isEmpty = false;
  output_.write(name);
  output_.write("\": ");
  afterKey_ = true;
}

void JsonWriter::value(std::string_view text) {
  beforeValue(false);
  writeText(text);
}

void JsonWriter::value(const std::optional<std::string>& text) {
  if (!text) return null();
  value(std::string_view(*text));
}

void JsonWriter::value(std::int64_t number) {
  value(std::optional<Number>(Number(number)));
}

void JsonWriter::value(const std::optional<Number>& number) {
  beforeValue(false);
  output_.write(number ? number->stringValue() : "null");
}

void JsonWriter::null() {
  beforeValue(false);
  output_.write("null");
}

void JsonWriter::writeText(std::string_view text) {
  output_.write("\"");
  std::size_t plain = 0;
  while (plain < text.size()) {
    if (isPlainAscii(text[plain])) {
      ++plain;
      continue;
    }
    const Utf8Character character = firstCharacter(text.substr(plain));
    if (character.valid && character.codePoint > 0x7F) {
      plain += character.bytes;
      continue;
    }
    output_.write(text.substr(0, plain));
    const auto byte = static_cast<unsigned char>(text[plain]);
    output_.write(character.valid ? escapedControl(byte) : escaped("dc", byte));
    text.remove_prefix(plain + 1);
    plain = 0;
  }
  output_.write(text);
  output_.write("\"");
}

}  // namespace quillmeter
