#include "tables/CleanUpTable.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "analysis/MeasuredProject.h"

namespace quillmeter {

FileList unreferencedFiles(const MeasuredProject& project) {
  return project.unreferencedFiles();
}

std::vector<FileTableColumn> cleanUpColumns() {
  std::vector<FileTableColumn> columns;
  std::copy_if(fileTableColumns().begin(), fileTableColumns().end(), std::back_inserter(columns),
               [](const FileTableColumn& column) {
                 return column.place == ColumnPlace::everywhere || column.place == ColumnPlace::cleanUp;
               });
  return columns;
}

FileTable cleanUpTable(FileList unreferenced, const FileKindTable& kinds, const std::string& locale) {
  return {cleanUpColumns(), std::move(unreferenced), kinds, 1000.0, locale};
}

}  // namespace quillmeter
