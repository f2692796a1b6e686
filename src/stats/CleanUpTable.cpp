#include "stats/CleanUpTable.h"

#include <string_view>
#include <unordered_set>
#include <utility>

namespace quillmeter {

FileList unreferencedFiles(FileList onDisk, const FileList& referenced) {
  std::unordered_set<std::string_view> known;
  known.reserve(referenced.size());
  for (const auto& file : referenced) {
    if (file->filePath()) known.insert(*file->filePath());
  }
  std::erase_if(onDisk,
                [&](const auto& file) { return file->filePath() && known.contains(*file->filePath()); });
  return onDisk;
}

std::vector<FileTableColumn> cleanUpColumns() {
  return {typeColumn(),
          revealColumn(),
          {.field = FileTableField::fileName, .width = 300},
          {.field = FileTableField::filePath, .width = 300},
          {.field = FileTableField::fileSize, .width = 100}};
}

FileTable cleanUpTable(FileList onDisk, const FileList& referenced, const std::string& locale) {
  return {cleanUpColumns(), unreferencedFiles(std::move(onDisk), referenced), 1000.0, locale};
}

}  // namespace quillmeter
