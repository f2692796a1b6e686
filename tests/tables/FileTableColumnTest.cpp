#include "tables/FileTableColumn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <set>

#include "tables/ClassicTables.h"
#include "tables/CleanUpTable.h"

namespace quillmeter {
namespace {

FileTableColumn columnCalled(std::string_view identifier) {
  const auto& all = fileTableColumns();
  return *std::find_if(all.begin(), all.end(),
                       [&](const FileTableColumn& column) { return column.identifier == identifier; });
}

FileTableColumn typeColumn() {
  return columnCalled("getFileExtension");
}
FileTableColumn revealColumn() {
  return columnCalled("finderview");
}

std::vector<FileTableColumn> flexible(std::size_t count) {
  return std::vector<FileTableColumn>(count, columnCalled("noWords"));
}

TEST(FileTableColumn, TheMinimumOf44WidensTheRevealColumn) {
  EXPECT_EQ(revealColumn().width, 40);
  const auto columns = withMinimumWidths({typeColumn(), revealColumn()});
  for (const FileTableColumn& column : columns) {
    EXPECT_EQ(column.width, 44) << column.identifier;
    EXPECT_EQ(column.minimumWidth, 44) << column.identifier;
    EXPECT_EQ(column.maximumWidth, 60) << column.identifier;
  }
}

TEST(FileTableColumn, OnlyTheRevealColumnCannotBeSorted) {
  for (const FileTableColumn& column : testing::classicColumns(0, true))
    EXPECT_EQ(column.isSortable(), column.identifier != "finderview") << column.identifier;
}

TEST(FileTableColumn, EveryOneIsShownSomewhereUnderItsOwnName) {
  std::set<std::string_view> shown;
  for (const auto& columns : {testing::classicColumns(0, true), cleanUpColumns()}) {
    for (const FileTableColumn& column : columns)
      shown.insert(column.identifier);
  }
  EXPECT_EQ(shown.size(), fileTableColumns().size());
  for (const FileTableColumn& column : fileTableColumns()) {
    EXPECT_TRUE(shown.contains(column.identifier)) << column.identifier;
    EXPECT_FALSE(column.header.empty()) << column.identifier;
  }
}

TEST(UniformWidths, EveryColumnGetsTheSameShareOfTheRoom) {
  EXPECT_EQ(uniformWidths(flexible(3), {80, 100, 120}, 360), (std::vector<int>{100, 120, 140}));
  EXPECT_EQ(uniformWidths(flexible(3), {80, 100, 120}, 270), (std::vector<int>{70, 90, 110}));
}

TEST(UniformWidths, APixelThatDoesNotDivideGoesToTheFirstColumns) {
  EXPECT_EQ(uniformWidths(flexible(3), {80, 80, 80}, 242), (std::vector<int>{81, 81, 80}));
  EXPECT_EQ(uniformWidths(flexible(3), {80, 80, 80}, 239), (std::vector<int>{79, 80, 80}));
}

TEST(UniformWidths, WhatAColumnCannotTakeTheOthersTake) {
  const auto columns = withMinimumWidths({typeColumn(), revealColumn(), flexible(1).front()});
  EXPECT_EQ(uniformWidths(columns, {44, 44, 80}, 400), (std::vector<int>{60, 60, 280}));
}

TEST(UniformWidths, NoColumnBecomesNarrowerThanItsMinimum) {
  EXPECT_EQ(uniformWidths(flexible(3), {44, 60, 300}, 150), (std::vector<int>{44, 44, 62}));
  EXPECT_EQ(uniformWidths(flexible(3), {44, 60, 300}, 10), (std::vector<int>{44, 44, 44}));
}

TEST(UniformWidths, ColumnsAtTheirMaximumLeaveRoomEmpty) {
  EXPECT_EQ(uniformWidths({typeColumn()}, {44}, 500), (std::vector<int>{60}));
}

TEST(UniformWidths, AWidthBeyondItsLimitsIsBroughtBackFirst) {
  EXPECT_EQ(uniformWidths({typeColumn(), flexible(1).front()}, {90, 80}, 140), (std::vector<int>{60, 80}));
}

TEST(UniformWidths, NoColumnsHaveNoWidths) {
  EXPECT_TRUE(uniformWidths({}, {}, 500).empty());
}

TEST(UniformWidths, EveryWidthFromAllMinimaUpIsFilledExactly) {
  const auto columns = withMinimumWidths(testing::classicColumns(0, true));
  std::vector<int> widths;
  for (const FileTableColumn& column : columns)
    widths.push_back(column.width);
  for (int available = 44 * static_cast<int>(columns.size()); available < 2000; ++available) {
    const auto fitted = uniformWidths(columns, widths, available);
    ASSERT_EQ(std::accumulate(fitted.begin(), fitted.end(), 0), available);
  }
}

}  // namespace
}  // namespace quillmeter
