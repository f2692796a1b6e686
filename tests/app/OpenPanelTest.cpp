#include "app/OpenPanel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <filesystem>
#include <memory>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

/// Calls `action` with the panel as soon as it is up, and tells what came of it.
template <class Action>
std::optional<std::string> runPanel(QWidget* parent, Action action, const std::string& folder = {}) {
  QTimer::singleShot(0, [action] {
    auto* panel = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(panel, nullptr);
    action(*panel);
  });
  return QtOpenPanel().runModal(parent, folder);
}

TEST(OpenPanel, GivesTheChosenFolder) {
  const testing::TemporaryFolder folder;
  QWidget window;
  const auto chosen = runPanel(&window, [&](QFileDialog& panel) {
    panel.setDirectory(QString::fromStdString(folder.path()));
    panel.selectFile(QString::fromStdString(folder.path()));
    static_cast<QDialog&>(panel).accept();
  });
  ASSERT_TRUE(chosen.has_value());
  EXPECT_TRUE(std::filesystem::equivalent(*chosen, folder.path()));
}

TEST(OpenPanel, MakesRenamesAndDeletesNoFolder) {
  QWidget window;
  const auto chosen = runPanel(&window, [](QFileDialog& panel) {
    EXPECT_FALSE(panel.findChild<QToolButton*>(QStringLiteral("newFolderButton"))->isEnabled());
    EXPECT_TRUE(panel.findChild<QFileSystemModel*>()->isReadOnly());
    panel.reject();
  });
  EXPECT_EQ(chosen, std::nullopt);
}

TEST(OpenPanel, GivesNothingWhenItIsCancelled) {
  QWidget window;
  EXPECT_EQ(runPanel(&window, [](QFileDialog& panel) { QTest::keyClick(&panel, Qt::Key_Escape); }),
            std::nullopt);
}

TEST(OpenPanel, StartsInTheGivenFolder) {
  const testing::TemporaryFolder folder;
  QWidget window;
  runPanel(
      &window,
      [&](QFileDialog& panel) {
        EXPECT_EQ(panel.directory().absolutePath().toStdString(), folder.path());
        panel.reject();
      },
      folder.path());
}

TEST(OpenPanel, StartsElsewhereWhenTheFolderHasGone) {
  const testing::TemporaryFolder folder;
  QWidget window;
  runPanel(
      &window,
      [](QFileDialog& panel) {
        EXPECT_TRUE(panel.directory().exists());
        panel.reject();
      },
      folder / "gone");
}

TEST(OpenPanel, GoesWithItsWindow) {
  auto* window = new QWidget;
  EXPECT_EQ(runPanel(window, [window](QFileDialog&) { delete window; }), std::nullopt);
}

}  // namespace
}  // namespace quillmeter
