#include "measuring/FileRanking.h"

#include <algorithm>
#include <compare>

namespace quillmeter {
namespace {

/// A file with its measure at hand, so that sorting does not go back to the records for every comparison.
struct Ranked {
  Number measure;
  const std::shared_ptr<FileObject>* file;
};

}  // namespace

FileList rankedFiles(const FileList& files, FileMeasure measure) {
  std::vector<Ranked> ranking;
  ranking.reserve(files.size());
  for (const auto& file : files)
    ranking.push_back({(*file.*measure)().value_or(Number()), &file});
  std::stable_sort(ranking.begin(), ranking.end(),
                   [](const Ranked& a, const Ranked& b) { return std::is_gt(a.measure.compare(b.measure)); });
  FileList result;
  result.reserve(files.size());
  for (const Ranked& entry : ranking)
    result.push_back(*entry.file);
  return result;
}

}  // namespace quillmeter
