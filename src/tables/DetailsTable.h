#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "measuring/FileKinds.h"
#include "measuring/FileObject.h"
#include "tables/FileTable.h"

/// What the Details tab shows: one row for each project file that a chosen filter lets through.
namespace quillmeter {

/// What one of the tab's buttons shows.
struct DetailsFilter {
  FileGroups groups;          ///< also those that an export of the filter covers
  std::string_view name;      ///< as a sentence has it, such as "C and C++ sources"
  bool showsCounters = true;  ///< images and interface files show their sizes alone
};

/// The filters in the order of the buttons: all source files, then each group by itself.
[[nodiscard]] std::vector<DetailsFilter> detailsFilters(const FileKindTable& kinds);

/// Filter `number` of them; the first one for a number beyond the last.
[[nodiscard]] DetailsFilter detailsFilter(const FileKindTable& kinds, std::uint32_t number);

/// The columns for a filter. Without counters there are few columns, whatever `showsExtraColumns` is.
[[nodiscard]] std::vector<FileTableColumn> detailsColumns(const DetailsFilter& filter,
                                                          bool showsExtraColumns);

/// The files of `files` that the filter lets through, in the order of their names ignoring letter case, with
/// sizes in units of 1024 bytes.
[[nodiscard]] FileTable detailsTable(const FileList& files, const FileKindTable& kinds,
                                     const DetailsFilter& filter, bool showsExtraColumns,
                                     const std::string& locale = {});

/// Why a table without rows has none; `projectIsEmpty` when the project has no files at all.
[[nodiscard]] std::string detailsEmptyText(const FileKindTable& kinds, const DetailsFilter& filter,
                                           bool projectIsEmpty);

/// "1 file" or "1,204 files", grouped as the locale has it.
[[nodiscard]] std::string fileCountText(std::size_t count, const std::string& locale = {});

}  // namespace quillmeter
