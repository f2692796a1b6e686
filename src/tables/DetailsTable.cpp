#include "tables/DetailsTable.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "measuring/FileKinds.h"

namespace quillmeter {
namespace {

constexpr std::array<std::string_view, 2> kSourceExtensions = {"c", "cpp"};
constexpr std::array<std::string_view, 3> kHeaderExtensions = {"h", "hh", "pch"};
constexpr std::array<std::string_view, 2> kObjectiveCExtensions = {"m", "mm"};
/// The compiled ones, too, unlike anywhere else in the program.
constexpr std::array<std::string_view, 2> kInterfaceExtensions = {"xib", "nib"};

struct Filter {
  std::span<const std::string_view> extensions;
  std::string_view name;
  bool showsCounters;
  std::array<bool, 5> exportKinds;
};

const Filter& filterAt(std::uint32_t number) {
  static constexpr std::array<Filter, kDetailsFilters> filters{{
      {acceptedCodeFileFormats, "source files", true, {true, true, true, false, false}},
      {kSourceExtensions, "C and C++ sources", true, {true, false, false, false, false}},
      {kHeaderExtensions, "header files", true, {false, true, false, false, false}},
      {kObjectiveCExtensions, "Objective-C sources", true, {false, false, true, false, false}},
      {acceptedImagesFormats, "images", false, {false, false, false, true, false}},
      {kInterfaceExtensions, "interface files", false, {false, false, false, false, true}},
  }};
  return filters[number < filters.size() ? number : 0];
}

}  // namespace

std::span<const std::string_view> detailsExtensions(std::uint32_t filter) {
  return filterAt(filter).extensions;
}

std::string_view detailsFilterName(std::uint32_t filter) {
  return filterAt(filter).name;
}

std::vector<FileTableColumn> detailsColumns(std::uint32_t filter, bool showsExtraColumns) {
  using enum FileTableField;
  std::vector<FileTableColumn> columns = {typeColumn(), revealColumn()};
  if (!filterAt(filter).showsCounters) {
    columns.push_back({.field = fileName, .width = 300});
    columns.push_back({.field = fileSize, .width = 100});
    return columns;
  }
  columns.push_back({.field = fileName, .width = 150});
  columns.push_back({.field = noLinesTotal, .width = 80, .toolTip = "LOC: lines of code"});
  if (showsExtraColumns) {
    columns.push_back({.field = kloc, .width = 60, .toolTip = "KLOC: lines of code divided by 1000"});
  }
  columns.push_back(
      {.field = noLinesWithoutSpaces, .width = 80, .toolTip = "SLOC: lines of code without empty lines"});
  if (showsExtraColumns) {
    columns.push_back({.field = noLinesComments, .width = 80});
    columns.push_back({.field = noWords, .width = 80});
    columns.push_back(
        {.field = noCharactersTotal, .width = 80, .toolTip = "Total number of characters including spaces"});
  }
  columns.push_back({.field = fileSize, .width = 80});
  return columns;
}

FileTable detailsTable(const FileList& files, std::uint32_t filter, bool showsExtraColumns,
                       const std::string& locale) {
  FileList members;
  std::copy_if(files.begin(), files.end(), std::back_inserter(members), [&](const auto& file) {
    return MeasuredProject::fileIsOfTypeAndFile(detailsExtensions(filter), *file);
  });
  return {detailsColumns(filter, showsExtraColumns), std::move(members), 1024.0, locale};
}

std::array<bool, 5> detailsExportKinds(std::uint32_t filter) {
  return filterAt(filter).exportKinds;
}

std::string detailsEmptyText(std::uint32_t filter, bool projectIsEmpty) {
  if (projectIsEmpty) return "No file of this project was found on disk.";
  std::string text =
      "No " + std::string(detailsFilterName(filter)) + " of this project were found on disk.\n";
  std::string_view separator = "They would end in .";
  const auto extensions = detailsExtensions(filter);
  for (std::size_t i = 0; i < extensions.size(); ++i) {
    text.append(separator).append(extensions[i]);
    separator = i + 2 < extensions.size() ? ", ." : " or .";
  }
  return text + ".";
}

std::string fileCountText(std::size_t count, const std::string& locale) {
  const DecimalFormatter formatter(0, 0, locale);
  return formatter.format(std::uint64_t{count}) + (count == 1 ? " file" : " files");
}

}  // namespace quillmeter
