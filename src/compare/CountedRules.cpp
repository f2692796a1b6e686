#include "compare/CountedRules.h"

#include <algorithm>
#include <array>
#include <string>

#include "measuring/FileKinds.h"
#include "support/Paths.h"

namespace quillmeter {
namespace {

constexpr std::array<std::string_view, 19> kCurrentSources = {
    "c",   "cc",  "cp",  "cpp", "cxx", "c++", "metal", "h",  "hh",   "hp",
    "hpp", "hxx", "h++", "inl", "ipp", "pch", "m",     "mm", "swift"};

std::string asciiLowered(std::string_view text) {
  std::string lowered(text);
  for (char& letter : lowered) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return lowered;
}

}  // namespace

bool areKnownRules(std::string_view rules) {
  return rules == kClassicRules || rules == kCurrentRules;
}

bool isSourceCode(std::string_view path, std::string_view rules) {
  if (rules == kClassicRules) return fileKindOfPath(lastPathComponent(path)) == FileKind::code;
  if (rules != kCurrentRules) return false;
  const std::string extension = asciiLowered(pathExtension(path));
  return !extension.empty() &&
         std::find(kCurrentSources.begin(), kCurrentSources.end(), extension) != kCurrentSources.end();
}

}  // namespace quillmeter
