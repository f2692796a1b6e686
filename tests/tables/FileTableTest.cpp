#include "tables/FileTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <random>

#include "helpers/ProjectFixture.h"
#include "support/Text.h"
#include "tables/ClassicTables.h"
#include "tables/CleanUpTable.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using testing::record;
using testing::rowNames;

std::size_t columnOf(const FileTable& table, std::string_view identifier) {
  for (std::size_t i = 0; i < table.columns().size(); ++i) {
    if (table.columns()[i].identifier == identifier) return i;
  }
  ADD_FAILURE() << "no column " << identifier;
  return 0;
}

std::string cell(const FileTable& table, std::string_view identifier, std::size_t row = 0) {
  return table.cellText(row, columnOf(table, identifier));
}

FileTable allColumns(FileList files) {
  return testing::classicTable(files, 0, true, "en_US");
}

TEST(FileTable, RowsBeginInTheOrderOfTheirNamesIgnoringCase) {
  const FileTable table =
      allColumns({record({.name = "b.m"}), record({.name = "A.m"}), record({.name = "a.h"})});
  EXPECT_THAT(rowNames(table), ElementsAre("a.h", "A.m", "b.m"));
}

TEST(FileTable, AnAscendingNameSortPutsCapitalsFirst) {
  FileTable table = allColumns({record({.name = "b.m"}), record({.name = "A.m"}), record({.name = "a.h"})});
  table.sort(columnOf(table, "fileName"), true);
  EXPECT_THAT(rowNames(table), ElementsAre("A.m", "a.h", "b.m"));
  table.sort(columnOf(table, "fileName"), false);
  EXPECT_THAT(rowNames(table), ElementsAre("b.m", "a.h", "A.m"));
}

TEST(FileTable, TheFirstOrderFoldsCaseInAllScripts) {
  const FileTable table = allColumns({record({.name = "ä2.c"}), record({.name = "Ä1.c"}),
                                      record({.name = "STRASSE2.c"}), record({.name = "straße1.c"})});
  EXPECT_THAT(rowNames(table), ElementsAre("straße1.c", "STRASSE2.c", "Ä1.c", "ä2.c"));
}

TEST(FileTable, EqualNamesKeepTheOrderOfTheProject) {
  const FileTable table = allColumns({record({.name = "a.c", .size = 3}), record({.name = "A.c", .size = 1}),
                                      record({.name = "a.c", .size = 2})});
  EXPECT_EQ(cell(table, "fileName", 1), "A.c");
  EXPECT_EQ(table.rows()[0]->fileSize(), Number(3));
  EXPECT_EQ(table.rows()[2]->fileSize(), Number(2));
}

TEST(FileTable, TypesSortByTheLowerCasedExtension) {
  FileTable table = allColumns({record({.name = "1.MM"}), record({.name = "2.h"}), record({.name = "3.C"})});
  table.sort(columnOf(table, "getFileExtension"), true);
  EXPECT_THAT(rowNames(table), ElementsAre("3.C", "2.h", "1.MM"));
}

TEST(FileTable, NumbersSortAsNumbers) {
  FileTable table = allColumns({record({.name = "a.c", .lines = 9}), record({.name = "b.c", .lines = 10}),
                                record({.name = "c.c", .lines = 100})});
  for (const char* column : {"noLinesTotal", "kloc"}) {
    table.sort(columnOf(table, column), false);
    EXPECT_THAT(rowNames(table), ElementsAre("c.c", "b.c", "a.c")) << column;
    table.sort(columnOf(table, column), true);
    EXPECT_THAT(rowNames(table), ElementsAre("a.c", "b.c", "c.c")) << column;
  }
}

/// Every column both ways against the plainest sort there is, on rows with many equal values.
TEST(FileTable, EverySortIsStableAndRight) {
  std::mt19937 random(7);
  const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
  const std::vector<std::string> extensions = {"c", "h", "MM", "Cpp", "pch"};
  const std::vector<std::string> stems = {"a", "A", "b", "ä", "Z", "\xF0\x9F\x98\x80", "\xEF\xBF\xA0"};
  FileList files;
  for (int i = 0; i < 400; ++i) {
    files.push_back(record({.name = stems[static_cast<std::size_t>(below(7))] + "." +
                                    extensions[static_cast<std::size_t>(below(5))],
                            .size = below(5),
                            .lines = below(5) - 1,
                            .linesWithoutSpaces = below(4) - 1,
                            .comments = below(3),
                            .words = below(4),
                            .characters = below(4)}));
  }
  const auto number = [](const std::optional<Number>& value) { return integerValue(value); };
  const auto compare = [&](std::string_view column, const FileObject& a,
                           const FileObject& b) -> std::strong_ordering {
    if (column == "fileName") return compareCodeUnits(*a.fileName(), *b.fileName());
    if (column == "getFileExtension") return compareCodeUnits(*a.getFileExtension(), *b.getFileExtension());
    if (column == "noLinesWithoutSpaces") {
      return number(a.noLinesWithoutSpaces()) <=> number(b.noLinesWithoutSpaces());
    }
    if (column == "noLinesComments") return number(a.noLinesComments()) <=> number(b.noLinesComments());
    if (column == "noWords") return number(a.noWords()) <=> number(b.noWords());
    if (column == "noCharactersTotal") return number(a.noCharactersTotal()) <=> number(b.noCharactersTotal());
    if (column == "fileSize") return number(a.fileSize()) <=> number(b.fileSize());
    return number(a.noLinesTotal()) <=> number(b.noLinesTotal());
  };
  FileTable table = allColumns(files);
  int sorted = 0;
  for (std::size_t column = 0; column < table.columns().size(); ++column) {
    if (!table.columns()[column].isSortable()) continue;
    for (const bool ascending : {true, false}) {
      const FileList before = table.rows();
      FileList expected = before;
      std::stable_sort(expected.begin(), expected.end(), [&](const auto& a, const auto& b) {
        const std::strong_ordering order = compare(table.columns()[column].identifier, *a, *b);
        return ascending ? order < 0 : order > 0;
      });
      const auto oldRows = table.sort(column, ascending);
      ASSERT_EQ(table.rows(), expected) << table.columns()[column].identifier << ascending;
      for (std::size_t row = 0; row < oldRows.size(); ++row)
        ASSERT_EQ(table.rows()[row], before[oldRows[row]]);
      ++sorted;
    }
  }
  EXPECT_EQ(sorted, 2 * 9);
}

TEST(FileTable, AFileOf1536BytesIsOneAndAHalfKilobytesInTheDetails) {
  EXPECT_EQ(cell(allColumns({record({.name = "a.c", .size = 1536})}), "fileSize"), "1.5");
}

TEST(FileTable, AFileOf1500BytesIsOneAndAHalfKilobytesInTheCleanUp) {
  EXPECT_EQ(cell(cleanUpTable({record({.name = "a.c", .size = 1500})}, classicKinds(), "en_US"), "fileSize"),
            "1.5");
}

TEST(FileTable, ThousandsOfLinesAreRoundedToTwoDecimals) {
  EXPECT_EQ(cell(allColumns({record({.name = "a.c", .lines = 2047})}), "kloc"), "2.05");
  EXPECT_EQ(cell(allColumns({record({.name = "a.c", .lines = 2000})}), "kloc"), "2");
}

TEST(FileTable, HalvesAreRoundedToTheEvenNeighbour) {
  EXPECT_EQ(cell(allColumns({record({.name = "a.c", .lines = 125})}), "kloc"), "0.12");
  EXPECT_EQ(cell(allColumns({record({.name = "a.c", .lines = 375})}), "kloc"), "0.38");
}

TEST(FileTable, SizesAreGroupedAndCountersAreNot) {
  const FileTable table = allColumns({record({.name = "a.c", .size = 2048000, .lines = 1234567})});
  EXPECT_EQ(cell(table, "fileSize"), "2,000");
  EXPECT_EQ(cell(table, "noLinesTotal"), "1234567");
  EXPECT_EQ(cell(table, "kloc"), "1,234.57");
  const FileTable german = testing::classicTable(table.rows(), 0, true, "de_DE");
  EXPECT_EQ(cell(german, "kloc"), "1.234,57");
}

TEST(FileTable, EachCounterStandsInItsColumn) {
  const FileTable table = allColumns({record(
      {.name = "a.c", .lines = 1, .linesWithoutSpaces = 2, .comments = 3, .words = 4, .characters = 5})});
  EXPECT_EQ(cell(table, "noLinesTotal"), "1");
  EXPECT_EQ(cell(table, "noLinesWithoutSpaces"), "2");
  EXPECT_EQ(cell(table, "noLinesComments"), "3");
  EXPECT_EQ(cell(table, "noWords"), "4");
  EXPECT_EQ(cell(table, "noCharactersTotal"), "5");
  EXPECT_EQ(cell(table, "finderview"), "");
  EXPECT_EQ(cell(table, "getFileExtension"), "");
}

TEST(FileTable, AbsentCountersReadAsZero) {
  const auto bare = std::make_shared<FileObject>();
  bare->setFileName("bare.c");
  FileTable table = allColumns({record({.name = "a.c", .size = 1, .lines = 1}), bare});
  for (const FileTableColumn& column : table.columns()) {
    if (column.showsText() && column.identifier != "fileName") {
      EXPECT_EQ(cell(table, column.identifier, 1), "0") << column.identifier;
    }
  }
  table.sort(columnOf(table, "noLinesTotal"), true);
  EXPECT_THAT(rowNames(table), ElementsAre("bare.c", "a.c"));
}

TEST(FileTable, ARecordWithoutANameIsAnEmptyTextAndComesFirst) {
  FileTable table(cleanUpColumns(), {record({.name = "a.c"}), std::make_shared<FileObject>()}, classicKinds(),
                  1000.0);
  EXPECT_THAT(rowNames(table), ElementsAre("(none)", "a.c"));
  EXPECT_EQ(cell(table, "fileName"), "");
  EXPECT_EQ(cell(table, "filePath"), "");
  EXPECT_EQ(table.iconName(0), "icon_extension_other");
  for (const char* column : {"fileName", "filePath", "getFileExtension"}) {
    table.sort(columnOf(table, column), false);
    EXPECT_THAT(rowNames(table), ElementsAre("a.c", "(none)")) << column;
    table.sort(columnOf(table, column), true);
  }
}

TEST(FileTable, ASizeBeyondSignedNumbersIsShownAndSorted) {
  const auto huge = record({.name = "huge.c"});
  huge->setFileSize(Number(std::uint64_t{18446744073709551615U}));
  FileTable table = allColumns({huge, record({.name = "a.c", .size = 5})});
  table.sort(columnOf(table, "fileSize"), true);
  EXPECT_THAT(rowNames(table), ElementsAre("a.c", "huge.c"));
  EXPECT_EQ(cell(table, "fileSize", 1), "18,014,398,509,481,984");
}

TEST(FileTable, NamesAreShownAsTheyAre) {
  const std::string longName = std::string(1000, 'x') + ".c";
  const std::string wild = "tab\tand\nline\xFF.c";
  const FileTable table = allColumns({record({.name = longName}), record({.name = wild})});
  EXPECT_EQ(cell(table, "fileName", 0), wild);
  EXPECT_EQ(cell(table, "fileName", 1), longName);
}

TEST(FileTable, EveryTypeHasItsIcon) {
  const std::vector<std::pair<std::string, std::string>> icons = {
      {"a.c", "c"},       {"a.cpp", "cpp"},   {"a.xib", "xib"},   {"a.icns", "icns"},
      {"a.h", "h"},       {"a.hh", "h"},      {"a.pch", "h"},     {"a.m", "m"},
      {"a.mm", "m"},      {"a.jpg", "image"}, {"a.png", "image"}, {"a.tiff", "image"},
      {"a.nib", "other"}, {"a.", "other"},    {"A.CPP", "cpp"},   {"a.gif", "other"}};
  for (const auto& [name, icon] : icons) {
    const FileTable table(cleanUpColumns(), {record({.name = name})}, classicKinds(), 1000.0);
    EXPECT_EQ(table.iconName(0), "icon_extension_" + icon) << name;
  }
  EXPECT_EQ(classicKinds().find("C"), nullptr) << "extensions come lower-cased and compare exactly";
}

TEST(FileTable, CopiedRowsAreTabSeparatedLines) {
  const FileTable table = testing::classicTable(
      {record({.name = "a.png", .size = 1024}), record({.name = "b.icns", .size = 2048})}, 4, true, "en_US");
  EXPECT_EQ(table.tabSeparated({0, 1}), "png\ta.png\t1\nicns\tb.icns\t2\n");
  EXPECT_EQ(table.tabSeparated({1}), "icns\tb.icns\t2\n");
  EXPECT_EQ(table.tabSeparated({}), "");
}

TEST(FileTable, NoNameBreaksTheLinesOfACopy) {
  const FileTable table = testing::classicTable({record({.name = "a\tb\r\nc\xE2\x80\xA8"
                                                                 "d\xFF.png"})},
                                                4, true, "en_US");
  EXPECT_EQ(table.tabSeparated({0}), "png\ta b  c d\xFF.png\t0\n");
}

TEST(FileTable, AColumnOfItsOwnIsShownSortedAndCopied) {
  auto columns = cleanUpColumns();
  columns.push_back({.identifier = "emptyLines",
                     .header = "Empty",
                     .place = ColumnPlace::cleanUp,
                     .cells = NumberCells{[](const FileObject& file) {
                       return Number(integerValue(file.noLinesTotal()) -
                                     integerValue(file.noLinesWithoutSpaces()));
                     }},
                     .width = 80});
  FileTable table(columns,
                  {record({.name = "a.c", .lines = 12, .linesWithoutSpaces = 2}),
                   record({.name = "b.c", .lines = 9, .linesWithoutSpaces = 8})},
                  classicKinds(), 1000.0);
  EXPECT_EQ(cell(table, "emptyLines", 0), "10");
  table.sort(columnOf(table, "emptyLines"), true);
  EXPECT_THAT(rowNames(table), ElementsAre("b.c", "a.c"));
  EXPECT_EQ(table.tabSeparated({0}), "c\tb.c\t/project/b.c\t0\t1\n");
}

TEST(FileTable, AColumnThatItDoesNotHaveIsNowhere) {
  EXPECT_EQ(allColumns({}).columnOf("filePath"), std::nullopt);
  EXPECT_EQ(allColumns({}).columnOf("fileName"), std::size_t{2});
}

TEST(FileTable, ARowHasOneKindOfDigits) {
  const FileTable table = detailsTable({record({.name = "a.c", .size = 2048, .lines = 1234})}, classicKinds(),
                                       detailsFilter(classicKinds(), 0), false, "ar_EG");
  EXPECT_EQ(table.cellText(0, 3), "١٢٣٤");
  EXPECT_EQ(table.cellText(0, 5), "٢");
}

}  // namespace
}  // namespace quillmeter
