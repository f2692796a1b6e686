#include "parsers/MethodPatterns.h"

namespace quillmeter {
namespace {

// clang-format off
constexpr std::string_view kMethodPattern = R"pattern((\s)*(\+|-)(\s)*\((\s)*[$<>a-zA-Z0-9_]+(\s)*(\*|\*\*|&|&&)?(\s)*\)(\s)*[$<>a-zA-Z0-9_]+(\s)*(:(\s)*\((\s)*[$<>a-zA-Z0-9_]+(\s)*(\*|\*\*|&|&&)?(\s)*\)(\s)*[$<>a-zA-Z0-9_]+(\s)*(,(\s)*\.\.\.(\s)*)?(([$<>a-zA-Z0-9_]*(\s)*(:(\s)*\((\s)*[$<>a-zA-Z0-9_]+(\s)*(\*|\*\*|&|&&)?(\s)*\)(\s)*[$<>a-zA-Z0-9_]+(\s)*);?)|(,(\s)*\.\.\.(\s)*)?)*)?)pattern";

constexpr std::string_view kFunctionPattern = R"pattern(((([a-zA-Z0-9_]+\s+)?[a-zA-Z0-9_]+((\s*\*|\*\*\s*)|\s*&\s*)?\s+((\s*\*|\*\*\s*)|\s*&\s*)?([a-zA-Z0-9_]+::)?)|([a-zA-Z0-9_]+\s*::\s*~))\s*[a-zA-Z0-9_]+\s*\(\s*((([a-zA-Z0-9_]+\s+[a-zA-Z0-9_]+((\s*\[[a-zA-Z0-9_\*]*\]\s*){1,2})?\s+)?[a-zA-Z0-9_]+((\s*\*|\*\*\s*)|\s*&\s*)?\s+((\*|\*\*\s*)|\s*&\s*)?[a-zA-Z0-9_]+((\s*\[[a-zA-Z0-9_\*]*\]\s*){1,2})?\s*(,((\s*[a-zA-Z0-9_]+((\s*\[[a-zA-Z0-9_\*]*\]\s*){1,2})?)|(\s*[a-zA-Z0-9_]+((\s*\*|\*\*\s*)|\s*&\s*)?\s+((\*|\*\*\s*)|\s*&\s*)?[a-zA-Z0-9_]+((\s*\[[a-zA-Z0-9_\*]*\]\s*){1,2})?\s+))?\s*[a-zA-Z0-9_]+((\s*\*|\*\*\s*)|\s*&\s*)?\s+((\s*\*|\*\*\s*)|\s*&\s*)?[a-zA-Z0-9_]+((\s*\[[a-zA-Z0-9_\*]*\]\s*){1,2})?\s*)*)|(\s*[a-zA-Z0-9]+\s*))?\)(\s*[a-zA-Z0-9]*)\s*\{\s*)pattern";

constexpr std::string_view kFirstWordPattern = R"pattern(^[a-zA-Z0-9]+)pattern";
// clang-format on

}  // namespace

std::string_view methodPatternText() {
  return kMethodPattern;
}

std::string_view functionPatternText() {
  return kFunctionPattern;
}

const LinearPattern& methodPattern() {
  static const LinearPattern pattern(kMethodPattern);
  return pattern;
}

const LinearPattern& functionPattern() {
  static const LinearPattern pattern(kFunctionPattern, LinearPattern::Case::ignored);
  return pattern;
}

const LinearPattern& firstWordPattern() {
  static const LinearPattern pattern(kFirstWordPattern, LinearPattern::Case::ignored);
  return pattern;
}

}  // namespace quillmeter
