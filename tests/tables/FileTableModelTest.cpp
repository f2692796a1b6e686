#include "tables/FileTableModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>

#include "helpers/ProjectFixture.h"
#include "tables/ClassicTables.h"
#include "tables/CleanUpTable.h"

namespace quillmeter {
namespace {

using testing::record;
using FailureMode = QAbstractItemModelTester::FailureReportingMode;

FileList files() {
  return {record({.name = "b.m", .size = 2048, .lines = 20}), record({.name = "A.m", .lines = 3}),
          record({.name = "a.h", .lines = 100}), record({.name = "x.png"})};
}

/// The tester ends the program on the first breach of a model's contract.
TEST(FileTableModel, KeepsTheContractOfModelsInTheDetails) {
  FileTableModel model;
  const QAbstractItemModelTester tester(&model, FailureMode::Fatal);
  for (const std::uint32_t filter : {0U, 4U, 5U, 1U}) {
    model.setTable(testing::classicTable(files(), filter, filter == 0));
    for (int column = 0; column < model.columnCount(); ++column) {
      model.sort(column, Qt::DescendingOrder);
      model.sort(column, Qt::AscendingOrder);
    }
  }
  EXPECT_EQ(model.rowCount(), 0) << "no C source among the files";
  EXPECT_EQ(model.columnCount(), 6);
}

TEST(FileTableModel, KeepsTheContractOfModelsInTheCleanUp) {
  FileTableModel model;
  const QAbstractItemModelTester tester(&model, FailureMode::Fatal);
  EXPECT_EQ(model.columnCount(), 0);
  model.setTable(cleanUpTable(files(), classicKinds()));
  for (int column = 0; column < model.columnCount(); ++column)
    model.sort(column, Qt::DescendingOrder);
  model.setTable(cleanUpTable({}, classicKinds()));
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_EQ(model.columnCount(), 5);
}

TEST(FileTableModel, ASelectedFileStaysSelectedThroughASort) {
  FileTableModel model;
  model.setTable(testing::classicTable(files(), 0, false));
  const QPersistentModelIndex kept = model.index(0, 2);
  ASSERT_EQ(kept.data().toString(), QStringLiteral("a.h"));
  model.sort(3, Qt::DescendingOrder);
  EXPECT_EQ(kept.data().toString(), QStringLiteral("a.h"));
  model.sort(3, Qt::AscendingOrder);
  EXPECT_EQ(kept.row(), 2);
}

TEST(FileTableModel, TheRevealColumnDoesNotSort) {
  FileTableModel model;
  model.setTable(testing::classicTable(files(), 0, false));
  const FileList before = model.table().rows();
  model.sort(1, Qt::DescendingOrder);
  model.sort(-1, Qt::DescendingOrder);
  model.sort(99, Qt::DescendingOrder);
  EXPECT_EQ(model.table().rows(), before);
}

TEST(FileTableModel, CellsAreNotEditableAndAlignedByColumn) {
  FileTableModel model;
  model.setTable(testing::classicTable(files(), 0, false));
  for (int column = 0; column < model.columnCount(); ++column) {
    const QModelIndex index = model.index(0, column);
    EXPECT_FALSE(model.flags(index).testFlag(Qt::ItemIsEditable));
    const int alignment = index.data(Qt::TextAlignmentRole).toInt();
    EXPECT_EQ(bool(alignment & Qt::AlignLeft), column == 2) << column;
    EXPECT_EQ(bool(alignment & Qt::AlignHCenter), column != 2) << column;
    EXPECT_TRUE(model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt() & Qt::AlignHCenter);
  }
}

TEST(FileTableModel, HeadersCarryTheirToolTips) {
  FileTableModel model;
  model.setTable(testing::classicTable(files(), 0, false));
  EXPECT_EQ(model.headerData(3, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("LOC"));
  EXPECT_EQ(model.headerData(3, Qt::Horizontal, Qt::ToolTipRole).toString(),
            QStringLiteral("LOC: lines of code"));
  EXPECT_FALSE(model.headerData(2, Qt::Horizontal, Qt::ToolTipRole).isValid());
  EXPECT_FALSE(model.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
  EXPECT_FALSE(model.headerData(99, Qt::Horizontal, Qt::DisplayRole).isValid());
}

TEST(FileTableModel, OnlyTheTypeColumnHasPictures) {
  FileTableModel model;
  model.setTable(testing::classicTable(files(), 0, false));
  for (int column = 0; column < model.columnCount(); ++column) {
    const auto icon = model.index(0, column).data(Qt::DecorationRole).value<QIcon>();
    EXPECT_EQ(icon.isNull(), column != 0) << column;
    EXPECT_EQ(icon.pixmap(QSize(20, 20)).isNull(), column != 0) << column;
  }
  EXPECT_EQ(model.index(0, 0).data(Qt::AccessibleTextRole).toString(), QStringLiteral("h"));
}

TEST(FileTableModel, ANameThatIsNotUtf8IsStillShown) {
  FileTableModel model;
  model.setTable(testing::classicTable({record({.name = "a\xFF"
                                                        "b.c"})},
                                       0, false));
  EXPECT_EQ(model.index(0, 2).data().toString(), QStringLiteral("a\uFFFDb.c"));
}

}  // namespace
}  // namespace quillmeter
