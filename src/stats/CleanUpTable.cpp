#include "stats/CleanUpTable.h"

#include <utility>

#include "analysis/ParseProject.h"

namespace quillmeter {

FileList unreferencedFiles(const ParseProject& project) {
  return project.filesInFolderExcept(project.files());
}

std::vector<FileTableColumn> cleanUpColumns() {
  return {typeColumn(),
          revealColumn(),
          {.field = FileTableField::fileName, .width = 300},
          {.field = FileTableField::filePath, .width = 300},
          {.field = FileTableField::fileSize, .width = 100}};
}

FileTable cleanUpTable(FileList unreferenced, const std::string& locale) {
  return {cleanUpColumns(), std::move(unreferenced), 1000.0, locale};
}

}  // namespace quillmeter
