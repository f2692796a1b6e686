#include "tables/CleanUpTable.h"

#include <algorithm>
#include <future>
#include <iterator>
#include <system_error>
#include <thread>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "support/Confinement.h"

namespace quillmeter {

FileList unreferencedFiles(const MeasuredProject& project) {
  std::packaged_task<FileList()> search([&project] {
    confineThread();
    return project.unreferencedFiles();
  });
  auto found = search.get_future();
  try {
    std::thread(std::move(search)).join();
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
