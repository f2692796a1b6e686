#include "tables/DetailsTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "helpers/ProjectFixture.h"
#include "tables/ClassicTables.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using testing::record;

std::vector<std::string> headers(const std::vector<FileTableColumn>& columns) {
  std::vector<std::string> result;
  for (const FileTableColumn& column : columns)
    result.emplace_back(column.header);
  return result;
}

const FileTableColumn& find(const std::vector<FileTableColumn>& columns, std::string_view identifier) {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const auto& column) { return column.identifier == identifier; });
  EXPECT_NE(found, columns.end()) << identifier;
  return *found;
}

TEST(DetailsColumns, SourcesShowTheShortSetWhileTheBoxIsOff) {
  for (const std::uint32_t filter : {0U, 1U, 2U, 3U})
    EXPECT_THAT(headers(testing::classicColumns(filter, false)),
                ElementsAre("Type", "View", "Filename", "LOC", "SLOC", "Size (KB)"));
}

TEST(DetailsColumns, SourcesShowFourMoreWhileTheBoxIsOn) {
  for (const std::uint32_t filter : {0U, 1U, 2U, 3U})
    EXPECT_THAT(headers(testing::classicColumns(filter, true)),
                ElementsAre("Type", "View", "Filename", "LOC", "KLOC", "SLOC", "Lines with comments", "Words",
                            "Chars", "Size (KB)"));
}

TEST(DetailsColumns, ImagesAndInterfaceFilesIgnoreTheBox) {
  for (const std::uint32_t filter : {4U, 5U}) {
    for (const bool box : {false, true})
      EXPECT_THAT(headers(testing::classicColumns(filter, box)),
                  ElementsAre("Type", "View", "Filename", "Size (KB)"));
  }
}

TEST(DetailsColumns, WidthsDependOnTheSet) {
  const auto code = testing::classicColumns(0, true);
  EXPECT_EQ(find(code, "fileName").width, 150);
  EXPECT_EQ(find(code, "kloc").width, 60);
  for (const char* column : {"noLinesTotal", "noLinesWithoutSpaces", "noLinesComments", "noWords",
                             "noCharactersTotal", "fileSize"})
    EXPECT_EQ(find(code, column).width, 80) << column;
  const auto plain = testing::classicColumns(4, true);
  EXPECT_EQ(find(plain, "fileName").width, 300);
  EXPECT_EQ(find(plain, "fileSize").width, 100);
  for (const auto& columns : {code, plain}) {
    EXPECT_EQ(find(columns, "getFileExtension").width, 44);
    EXPECT_EQ(find(columns, "getFileExtension").maximumWidth, 60);
    EXPECT_EQ(find(columns, "finderview").width, 40);
    EXPECT_EQ(find(columns, "finderview").maximumWidth, 60);
    EXPECT_FALSE(find(columns, "fileName").maximumWidth);
  }
}

TEST(DetailsColumns, FourHeadersExplainThemselves) {
  const auto columns = testing::classicColumns(0, true);
  EXPECT_EQ(find(columns, "noLinesTotal").toolTip, "LOC: lines of code");
  EXPECT_EQ(find(columns, "kloc").toolTip, "KLOC: lines of code divided by 1000");
  EXPECT_EQ(find(columns, "noLinesWithoutSpaces").toolTip, "SLOC: lines of code without empty lines");
  EXPECT_EQ(find(columns, "noCharactersTotal").toolTip, "Total number of characters including spaces");
  EXPECT_EQ(std::count_if(columns.begin(), columns.end(),
                          [](const auto& column) { return column.toolTip.empty(); }),
            6);
}

TEST(DetailsColumns, NamesStandAtTheLeftAndTheRestInTheMiddle) {
  for (const FileTableColumn& column : testing::classicColumns(0, true))
    EXPECT_EQ(column.isLeftAligned(), column.identifier == "fileName") << column.identifier;
}

TEST(DetailsTable, EachFilterTakesExactlyItsExtensions) {
  const std::vector<std::set<std::string>> extensions = {{"c", "cpp", "h", "hh", "m", "mm", "pch"},
                                                         {"c", "cpp"},
                                                         {"h", "hh", "pch"},
                                                         {"m", "mm"},
                                                         {"jpg", "png", "tiff", "icns"},
                                                         {"xib", "nib"}};
  FileList files;
  for (const char* extension :
       {"c",    "CPP", "h",   "hh",  "m",    "mm",    "Pch", "jpg", "PNG", "tiff",
        "icns", "xib", "nib", "txt", "jpeg", "swift", "cc",  "hpp", "",    "storyboard"}) {
    for (const char* stem : {"b", "A", "c"})
      files.push_back(record({.name = std::string(stem) + "." + extension}));
  }
  files.push_back(record({.name = "png"}));
  files.push_back(std::make_shared<FileObject>());
  for (std::uint32_t filter = 0; filter < extensions.size(); ++filter) {
    std::multiset<std::string> expected;
    for (const auto& file : files) {
      if (file->fileName() && extensions[filter].contains(*file->getFileExtension()))
        expected.insert(*file->fileName());
    }
    std::multiset<std::string> shown;
    const FileTable table = testing::classicTable(files, filter, false);
    for (const auto& file : table.rows())
      shown.insert(*file->fileName());
    EXPECT_EQ(shown, expected) << filter;
  }
}

TEST(DetailsTable, AFileReferencedTwiceIsThereTwice) {
  const auto file = record({.name = "a.c"});
  EXPECT_EQ(testing::classicTable({file, file}, 1, false).rows().size(), 2U);
}

TEST(DetailsTable, ACompiledInterfaceIsListedWithTheIconOfOtherFiles) {
  const FileTable table = testing::classicTable({record({.name = "Main.nib"})}, 5, false);
  ASSERT_EQ(table.rows().size(), 1U);
  EXPECT_EQ(table.iconName(0), "icon_extension_other");
}

TEST(DetailsTable, AFilterBeyondTheLastIsTheFirst) {
  EXPECT_EQ(testing::classicTable({record({.name = "a.c"})}, 6, false).rows().size(), 1U);
  EXPECT_EQ(testing::classicTable({record({.name = "a.c"})}, 4294967295U, false).rows().size(), 1U);
}

TEST(DetailsFilters, EachHandsItsGroupsToTheExport) {
  using enum FileGroup;
  const std::vector<FileGroups> expected = {{c, headers, objectiveC}, {c}, {headers}, {objectiveC}, {images},
                                            {interfaceFiles}};
  std::vector<FileGroups> groups;
  for (const DetailsFilter& filter : detailsFilters(classicKinds()))
    groups.push_back(filter.groups);
  EXPECT_EQ(groups, expected);
}

TEST(DetailsFilters, EachHasAName) {
  std::vector<std::string_view> names;
  for (const DetailsFilter& filter : detailsFilters(classicKinds()))
    names.push_back(filter.name);
  EXPECT_THAT(names, ElementsAre("source files", "C and C++ sources", "header files", "Objective-C sources",
                                 "images", "interface files"));
}

TEST(DetailsEmptyText, SaysWhatIsMissing) {
  const auto text = [](std::uint32_t filter, bool projectIsEmpty) {
    return detailsEmptyText(classicKinds(), detailsFilter(classicKinds(), filter), projectIsEmpty);
  };
  EXPECT_EQ(text(5, false),
            "No interface files of this project were found on disk.\nThey would end in .xib or .nib.");
  EXPECT_EQ(text(4, false),
            "No images of this project were found on disk.\nThey would end in .jpg, .png, .tiff or .icns.");
  EXPECT_EQ(text(0, false),
            "No source files of this project were found on disk.\n"
            "They would end in .c, .cpp, .h, .hh, .m, .mm or .pch.");
  EXPECT_EQ(text(4, true), "No file of this project was found on disk.");
}

TEST(FileCountText, OneFileIsNoFiles) {
  EXPECT_EQ(fileCountText(0, "en_US"), "0 files");
  EXPECT_EQ(fileCountText(1, "en_US"), "1 file");
  EXPECT_EQ(fileCountText(1204, "en_US"), "1,204 files");
}

}  // namespace
}  // namespace quillmeter
