#pragma once

#include <string>
#include <vector>

#include "measuring/FileKinds.h"
#include "tables/DetailsTable.h"

namespace quillmeter::testing {

/// The details table and its columns for filter `number` of the classic rules.
inline FileTable classicTable(const FileList& files, std::uint32_t number, bool showsExtraColumns,
                              const std::string& locale = {}) {
  return detailsTable(files, classicKinds(), detailsFilter(classicKinds(), number), showsExtraColumns,
                      locale);
}

inline std::vector<FileTableColumn> classicColumns(std::uint32_t number, bool showsExtraColumns) {
  return detailsColumns(detailsFilter(classicKinds(), number), showsExtraColumns);
}

/// The names in the rows, from above; "(none)" for a file without one.
inline std::vector<std::string> rowNames(const FileTable& table) {
  std::vector<std::string> names;
  for (const auto& file : table.rows())
    names.push_back(file->fileName().value_or("(none)"));
  return names;
}

}  // namespace quillmeter::testing
