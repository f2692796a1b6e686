#include "parsers/LinearPattern.h"

#include <re2/re2.h>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace quillmeter {
namespace {

/// What the automaton of one pattern may take, in bytes. It grows as texts ask for it, so this much is only
/// taken when it must be. A budget that is too small would send a text to an engine that is linear too, but
/// much slower.
constexpr std::int64_t kMemoryBudget = std::int64_t{64} * 1024 * 1024;

re2::RE2::Options optionsFor(LinearPattern::Case letterCase) {
  re2::RE2::Options options;
  options.set_max_mem(kMemoryBudget);
  options.set_case_sensitive(letterCase == LinearPattern::Case::respected);
  options.set_never_capture(true);
  options.set_log_errors(false);
  return options;
}

std::string_view viewOf(re2::StringPiece piece) {
  return {piece.data(), piece.size()};
}

}  // namespace

LinearPattern::LinearPattern(std::string_view icuPattern, Case letterCase)
    : expression_(std::make_unique<const re2::RE2>(withIcuWhiteSpace(icuPattern), optionsFor(letterCase))) {}

LinearPattern::~LinearPattern() = default;

bool LinearPattern::isValid() const {
  return expression_->ok();
}

bool LinearPattern::matchesAll(std::string_view text) const {
  return isValid() && expression_->Match(text, 0, text.size(), re2::RE2::ANCHOR_BOTH, nullptr, 0);
}

std::string_view LinearPattern::matchAtBeginning(std::string_view text) const {
  re2::StringPiece match;
  if (!isValid() || !expression_->Match(text, 0, text.size(), re2::RE2::ANCHOR_START, &match, 1)) return {};
  return viewOf(match);
}

std::vector<std::string_view> LinearPattern::allMatches(std::string_view text) const {
  std::vector<std::string_view> matches;
  if (!isValid()) return matches;
  // Each search reads on from the end of the last match, forwards to the end of its own match and back to its
  // beginning, never past either, so all of them together read the text twice at most.
  std::size_t position = 0;
  re2::StringPiece match;
  while (expression_->Match(text, position, text.size(), re2::RE2::UNANCHORED, &match, 1) && !match.empty()) {
    matches.push_back(viewOf(match));
    position = static_cast<std::size_t>(match.data() - text.data()) + match.size();
  }
  return matches;
}

std::string withIcuWhiteSpace(std::string_view icuPattern) {
  constexpr std::string_view whiteSpace = R"([\x09-\x0D\x{85}\pZ])";
  std::string result;
  while (!icuPattern.empty()) {
    const std::size_t length = icuPattern.front() == '\\' && icuPattern.size() > 1 ? 2 : 1;
    const std::string_view item = icuPattern.substr(0, length);
    result += item == R"(\s)" ? whiteSpace : item;
    icuPattern.remove_prefix(length);
  }
  return result;
}

}  // namespace quillmeter
