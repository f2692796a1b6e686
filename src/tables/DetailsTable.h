#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "measuring/FileObject.h"
#include "tables/FileTable.h"

/// What the Details tab shows: one row for each project file of a chosen group. The six groups are numbered
/// 0 to 5 as the tab's filter buttons are; every operation reads a greater number as 0.
namespace quillmeter {

inline constexpr std::uint32_t kDetailsFilters = 6;

/// The extensions of the group's files.
[[nodiscard]] std::span<const std::string_view> detailsExtensions(std::uint32_t filter);

/// The group's name as a text has it, such as "C and C++ sources".
[[nodiscard]] std::string_view detailsFilterName(std::uint32_t filter);

/// The columns for a group. Images and interface files have few columns, whatever `showsExtraColumns` is.
[[nodiscard]] std::vector<FileTableColumn> detailsColumns(std::uint32_t filter, bool showsExtraColumns);

/// The files of `files` that belong to the group, in the order of their names ignoring letter case, with
/// sizes in units of 1024 bytes.
[[nodiscard]] FileTable detailsTable(const FileList& files, std::uint32_t filter, bool showsExtraColumns,
                                     const std::string& locale = {});

/// Which file groups of an export stand for the filter: C and C++ sources, headers, Objective-C sources,
/// images, interface files.
[[nodiscard]] std::array<bool, 5> detailsExportKinds(std::uint32_t filter);

/// Why a table without rows has none; `projectIsEmpty` when the project has no files at all.
[[nodiscard]] std::string detailsEmptyText(std::uint32_t filter, bool projectIsEmpty);

/// "1 file" or "1,204 files", grouped as the locale has it.
[[nodiscard]] std::string fileCountText(std::size_t count, const std::string& locale = {});

}  // namespace quillmeter
