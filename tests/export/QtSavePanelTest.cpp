#include "export/QtSavePanel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <filesystem>

#include "helpers/QtWaiting.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

class SavePanelSheet : public ::testing::Test {
 protected:
  SavePanelSheet() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    window.show();
    panel.beginSheet(&window,
                     {.title = QStringLiteral("Export"),
                      .allowedFileType = QStringLiteral("pdf"),
                      .suggestedName = QStringLiteral("statistics")},
                     [this](const std::optional<std::string>& path) {
                       ++answers;
                       chosen = path;
                     });
  }

  [[nodiscard]] QFileDialog* dialog() const { return window.findChild<QFileDialog*>(); }
  [[nodiscard]] QMessageBox* question() const {
    for (QMessageBox* box : window.findChildren<QMessageBox*>()) {
      if (box->isVisible()) return box;
    }
    return nullptr;
  }
  void choose(const std::string& path) const {
    dialog()->selectFile(QFile::decodeName(path.c_str()));
    QMetaObject::invokeMethod(dialog(), "accept");
    QCoreApplication::processEvents();
  }
  void answerQuestion(const QString& button) const {
    for (QAbstractButton* candidate : question()->buttons()) {
      if (candidate->text().remove(QLatin1Char('&')) == button) return candidate->click();
    }
    ADD_FAILURE() << "no button " << button.toStdString();
  }

  testing::TemporaryFolder folder;
  QWidget window;
  QtSavePanel panel;
  int answers = 0;
  std::optional<std::string> chosen;
};

TEST_F(SavePanelSheet, IsASheetForTheTypeWithTheSuggestedName) {
  ASSERT_NE(dialog(), nullptr);
  EXPECT_EQ(dialog()->windowModality(), Qt::WindowModal);
  EXPECT_EQ(dialog()->windowTitle(), QStringLiteral("Export"));
  EXPECT_EQ(dialog()->acceptMode(), QFileDialog::AcceptSave);
  EXPECT_TRUE(dialog()->nameFilters().front().contains(QStringLiteral("(*.pdf)")));
  EXPECT_TRUE(dialog()->selectedFiles().front().endsWith(QStringLiteral("/statistics")));
  EXPECT_EQ(answers, 0);
}

TEST_F(SavePanelSheet, GivesThePathAsItWasChosen) {
  choose(folder / "stats");
  EXPECT_EQ(answers, 1);
  EXPECT_EQ(chosen, folder / "stats");
}

TEST_F(SavePanelSheet, CancellingGivesNothing) {
  dialog()->reject();
  EXPECT_EQ(answers, 1);
  EXPECT_EQ(chosen, std::nullopt);
}

TEST_F(SavePanelSheet, AsksBeforeAFileIsReplaced) {
  folder.file("stats.pdf", "old");
  choose(folder / "stats.pdf");
  ASSERT_NE(question(), nullptr);
  EXPECT_EQ(answers, 0);
  EXPECT_TRUE(question()->text().contains(QStringLiteral("stats.pdf")));
  answerQuestion(QStringLiteral("Replace"));
  EXPECT_EQ(answers, 1);
  EXPECT_EQ(chosen, folder / "stats.pdf");
}

TEST_F(SavePanelSheet, NameWithMarkupIsAskedAboutAsItIs) {
  folder.file("<b>a.pdf", "old");
  choose(folder / "<b>a.pdf");
  ASSERT_NE(question(), nullptr);
  EXPECT_EQ(question()->textFormat(), Qt::PlainText);
}

TEST_F(SavePanelSheet, AsksAboutTheFileWithTheExtensionThatWillBeAppended) {
  folder.file("stats.pdf", "old");
  choose(folder / "stats");
  ASSERT_NE(question(), nullptr);
  answerQuestion(QStringLiteral("Replace"));
  EXPECT_EQ(chosen, folder / "stats");
}

TEST_F(SavePanelSheet, FileWithoutTheExtensionIsNotTheOneReplaced) {
  folder.file("stats", "old");
  choose(folder / "stats");
  EXPECT_EQ(question(), nullptr);
  EXPECT_EQ(chosen, folder / "stats");
}

TEST_F(SavePanelSheet, KeepingTheFileOpensTheDialogAgain) {
  folder.file("stats.pdf", "old");
  choose(folder / "stats.pdf");
  ASSERT_NE(question(), nullptr);
  EXPECT_FALSE(dialog()->isVisible());
  answerQuestion(QStringLiteral("Cancel"));
  EXPECT_EQ(answers, 0);
  EXPECT_TRUE(dialog()->isVisible());
  choose(folder / "other.pdf");
  EXPECT_EQ(chosen, folder / "other.pdf");
}

TEST_F(SavePanelSheet, ReplacingIsNotWhatReturnOrEscapeDo) {
  folder.file("stats.pdf", "old");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    choose(folder / "stats.pdf");
    ASSERT_NE(question(), nullptr);
    ASSERT_NE(question()->defaultButton(), nullptr);
    ASSERT_EQ(question()->defaultButton()->text().remove(QLatin1Char('&')), QStringLiteral("Cancel"));
    QTest::keyClick(question()->focusWidget(), key);
    EXPECT_EQ(answers, 0);
    EXPECT_TRUE(dialog()->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(SavePanelSheet, QuestionLooksLikeEveryAlert) {
  folder.file("stats.pdf", "old");
  choose(folder / "stats.pdf");
  ASSERT_NE(question(), nullptr);
  EXPECT_EQ(question()->icon(), QMessageBox::NoIcon);
  ASSERT_NE(question()->defaultButton(), nullptr);
  EXPECT_EQ(question()->defaultButton()->property("role"), QStringLiteral("primary"));
}

/// Stands for a panel of the desktop's theme, which begins afresh when it is opened again.
TEST_F(SavePanelSheet, FolderAndNameAreThereAgainAfterARefusedReplacement) {
  folder.file("reports/stats.pdf", "old");
  choose(folder / "reports/stats.pdf");
  ASSERT_NE(question(), nullptr);
  dialog()->setDirectory(QStringLiteral("/"));
  dialog()->selectFile(QStringLiteral("forgotten"));
  answerQuestion(QStringLiteral("Cancel"));
  EXPECT_EQ(dialog()->directory().absolutePath().toStdString(), folder / "reports");
  EXPECT_EQ(dialog()->selectedFiles(), QStringList{QString::fromStdString(folder / "reports/stats.pdf")});
}

TEST_F(SavePanelSheet, RenamesAndDeletesNothing) {
  // Another would ask whether to delete, and wait for the answer.
  ASSERT_TRUE(dialog()->findChild<QFileSystemModel*>()->isReadOnly());
  folder.file("kept/inside.txt", "text");
  dialog()->setDirectory(QString::fromStdString(folder.path()));
  auto* list = dialog()->findChild<QTreeView*>(QStringLiteral("treeView"));
  ASSERT_TRUE(testing::waitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
  list->setFocus();
  list->setCurrentIndex(list->model()->index(0, 0, list->rootIndex()));
  QTest::keyClick(list, Qt::Key_Delete);
  QTest::keyClick(list, Qt::Key_F2);
  EXPECT_EQ(list->viewport()->findChild<QLineEdit*>(), nullptr) << "no name is being edited";
  EXPECT_TRUE(std::filesystem::exists(folder / "kept/inside.txt"));
}

TEST_F(SavePanelSheet, ShowsItsColumns) {
  folder.file("shown/statistics.pdf", "old");
  dialog()->setNameFilter(QStringLiteral("All files (*)"));
  dialog()->setDirectory(QString::fromStdString(folder / "shown"));
  auto* list = dialog()->findChild<QTreeView*>(QStringLiteral("treeView"));
  EXPECT_TRUE(list->isVisible());
  ASSERT_TRUE(testing::waitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
  const QAbstractItemView& view = *list;
  ASSERT_TRUE(testing::waitFor([&] { return list->columnWidth(3) >= view.sizeHintForColumn(3); }));
  for (int column = 0; column < 4; ++column)
    EXPECT_GE(list->columnWidth(column), view.sizeHintForColumn(column)) << column;
  EXPECT_LE(list->header()->length(), list->viewport()->width());
}

TEST_F(SavePanelSheet, NextOneBeginsInTheFolderOfTheLast) {
  choose(folder.folder("reports") + "/stats");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  panel.beginSheet(&window, {}, [](const auto&) {});
  ASSERT_NE(dialog(), nullptr);
  EXPECT_EQ(dialog()->directory().absolutePath().toStdString(), folder / "reports");
}

TEST_F(SavePanelSheet, IsGoneAfterItsAnswer) {
  dialog()->reject();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(dialog(), nullptr);
}

TEST(SavePanelOfAClosedWindow, GivesNoAnswer) {
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  int answers = 0;
  {
    QWidget window;
    QtSavePanel().beginSheet(&window, {}, [&answers](const auto&) { ++answers; });
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(answers, 0);
}

}  // namespace
}  // namespace quillmeter
