#include "parsers/NSStringTools.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "support/Text.h"
#include "support/Utf8.h"

namespace quillmeter {
namespace {

/// In ICU's own unit, which its documentation puts in the order of a millisecond.
constexpr std::int32_t kTimeLimit = 2000;
/// In bytes.
constexpr std::int32_t kStackLimit = 16 * 1024 * 1024;
/// ICU counts UTF-16 code units in 32 bits.
constexpr std::size_t kLongestText = std::size_t{1} << 30;

icu::UnicodeString toUtf16(std::string_view text) {
  icu::UnicodeString result(static_cast<std::int32_t>(text.size()), 0, 0);
  while (!text.empty()) {
    const Utf8Character character = firstCharacter(text);
    result.append(static_cast<UChar32>(character.codePoint));
    text.remove_prefix(character.bytes);
  }
  return result;
}

std::string toUtf8(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

/// One text with one pattern laid on it.
class Search {
 public:
  Search(std::string_view text, std::string_view pattern, std::uint32_t flags) {
    if (text.size() > kLongestText || pattern.size() > kLongestText) return;
    text_ = toUtf16(text);
    UErrorCode status = U_ZERO_ERROR;
    matcher_ = std::make_unique<icu::RegexMatcher>(toUtf16(pattern), flags, status);
    matcher_->setTimeLimit(kTimeLimit, status);
    matcher_->setStackLimit(kStackLimit, status);
    if (U_FAILURE(status)) {
      matcher_.reset();
      return;
    }
    matcher_->reset(text_);
  }

  [[nodiscard]] bool matchesAll() const {
    UErrorCode status = U_ZERO_ERROR;
    return matcher_ && matcher_->matches(status) && U_SUCCESS(status);
  }

  /// The next match, if there is one.
  [[nodiscard]] std::optional<std::string> next() const {
    UErrorCode status = U_ZERO_ERROR;
    if (!matcher_ || !matcher_->find(status) || U_FAILURE(status)) return std::nullopt;
    const icu::UnicodeString match = matcher_->group(status);
    if (U_FAILURE(status)) return std::nullopt;
    return toUtf8(match);
  }

 private:
  icu::UnicodeString text_;
  std::unique_ptr<icu::RegexMatcher> matcher_;
};

}  // namespace

std::string_view trimLeadingEndWhiteCharacters(std::string_view text) {
  return trimmed(text);
}

bool isAcordingToRegex(std::string_view text, std::string_view pattern) {
  return Search(text, pattern, 0).matchesAll();
}

std::string getFirstMatchRegex(std::string_view text, std::string_view pattern) {
  return Search(text, pattern, UREGEX_CASE_INSENSITIVE).next().value_or(std::string());
}

std::vector<std::string> getAllMatchesRegex(std::string_view text, std::string_view pattern) {
  const Search search(text, pattern, UREGEX_CASE_INSENSITIVE);
  std::vector<std::string> matches;
  while (auto match = search.next())
    matches.push_back(std::move(*match));
  return matches;
}

}  // namespace quillmeter
