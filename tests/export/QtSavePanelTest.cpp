#include "export/QtSavePanel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>

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
