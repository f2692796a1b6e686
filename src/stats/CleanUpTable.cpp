#include "stats/CleanUpTable.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>

namespace quillmeter {

FileList unreferencedFiles(const FileList& onDisk, const FileList& referenced) {
  std::unordered_set<std::string_view> known;
  known.reserve(referenced.size());
  for (const auto& file : referenced) {
    if (file->filePath()) known.insert(*file->filePath());
  }
  FileList result;
  std::copy_if(onDisk.begin(), onDisk.end(), std::back_inserter(result),
               [&](const auto& file) { return !file->filePath() || !known.contains(*file->filePath()); });
  return result;
}

std::vector<FileTableColumn> cleanUpColumns() {
  return {typeColumn(),
          revealColumn(),
          {.field = FileTableField::fileName, .width = 300},
          {.field = FileTableField::filePath, .width = 300},
          {.field = FileTableField::fileSize, .width = 100}};
}

FileTable cleanUpTable(const FileList& onDisk, const FileList& referenced, const std::string& locale) {
  return {cleanUpColumns(), unreferencedFiles(onDisk, referenced), 1000.0, locale};
}

}  // namespace quillmeter
