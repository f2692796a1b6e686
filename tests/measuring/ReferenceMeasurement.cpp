#include "measuring/ReferenceMeasurement.h"

#include <cstddef>
#include <cstdint>
#include <ostream>

#include "support/Text.h"

namespace quillmeter {
namespace {

enum class Class { lineBreak, space, other };

struct Character {
  Class type;
  std::size_t bytes;
};

Character characterAt(std::string_view text) {
  const auto byte = static_cast<unsigned char>(text[0]);
  if (byte < 0x80) {
    if (byte >= 0x0A && byte <= 0x0D) return {Class::lineBreak, 1};
    return {byte == 0x20 || byte == 0x09 ? Class::space : Class::other, 1};
  }
  const std::size_t bytes = byte >= 0xF0 ? 4 : (byte >= 0xE0 ? 3 : 2);
  const std::string_view character = text.substr(0, bytes);
  if (character == "\u0085" || character == "\u2028" || character == "\u2029")
    return {Class::lineBreak, bytes};
  return {trimmed(character).empty() ? Class::space : Class::other, bytes};
}

void countLine(std::string_view line, bool& insideComment, TextCounts& counts) {
  const std::string_view text = trimmed(line);
  if (text.empty()) return;
  ++counts.noLinesWithoutSpaces;
  if (text.starts_with("//") || text.starts_with("/*") || insideComment) ++counts.noLinesComments;
  if (text.starts_with("/*")) insideComment = true;
  if (text.starts_with("*/")) insideComment = false;
  std::uint64_t spaces = 0;
  for (std::string_view rest = text; !rest.empty();) {
    const Character character = characterAt(rest);
    if (character.type == Class::space) ++spaces;
    rest.remove_prefix(character.bytes);
  }
  counts.noWords += spaces + 1;
  counts.noCharactersTotal += utf16Length(text);
  counts.noCharactersWithoutSpaces += utf16Length(text) - spaces;
}

}  // namespace

std::optional<TextCounts> referenceMeasurement(std::string_view text) {
  if (!isValidUtf8(text)) return std::nullopt;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  TextCounts counts;
  bool insideComment = false;
  std::size_t lineStart = 0;
  for (std::size_t i = 0; i < text.size();) {
    const Character character = characterAt(text.substr(i));
    if (character.type == Class::lineBreak) {
      countLine(text.substr(lineStart, i - lineStart), insideComment, counts);
      ++counts.noLinesTotal;
      lineStart = i + character.bytes;
    }
    i += character.bytes;
  }
  countLine(text.substr(lineStart), insideComment, counts);
  ++counts.noLinesTotal;
  return counts;
}

void PrintTo(const TextCounts& counts, std::ostream* out) {
  *out << "{lines " << counts.noLinesTotal << ", not blank " << counts.noLinesWithoutSpaces << ", comments "
       << counts.noLinesComments << ", words " << counts.noWords << ", characters "
       << counts.noCharactersWithoutSpaces << " of " << counts.noCharactersTotal << "}";
}

}  // namespace quillmeter
