#pragma once

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmeter::testing {

/// A regular expression on plain ICU: slow, and the measure of what `LinearPattern` finds. A search that
/// takes more than `timeLimit` of ICU's steps has no result.
class PlainIcu {
 public:
  PlainIcu(std::string_view pattern, std::uint32_t flags, std::int32_t timeLimit)
      : matcher_(fromUtf8(pattern), flags, status_) {
    matcher_.setTimeLimit(timeLimit, status_);
  }

  [[nodiscard]] bool isValid() const { return U_SUCCESS(status_) != 0; }

  [[nodiscard]] std::optional<std::vector<std::string>> allMatches(std::string_view text) {
    const icu::UnicodeString wide = fromUtf8(text);
    matcher_.reset(wide);
    std::vector<std::string> matches;
    UErrorCode status = status_;
    while (matcher_.find(status) != 0) {
      std::string match;
      matcher_.group(status).toUTF8String(match);
      matches.push_back(match);
    }
    if (U_FAILURE(status) != 0) return std::nullopt;
    return matches;
  }

  [[nodiscard]] std::optional<bool> matchesAll(std::string_view text) {
    const icu::UnicodeString wide = fromUtf8(text);
    matcher_.reset(wide);
    UErrorCode status = status_;
    const bool result = matcher_.matches(status) != 0;
    if (U_FAILURE(status) != 0) return std::nullopt;
    return result;
  }

 private:
  static icu::UnicodeString fromUtf8(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
  }

  UErrorCode status_ = U_ZERO_ERROR;
  icu::RegexMatcher matcher_;
};

}  // namespace quillmeter::testing
