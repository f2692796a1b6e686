#include "page/HtmlText.h"

#include "support/Text.h"
#include "support/Utf8.h"

namespace quillmeter {
namespace {

std::string_view escaped(char letter) {
  switch (letter) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return {};
  }
}

}  // namespace

std::string htmlText(std::string_view text) {
  const std::string line = onOneLine(text);
  std::string html;
  html.reserve(line.size());
  for (std::string_view rest = line; !rest.empty();) {
    const Utf8Character character = firstCharacter(rest);
    const std::string_view escape = escaped(rest.front());
    html += !character.valid ? "\uFFFD" : escape.empty() ? rest.substr(0, character.bytes) : escape;
    rest.remove_prefix(character.bytes);
  }
  return html;
}

}  // namespace quillmeter
