#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Require.h"
#include "analysis/LinearRule.h"
#include "analysis/PathIndex.h"
#include "files/WorkerPool.h"
#include "helpers/MemoryFileSystem.h"

/// What the index finds is what looking at every path finds, whatever was asked before. A line of the input
/// is a path on the disk, "*" and a path that stands in 40 folders, "?" and a reference to look up, or "!"
/// and one of which the first candidate turns out to be missing.

namespace {

using namespace quillmeter;

constexpr std::string_view kRoot = "/w";

struct Question {
  std::string reference;
  bool firstIsMissing;
};

std::vector<Question> madeOf(std::string_view input, testing::MemoryFileSystem& disk) {
  std::vector<Question> questions;
  disk.addFolder(kRoot);
  while (!input.empty()) {
    const std::size_t length = std::min(input.find('\n'), input.size());
    const std::string line(input.substr(0, length));
    input.remove_prefix(std::min(length + 1, input.size()));
    if (line.empty()) continue;
    if (line.front() == '?' || line.front() == '!') {
      questions.push_back({line.substr(1), line.front() == '!'});
    } else if (line.front() == '*') {
      for (int i = 0; i < 40; ++i)
        disk.addFile(std::string(kRoot) + "/" + std::to_string(i) + "/" + line.substr(1), "");
    } else {
      disk.addFile(std::string(kRoot) + "/" + line, "");
    }
  }
  return questions;
}

std::vector<std::string> plainCandidates(const std::vector<std::string>& paths,
                                         const std::set<std::string>& missing, const std::string& reference) {
  std::vector<std::string> candidates;
  if (reference.empty()) return candidates;
  for (std::string& path : testing::candidatesLinearly(paths, reference))
    if (!missing.contains(path)) candidates.push_back(std::move(path));
  return candidates;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  testing::MemoryFileSystem disk;
  const auto questions = madeOf({reinterpret_cast<const char*>(data), size}, disk);
  const auto paths = disk.pathsBelow(std::string(kRoot));
  if (paths.size() * questions.size() > 100000) return 0;
  WorkerPool pool({1, 1});
  PathIndex index{FolderWalk(kRoot, disk, pool)};
  std::set<std::string> missing;
  for (const Question& question : questions) {
    const auto expected = plainCandidates(paths, missing, question.reference);
    auto candidates = index.candidatesOf(question.reference);
    // Another one is asked in between, which must not matter.
    auto others = index.candidatesOf(question.reference);
    for (std::size_t i = 0; i < expected.size(); ++i) {
      const auto candidate = candidates.next();
      require(candidate && candidate->path == expected[i] && candidate->entry < paths.size());
      if (i % 2 == 0) require(others.next()->path == expected[i / 2]);
      if (i > 0 || !question.firstIsMissing) continue;
      index.markMissing(candidate->entry);
      missing.insert(candidate->path);
      others = index.candidatesOf(question.reference);
      if (expected.size() > 1) require(others.next()->path == expected[1]);
      others = candidates = index.candidatesOf(question.reference);
      const auto rest = plainCandidates(paths, missing, question.reference);
      for (const std::string& path : rest)
        require(candidates.next()->path == path);
      require(!candidates.next());
      break;
    }
    if (expected.empty() || !question.firstIsMissing) require(!candidates.next());
  }
  return 0;
}
