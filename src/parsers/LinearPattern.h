#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace re2 {
class RE2;
}

namespace quillmeter {

/// A regular expression that is searched in a time linear in the text, whatever the text, with the meaning
/// that ICU gives it. It exists because the parsers read files from anywhere, and a backtracking search of
/// their patterns may outlast the user. Immutable once made, so one object may serve many threads.
///
/// Texts are UTF-8 and are searched in place; a byte that is not UTF-8 matches nothing but the complement of
/// a set, as U+FFFD would. Of ICU's syntax this takes what the engine behind it also has, and "\s"
/// outside of a set.
class LinearPattern {
 public:
  enum class Case { respected, ignored };

  explicit LinearPattern(std::string_view icuPattern, Case letterCase = Case::respected);
  ~LinearPattern();
  LinearPattern(const LinearPattern&) = delete;
  LinearPattern& operator=(const LinearPattern&) = delete;

  /// False for a bad pattern, which matches nothing.
  [[nodiscard]] bool isValid() const;

  /// Whether the pattern matches all of `text`.
  [[nodiscard]] bool matchesAll(std::string_view text) const;

  /// The match at the very beginning of `text`, empty when there is none.
  [[nodiscard]] std::string_view matchAtBeginning(std::string_view text) const;

  /// Every match from left to right, none overlapping another, as views of `text`. The pattern must not match
  /// the empty text; such a match ends the search.
  [[nodiscard]] std::vector<std::string_view> allMatches(std::string_view text) const;

 private:
  std::unique_ptr<const re2::RE2> expression_;
};

/// `icuPattern` with "\s" written as the set of characters that it means to ICU.
[[nodiscard]] std::string withIcuWhiteSpace(std::string_view icuPattern);

}  // namespace quillmeter
