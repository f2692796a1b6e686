#include "analysis/LinkedReference.h"

#include <algorithm>
#include <utility>

#include "support/Paths.h"

namespace quillmeter {
namespace {

constexpr int kMaximumClimbs = 50;

/// The system takes no longer text as an argument of a program (32 pages of 4 KiB), so no compiler can be
/// told of a file with a longer path. One system call takes 4 KiB, but deeper folders can be made and are
/// read.
constexpr std::size_t kLongestReference = std::size_t{128} << 10;

/// What the paths that were looked up may take; then they are forgotten. A path takes some memory beside its
/// text.
constexpr std::size_t kMostSeenBytes = std::size_t{4} << 20;
constexpr std::size_t kBytesBesideText = 80;

/// `path` with one run of k ".." folded with the k pieces before it. Only a single run is understood: with
/// several, the pieces behind the first ".." are dropped by their number all the same. Absent when the run
/// climbs past the root.
std::optional<std::string> folded(const std::string& path) {
  const auto pieces = pathComponents(path);
  const auto first = std::find(pieces.begin(), pieces.end(), "..");
  if (first == pieces.end()) return path;
  const auto count = std::count(pieces.begin(), pieces.end(), "..");
  if (first - pieces.begin() <= count) return std::nullopt;
  std::string result;
  for (auto piece = pieces.begin(); piece != first - count; ++piece)
    result.append(*piece).append("/");
  for (auto piece = first + count; piece != pieces.end(); ++piece)
    result.append(*piece).append("/");
  result.pop_back();
  return result;
}

}  // namespace

LinkedReferences::LinkedReferences(std::string folder, std::optional<std::string> realFolder, Exists exists)
    : folder_(std::move(folder)), realFolder_(std::move(realFolder)), exists_(std::move(exists)) {}

std::optional<LinkedPath> LinkedReferences::follow(std::string_view reference) {
  if (reference.size() > kLongestReference) return std::nullopt;
  bool isFound = false;
  std::string_view joined = reference;
  for (int climbs = 0; climbs < kMaximumClimbs && !isFound; ++climbs) {
    joined = reference;
    if (!reference.starts_with(kClimb)) break;
    reference.remove_prefix(kClimb.size());
    isFound = exists(shortestPath(joined));
  }
  std::string path = joinedPath(folder_, joined);
  auto target = folded(path);
  LinkedPath result;
  result.foldsPastRoot = !target;
  result.path = target ? *std::move(target) : std::move(path);
  // What was not found on the way mostly is not here either.
  result.isMissing = !isFound && !exists(result.path);
  return result;
}

/// The project folder joined with `reference`, its ".." at the beginning resolved as the system does it.
std::string LinkedReferences::shortestPath(std::string_view reference) const {
  if (!realFolder_) return joinedPath(folder_, reference);
  std::string_view folder = *realFolder_;
  while (reference.starts_with(kClimb)) {
    reference.remove_prefix(kClimb.size());
    folder = folder.substr(0, folder.rfind('/'));
    if (folder.empty()) folder = "/";
  }
  return joinedPath(folder, reference);
}

bool LinkedReferences::exists(std::string path) {
  if (const auto known = seen_.find(path); known != seen_.end()) return known->second;
  const bool result = exists_(path);
  if (seenBytes_ > kMostSeenBytes) {
    seen_.clear();
    seenBytes_ = 0;
  }
  seenBytes_ += path.size() + kBytesBesideText;
  seen_.emplace(std::move(path), result);
  return result;
}

}  // namespace quillmeter
