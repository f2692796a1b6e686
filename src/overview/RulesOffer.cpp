#include "overview/RulesOffer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "support/Text.h"
#include "xcode/LeftOut.h"

namespace quillmeter {
namespace {

using Counted = std::pair<std::string, std::size_t>;

/// More languages than this make no sentence that anybody reads.
constexpr std::size_t kMostNames = 3;

constexpr std::array<std::pair<std::string_view, std::string_view>, 19> kNames{{
    {"swift", "Swift"}, {"c", "C"},        {"cc", "C++"},      {"cp", "C++"},        {"cpp", "C++"},
    {"cxx", "C++"},     {"c++", "C++"},    {"metal", "Metal"}, {"m", "Objective-C"}, {"mm", "Objective-C"},
    {"h", "header"},    {"hh", "header"},  {"hp", "header"},   {"hpp", "header"},    {"hxx", "header"},
    {"h++", "header"},  {"inl", "header"}, {"ipp", "header"},  {"pch", "header"},
}};

std::string nameOf(const std::string& extension) {
  const auto* const known =
      std::find_if(kNames.begin(), kNames.end(), [&](const auto& entry) { return entry.first == extension; });
  return known != kNames.end() ? std::string(known->second) : "." + extension;
}

/// The files by what they are called, the most first; from a certain number of names on, all the rest as one.
std::vector<Counted> byName(const std::vector<Counted>& sources) {
  std::vector<Counted> names;
  for (const auto& [extension, files] : sources) {
    const std::string name = nameOf(extension);
    const auto same = std::find_if(names.begin(), names.end(),
                                   [&name](const Counted& counted) { return counted.first == name; });
    if (same == names.end()) {
      names.emplace_back(name, files);
    } else {
      same->second += files;
    }
  }
  std::stable_sort(names.begin(), names.end(),
                   [](const Counted& a, const Counted& b) { return a.second > b.second; });
  if (names.size() <= kMostNames) return names;
  Counted rest("other", 0);
  for (std::size_t at = kMostNames; at < names.size(); ++at)
    rest.second += names[at].second;
  names.resize(kMostNames);
  names.push_back(std::move(rest));
  return names;
}

}  // namespace

std::string rulesOffer(const LeftOut& leftOut) {
  const std::size_t count = leftOut.count();
  if (!leftOut.isMuch || count == 0) return {};
  std::vector<std::string> pieces;
  for (const auto& [name, files] : byName(leftOut.sources))
    pieces.push_back(std::to_string(files) + " " + name);
  return listInWords(pieces) + (count == 1 ? " file is" : " files are") +
         " not measured by the classic rules.";
}

}  // namespace quillmeter
