#include "tables/DetailsTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using testing::record;

std::vector<std::string> headers(const std::vector<FileTableColumn>& columns) {
  std::vector<std::string> result;
  for (const FileTableColumn& column : columns)
    result.emplace_back(column.header());
  return result;
}

const FileTableColumn& find(const std::vector<FileTableColumn>& columns, std::string_view identifier) {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const auto& column) { return column.identifier() == identifier; });
  EXPECT_NE(found, columns.end()) << identifier;
  return *found;
}

TEST(DetailsColumns, SourcesShowTheShortSetWhileTheBoxIsOff) {
  for (const std::uint32_t filter : {0U, 1U, 2U, 3U})
    EXPECT_THAT(headers(detailsColumns(filter, false)),
                ElementsAre("Type", "View", "Filename", "LOC", "SLOC", "Size (KB)"));
}

TEST(DetailsColumns, SourcesShowFourMoreWhileTheBoxIsOn) {
  for (const std::uint32_t filter : {0U, 1U, 2U, 3U})
    EXPECT_THAT(headers(detailsColumns(filter, true)),
                ElementsAre("Type", "View", "Filename", "LOC", "KLOC", "SLOC", "Lines with comments", "Words",
                            "Chars", "Size (KB)"));
}

TEST(DetailsColumns, ImagesAndInterfaceFilesIgnoreTheBox) {
  for (const std::uint32_t filter : {4U, 5U}) {
    for (const bool box : {false, true})
      EXPECT_THAT(headers(detailsColumns(filter, box)), ElementsAre("Type", "View", "Filename", "Size (KB)"));
  }
}

TEST(DetailsColumns, WidthsDependOnTheSet) {
  const auto code = detailsColumns(0, true);
  EXPECT_EQ(find(code, "fileName").width, 150);
  EXPECT_EQ(find(code, "kloc").width, 60);
  for (const char* column : {"noLinesTotal", "noLinesWithoutSpaces", "noLinesComments", "noWords",
                             "noCharactersTotal", "fileSize"})
    EXPECT_EQ(find(code, column).width, 80) << column;
  const auto plain = detailsColumns(4, true);
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
  const auto columns = detailsColumns(0, true);
  EXPECT_EQ(find(columns, "noLinesTotal").toolTip, "LOC: lines of code");
  EXPECT_EQ(find(columns, "kloc").toolTip, "KLOC: lines of code divided by 1000");
  EXPECT_EQ(find(columns, "noLinesWithoutSpaces").toolTip, "SLOC: lines of code without empty lines");
  EXPECT_EQ(find(columns, "noCharactersTotal").toolTip, "Total number of characters including spaces");
  EXPECT_EQ(std::count_if(columns.begin(), columns.end(),
                          [](const auto& column) { return column.toolTip.empty(); }),
            6);
}

TEST(DetailsColumns, NamesStandAtTheLeftAndTheRestInTheMiddle) {
  for (const FileTableColumn& column : detailsColumns(0, true))
    EXPECT_EQ(column.isLeftAligned(), column.identifier() == "fileName") << column.identifier();
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
  for (std::uint32_t filter = 0; filter < kDetailsFilters; ++filter) {
    std::multiset<std::string> expected;
    for (const auto& file : files) {
      if (file->fileName() && extensions[filter].contains(*file->getFileExtension()))
        expected.insert(*file->fileName());
    }
    std::multiset<std::string> shown;
    const FileTable table = detailsTable(files, filter, false);
    for (const auto& file : table.rows())
      shown.insert(*file->fileName());
    EXPECT_EQ(shown, expected) << filter;
  }
}

TEST(DetailsTable, AFileReferencedTwiceIsThereTwice) {
  const auto file = record({.name = "a.c"});
  EXPECT_EQ(detailsTable({file, file}, 1, false).rows().size(), 2U);
}

TEST(DetailsTable, ACompiledInterfaceIsListedWithTheIconOfOtherFiles) {
  const FileTable table = detailsTable({record({.name = "Main.nib"})}, 5, false);
  ASSERT_EQ(table.rows().size(), 1U);
  EXPECT_EQ(table.iconName(0), "icon_extension_other");
}

TEST(DetailsTable, AFilterBeyondTheLastIsTheFirst) {
  EXPECT_EQ(detailsTable({record({.name = "a.c"})}, 6, false).rows().size(), 1U);
  EXPECT_EQ(detailsTable({record({.name = "a.c"})}, 4294967295U, false).rows().size(), 1U);
}

TEST(DetailsExport, EachFilterHandsOverItsKinds) {
  using Kinds = std::array<bool, 5>;
  EXPECT_EQ(detailsExportKinds(0), (Kinds{true, true, true, false, false}));
  EXPECT_EQ(detailsExportKinds(1), (Kinds{true, false, false, false, false}));
  EXPECT_EQ(detailsExportKinds(2), (Kinds{false, true, false, false, false}));
  EXPECT_EQ(detailsExportKinds(3), (Kinds{false, false, true, false, false}));
  EXPECT_EQ(detailsExportKinds(4), (Kinds{false, false, false, true, false}));
  EXPECT_EQ(detailsExportKinds(5), (Kinds{false, false, false, false, true}));
}

TEST(DetailsEmptyText, SaysWhatIsMissing) {
  EXPECT_EQ(detailsEmptyText(5, false),
            "No interface files of this project were found on disk.\nThey would end in .xib or .nib.");
  EXPECT_EQ(detailsEmptyText(4, false),
            "No images of this project were found on disk.\nThey would end in .jpg, .png, .tiff or .icns.");
  EXPECT_EQ(detailsEmptyText(4, true), "No file of this project was found on disk.");
}

TEST(FileCountText, OneFileIsNoFiles) {
  EXPECT_EQ(fileCountText(0, "en_US"), "0 files");
  EXPECT_EQ(fileCountText(1, "en_US"), "1 file");
  EXPECT_EQ(fileCountText(1204, "en_US"), "1,204 files");
}

}  // namespace
}  // namespace quillmeter
