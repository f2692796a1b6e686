#include "tables/DetailsTable.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillmeter {

std::vector<DetailsFilter> detailsFilters(const FileKindTable& kinds) {
  std::vector<DetailsFilter> filters = {{.groups = {}, .name = "source files"}};
  for (const FileGroupEntry& entry : kinds.groups()) {
    const bool isCode = entry.kind == FileKind::code;
    if (isCode) filters.front().groups.insert(entry.group);
    if (entry.chosenWith) continue;
    filters.push_back({.groups = kinds.chosenBy(entry.group), .name = entry.name, .showsCounters = isCode});
  }
  return filters;
}

DetailsFilter detailsFilter(const FileKindTable& kinds, std::uint32_t number) {
  const auto filters = detailsFilters(kinds);
  return number < filters.size() ? filters[number] : filters.front();
}

std::vector<FileTableColumn> detailsColumns(const DetailsFilter& filter, bool showsExtraColumns) {
  std::vector<FileTableColumn> columns;
  for (FileTableColumn column : fileTableColumns()) {
    const bool isShown = column.place == ColumnPlace::everywhere ||
                         (filter.showsCounters &&
                          (column.place == ColumnPlace::detailsOfCode ||
                           (column.place == ColumnPlace::detailsOfCodeOnRequest && showsExtraColumns)));
    if (!isShown) continue;
    if (filter.showsCounters) column.width = column.widthBesideCounters.value_or(column.width);
    columns.push_back(column);
  }
  return columns;
}

FileTable detailsTable(const FileList& files, const FileKindTable& kinds, const DetailsFilter& filter,
                       bool showsExtraColumns, const std::string& locale) {
  FileList members;
  std::copy_if(files.begin(), files.end(), std::back_inserter(members), [&](const auto& file) {
    const FileKindEntry* entry = kinds.find(*file);
    return entry != nullptr && filter.groups.contains(entry->group);
  });
  return {detailsColumns(filter, showsExtraColumns), std::move(members), kinds, 1024.0, locale};
}

std::string detailsEmptyText(const FileKindTable& kinds, const DetailsFilter& filter, bool projectIsEmpty) {
  if (projectIsEmpty) return "No file of this project was found on disk.";
  return "No " + std::string(filter.name) + " of this project were found on disk.\nThey would end in " +
         extensionsText(kinds.listedExtensions(filter.groups), " or ") + ".";
}

std::string fileCountText(std::size_t count, const std::string& locale) {
  const DecimalFormatter formatter(0, 0, locale);
  return formatter.format(std::uint64_t{count}) + (count == 1 ? " file" : " files");
}

}  // namespace quillmeter
