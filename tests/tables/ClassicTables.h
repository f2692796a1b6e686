#pragma once

#include <string>

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

}  // namespace quillmeter::testing
