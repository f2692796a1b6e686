#include "tables/CleanUpTable.h"

#include <utility>

#include "analysis/MeasuredProject.h"

namespace quillmeter {

FileList unreferencedFiles(const MeasuredProject& project) {
  return project.unreferencedFiles();
}

std::vector<FileTableColumn> cleanUpColumns() {
  return {typeColumn(),
          revealColumn(),
          {.field = FileTableField::fileName, .width = 300},
          {.field = FileTableField::filePath, .width = 300},
          {.field = FileTableField::fileSize, .width = 100}};
}

FileTable cleanUpTable(FileList unreferenced, const FileKindTable& kinds, const std::string& locale) {
  return {cleanUpColumns(), std::move(unreferenced), kinds, 1000.0, locale};
}

}  // namespace quillmeter
