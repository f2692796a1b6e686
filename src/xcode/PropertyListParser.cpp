#include "xcode/PropertyListParser.h"

#include <algorithm>
#include <array>

#include "xcode/QuotedText.h"

namespace quillmeter {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Dictionaries of fewer entries are searched one by one.
constexpr std::size_t kFewEntries = 16;

constexpr bool isBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool isHexadecimal(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

constexpr std::array<bool, 256> bareCharacters() {
  std::array<bool, 256> result{};
  for (unsigned c = 0; c < result.size(); ++c)
    result[c] = c >= 0x80 || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  for (const char c : std::string_view("_$/:.-+"))
    result[static_cast<unsigned char>(c)] = true;
  return result;
}

constexpr std::array<bool, 256> kBare = bareCharacters();

bool isBare(char c) {
  return kBare[static_cast<unsigned char>(c)];
}

/// The line of a position; lines end with LF, CR LF or CR.
std::size_t lineAt(std::string_view text, std::size_t position) {
  std::size_t line = 1;
  for (std::size_t i = 0; i < position; ++i)
    if (text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'))) ++line;
  return line;
}

/// The name of another format that a text is plainly in; empty for none.
std::string_view otherFormat(std::string_view text) {
  if (text.starts_with("<?") || text.starts_with("<!") || text.starts_with("<plist")) return "XML";
  if (text.starts_with('[')) return "JSON";
  if (!text.starts_with('{')) return {};
  text.remove_prefix(1);
  const auto skip = [&] {
    while (!text.empty() && isBlank(text.front()))
      text.remove_prefix(1);
  };
  skip();
  if (!text.starts_with('"')) return {};
  const std::size_t end = endOfQuoted(text, 0);
  if (end == std::string_view::npos) return {};
  text.remove_prefix(end + 1);
  skip();
  return text.starts_with(':') ? "JSON" : std::string_view();
}

}  // namespace

std::optional<PropertyListFault> PropertyListParser::parse() {
  if (text_.size() > PropertyList::kMaximumSize) return PropertyListFault{1, "expected at most 1 GiB"};
  if (text_.starts_with(kByteOrderMark)) position_ = kByteOrderMark.size();
  if (!skipBlanks()) return fault_;
  if (const auto format = otherFormat(text_.substr(position_)); !format.empty()) {
    expected("an OpenStep property list, not " + std::string(format));
    return fault_;
  }
  const auto root = value(1);
  if (!root || !skipBlanks()) return fault_;
  if (position_ < text_.size()) expected("the end of the text");
  list_.root_ = *root;
  return fault_;
}

std::optional<PropertyList::Node> PropertyListParser::value(int depth) {
  if (!skipBlanks()) return std::nullopt;
  if (startsString()) return string();
  if (isAt('<')) return data();
  if (!isAt('{') && !isAt('(')) {
    expected("a value");
    return std::nullopt;
  }
  if (depth > PropertyList::kMaximumDepth) {
    expected("at most " + std::to_string(PropertyList::kMaximumDepth) +
             " dictionaries and arrays inside each other");
    return std::nullopt;
  }
  return text_[position_++] == '{' ? dictionary(depth) : array(depth);
}

std::optional<PropertyList::Node> PropertyListParser::dictionary(int depth) {
  const std::size_t firstChild = open_.size();
  for (;;) {
    if (!skipBlanks()) return std::nullopt;
    if (isAt('}')) break;
    if (!entry(depth)) return std::nullopt;
  }
  ++position_;
  return closed(Kind::dictionary, firstChild);
}

bool PropertyListParser::entry(int depth) {
  if (!startsString()) return expected("a key or '}'");
  const auto key = string();
  if (!key) return false;
  open_.push_back(*key);
  if (!take('=', "'=' after the key")) return false;
  const auto content = value(depth + 1);
  if (!content) return false;
  open_.push_back(*content);
  return take(';', "';' after the value");
}

std::optional<PropertyList::Node> PropertyListParser::array(int depth) {
  const std::size_t firstChild = open_.size();
  for (;;) {
    if (!skipBlanks()) return std::nullopt;
    if (isAt(')')) break;
    const auto element = value(depth + 1);
    if (!element || !skipBlanks()) return std::nullopt;
    open_.push_back(*element);
    if (isAt(')')) break;
    if (!take(',', "',' or ')' after the value")) return std::nullopt;
  }
  ++position_;
  return closed(Kind::array, firstChild);
}

PropertyList::Node PropertyListParser::closed(Kind kind, std::size_t firstChild) {
  const std::size_t start = list_.nodes_.size();
  const std::size_t children = open_.size() - firstChild;
  list_.nodes_.insert(list_.nodes_.end(), open_.end() - static_cast<std::ptrdiff_t>(children), open_.end());
  open_.resize(firstChild);
  if (kind == Kind::array) return {kind, start, children};
  const std::size_t entries = children / 2;
  if (entries >= kFewEntries)
    list_.tables_.try_emplace(
        start, entries, [&](std::size_t entry) { return list_.textOf(list_.nodes_[start + 2 * entry]); });
  return {kind, start, entries};
}

std::optional<PropertyList::Node> PropertyListParser::data() {
  const std::size_t start = ++position_;
  std::size_t digits = 0;
  for (; position_ < text_.size() && (isHexadecimal(text_[position_]) || isBlank(text_[position_]));
       ++position_)
    if (isHexadecimal(text_[position_])) ++digits;
  if (isAt('>') && digits % 2 == 0) return Node(Kind::data, start, position_++ - start);
  expected(digits % 2 == 0 ? "a hexadecimal digit or '>'" : "a second hexadecimal digit for the last byte");
  return std::nullopt;
}

bool PropertyListParser::startsString() const {
  return position_ < text_.size() &&
         (text_[position_] == '"' || text_[position_] == '\'' || isBare(text_[position_]));
}

std::optional<PropertyList::Node> PropertyListParser::string() {
  return isBare(text_[position_]) ? bare() : quoted();
}

PropertyList::Node PropertyListParser::bare() {
  const std::size_t start = position_;
  while (position_ < text_.size() && isBare(text_[position_]))
    ++position_;
  return {Kind::string, start, position_ - start};
}

std::optional<PropertyList::Node> PropertyListParser::quoted() {
  const std::size_t end = endOfQuoted(text_, position_);
  if (end == std::string_view::npos) {
    expected("the closing quote of the string that begins here");
    return std::nullopt;
  }
  const std::size_t start = std::exchange(position_, end + 1) + 1;
  const std::string_view content = text_.substr(start, end - start);
  if (content.find('\\') == std::string_view::npos) return Node(Kind::string, start, content.size());
  // No escape is shorter than what it stands for, so this is all the memory that they will ever need; the
  // system hands it out as it is filled.
  std::string& unescaped = list_.unescaped_;
  if (unescaped.empty()) unescaped.reserve(text_.size());
  const std::size_t unescapedStart = unescaped.size();
  appendUnescaped(unescaped, content);
  return Node(Kind::string, unescapedStart, unescaped.size() - unescapedStart, true);
}

bool PropertyListParser::skipBlanks() {
  for (;;) {
    while (position_ < text_.size() && isBlank(text_[position_]))
      ++position_;
    const std::string_view opening = text_.substr(position_, 2);
    if (opening == "//") {
      position_ = std::min(text_.find_first_of("\n\r", position_), text_.size());
    } else if (opening == "/*") {
      const std::size_t end = text_.find("*/", position_ + 2);
      if (end == std::string_view::npos) return expected("'*/' after the comment that begins here");
      position_ = end + 2;
    } else {
      return true;
    }
  }
}

bool PropertyListParser::take(char character, std::string_view what) {
  if (!skipBlanks()) return false;
  if (!isAt(character)) return expected(what);
  ++position_;
  return true;
}

bool PropertyListParser::expected(std::string_view what) {
  fault_ = PropertyListFault{lineAt(text_, position_), "expected " + std::string(what)};
  return false;
}

}  // namespace quillmeter
