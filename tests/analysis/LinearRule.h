#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/Paths.h"
#include "support/Text.h"

/// The rules for finding a reference, in their plain form: every path is looked at for every reference. What
/// the index gives is compared with these.
namespace quillmeter::testing {

inline bool matchesLinearly(const std::string& path, const std::string& reference) {
  if (lowerCased(lastPathComponent(path)) == lowerCased(reference)) return true;
  if (reference.empty() || !path.ends_with(reference)) return false;
  const std::string rest = removingOccurrences(path, reference);
  return rest.empty() || rest.ends_with('/');
}

inline std::vector<std::string> candidatesLinearly(const std::vector<std::string>& paths,
                                                   const std::string& reference) {
  std::vector<std::string> candidates;
  for (const std::string& path : paths) {
    if (matchesLinearly(path, reference)) candidates.push_back(path);
  }
  return candidates;
}

struct LinkedLinearly {
  std::string path;
  bool foldsPastRoot = false;
};

/// The path that a "../" reference leads to from `folder`, by climbing and folding; `exists` tells whether
/// there is something at a path.
template <class Exists>
LinkedLinearly linkedLinearly(const std::string& folder, std::string reference, const Exists& exists) {
  std::string joined;
  for (int i = 0; i < 50; ++i) {
    joined = joinedPath(folder, reference);
    if (!reference.starts_with("../")) break;
    reference = reference.substr(3);
    if (exists(joined)) break;
  }
  std::vector<std::string> pieces;
  std::string piece;
  for (const char c : joined + "/") {
    if (c != '/') {
      piece += c;
    } else {
      pieces.push_back(std::exchange(piece, {}));
    }
  }
  int count = 0;
  int first = 0;
  for (int i = static_cast<int>(pieces.size()) - 1; i >= 0; --i) {
    if (pieces[static_cast<std::size_t>(i)] != "..") continue;
    ++count;
    first = i;
  }
  if (count == 0) return {joined, false};
  if (first - count < 1) return {joined, true};
  std::string result;
  for (int i = 0; i < static_cast<int>(pieces.size()); ++i) {
    if (i >= first - count && i < first + count) continue;
    result += pieces[static_cast<std::size_t>(i)] + "/";
  }
  result.pop_back();
  return {result, false};
}

/// The path of the record that a reference gives, if it gives one.
inline std::optional<std::string> resolvedLinearly(const std::vector<std::string>& paths,
                                                   const std::string& folder, const std::string& reference) {
  for (const std::string& path : candidatesLinearly(paths, reference)) {
    if (std::filesystem::exists(path)) return path;
  }
  if (!reference.starts_with("../")) return std::nullopt;
  const auto exists = [](const std::string& path) { return std::filesystem::exists(path); };
  const std::string linked = linkedLinearly(folder, reference, exists).path;
  return std::filesystem::exists(linked) ? std::optional(linked) : std::nullopt;
}

}  // namespace quillmeter::testing
