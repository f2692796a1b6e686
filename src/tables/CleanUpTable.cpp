#include "tables/CleanUpTable.h"

#include <algorithm>
#include <future>
#include <iterator>
#include <system_error>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "support/Confinement.h"

namespace quillmeter {

FileList unreferencedFiles(const MeasuredProject& project) {
  std::future<FileList> found;
  try {
    found = std::async(std::launch::async, [&project] {
      confineThread();
      return project.unreferencedFiles();
    });
  } catch (const std::system_error&) {
    return project.unreferencedFiles();  // no thread to be had
  }
  return found.get();
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
