#include "tables/CleanUpToolViewController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QGraphicsOpacityEffect>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <atomic>
#include <filesystem>
#include <thread>

#include "helpers/FakeServices.h"
#include "helpers/PlayedFileSystem.h"
#include "helpers/ProjectFixture.h"
#include "support/AtomicFile.h"
#include "support/Confinement.h"
#include "tables/FileTableView.h"
#include "tables/TablesTestSupport.h"

namespace quillmeter {
namespace {

using testing::child;
using ::testing::ElementsAre;
using namespace std::chrono_literals;

class CleanUpToolViewControllerTest : public ::testing::Test {
 protected:
  CleanUpToolViewControllerTest() {
    folder.file("main.c", "int x;\n");
    auto project = std::make_shared<ParseProject>();
    project->parseFileAtPathAndDelegate(testing::writeProject(folder, {"main.c"}), nullptr);
    host = std::make_unique<testing::TablesHost>(project);
    controller = CleanUpToolViewController::create(*host, fakes.services());
  }

  [[nodiscard]] QPushButton& searchButton() const {
    return child<QPushButton>(*controller, "btnSearchFiles");
  }
  [[nodiscard]] double buttonOpacity() const {
    return qobject_cast<QGraphicsOpacityEffect*>(searchButton().graphicsEffect())->opacity();
  }
  [[nodiscard]] bool indicatorShows() const {
    return !child<QProgressBar>(*controller, "progressIndicator").isHidden();
  }
  [[nodiscard]] FileTableView& table() const { return child<FileTableView>(*controller, "tblFiles"); }
  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> result;
    for (const auto& file : controller->arrayDifferentFiles())
      result.push_back(*file->fileName());
    return result;
  }
  void search() {
    searchButton().click();
    fakes.delayedCalls->advance(1s);
  }

  testing::TemporaryFolder folder;
  testing::FakeServices fakes;
  std::unique_ptr<testing::TablesHost> host;
  std::unique_ptr<CleanUpToolViewController> controller;
};

TEST_F(CleanUpToolViewControllerTest, HasNoColumnsBeforeTheFirstSearch) {
  EXPECT_EQ(table().model()->columnCount(), 0);
  EXPECT_TRUE(controller->arrayDifferentFiles().empty());
  EXPECT_FALSE(indicatorShows());
  EXPECT_EQ(buttonOpacity(), 1.0);
}

TEST_F(CleanUpToolViewControllerTest, SearchesASecondAfterThePress) {
  folder.file("b.m");
  folder.file("A.png");
  searchButton().click();
  EXPECT_EQ(buttonOpacity(), 0.0);
  EXPECT_TRUE(indicatorShows());
  fakes.delayedCalls->advance(999ms);
  EXPECT_EQ(table().model()->columnCount(), 0);
  EXPECT_TRUE(indicatorShows());
  fakes.delayedCalls->advance(1ms);
  EXPECT_EQ(table().model()->columnCount(), 5);
  EXPECT_THAT(names(), ElementsAre("A.png", "b.m"));
  EXPECT_EQ(buttonOpacity(), 1.0);
  EXPECT_FALSE(indicatorShows());
  EXPECT_TRUE(fakes.alerts->shown.empty());
  EXPECT_EQ(child<QLabel>(*controller, "lblRowCount").text(), QStringLiteral("2 files not referenced"));
}

TEST_F(CleanUpToolViewControllerTest, ACleanProjectIsCongratulatedWhenTheSearchIsOver) {
  bool wasOver = false;
  fakes.alerts->whileShown = [&] { wasOver = buttonOpacity() == 1.0 && !indicatorShows(); };
  search();
  ASSERT_EQ(fakes.alerts->shown.size(), 1U);
  EXPECT_EQ(
      fakes.alerts->shown[0].message,
      QStringLiteral("Your project is clean and safe.\nThere are no inconsistencies, congratulations!"));
  EXPECT_EQ(fakes.alerts->shown[0].buttons, QStringList{QStringLiteral("Ok")});
  EXPECT_TRUE(wasOver);
  EXPECT_EQ(table().model()->columnCount(), 5);
  EXPECT_EQ(table().model()->rowCount(), 0);
}

TEST_F(CleanUpToolViewControllerTest, EachSearchStartsAfresh) {
  folder.file("old.c");
  search();
  table().horizontalHeader()->setSortIndicator(2, Qt::DescendingOrder);
  std::filesystem::remove(folder / "old.c");
  folder.file("new.c");
  folder.file("Other.c");
  search();
  EXPECT_THAT(names(), ElementsAre("new.c", "Other.c"));
}

TEST_F(CleanUpToolViewControllerTest, SearchesWithThreadsThatCannotWrite) {
  folder.file("below/left.c");
  const testing::TemporaryFolder elsewhere;
  std::atomic<int> attempts = 0;
  std::atomic<int> written = 0;
  bool isSearch = false;
  const testing::PlayedFileSystem disk([&](std::string_view, const std::string&) {
    if (!isSearch) return DiskError{};
    const std::string path = elsewhere / std::to_string(++attempts);
    if (!writeFileAtomically(path, "x")) ++written;
    return DiskError{};
  });
  auto project = std::make_shared<ParseProject>(disk);
  project->parseFileAtPathAndDelegate(folder / "App.xcodeproj", nullptr);
  host = std::make_unique<testing::TablesHost>(project);
  controller = CleanUpToolViewController::create(*host, fakes.services());
  isSearch = true;
  search();
  EXPECT_THAT(names(), ElementsAre("left.c"));
  EXPECT_GT(attempts, 2);
  EXPECT_EQ(writeFileAtomically(elsewhere / "main", "x"), std::nullopt) << "the main thread may";
  Confinement inForce;
  std::thread([&inForce] { inForce = confineThread(); }).join();
  if (inForce.files == 0) GTEST_SKIP() << "this kernel has no rules for files";
  EXPECT_EQ(written, 0);
}

TEST_F(CleanUpToolViewControllerTest, APressDuringASearchDoesNotSearchTwice) {
  searchButton().click();
  searchButton().click();
  fakes.delayedCalls->advance(5s);
  EXPECT_EQ(fakes.alerts->shown.size(), 1U);
}

TEST_F(CleanUpToolViewControllerTest, AFolderThatVanishedCountsAsClean) {
  searchButton().click();
  std::filesystem::remove_all(folder.path());
  fakes.delayedCalls->advance(1s);
  EXPECT_EQ(fakes.alerts->shown.size(), 1U);
  EXPECT_TRUE(controller->arrayDifferentFiles().empty());
}

TEST_F(CleanUpToolViewControllerTest, HeadersSortCaseSensitivelyAndSizesDivideBy1000) {
  folder.file("b.m", std::string(1500, 'x'));
  folder.file("a.m");
  folder.file("B.m");
  search();
  EXPECT_THAT(names(), ElementsAre("a.m", "B.m", "b.m"));
  table().horizontalHeader()->setSortIndicator(2, Qt::AscendingOrder);
  EXPECT_THAT(names(), ElementsAre("B.m", "a.m", "b.m"));
  table().horizontalHeader()->setSortIndicator(3, Qt::DescendingOrder);
  EXPECT_THAT(names(), ElementsAre("b.m", "a.m", "B.m"));
  EXPECT_EQ(table().model()->index(0, 4).data().toDouble(), 1.5);
  EXPECT_EQ(table().model()->index(0, 3).data().toString().toStdString(), folder / "b.m");
}

TEST_F(CleanUpToolViewControllerTest, ABulletRevealsTheFileOfItsRow) {
  folder.file("left.c");
  controller->resize(900, 500);
  controller->show();
  search();
  QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                    table().visualRect(table().model()->index(0, 1)).center());
  EXPECT_THAT(fakes.fileBrowser->revealed, ElementsAre(folder / "left.c"));
  controller->tapViewInFinder(1);
  controller->tapViewInFinder(-1);
  EXPECT_EQ(fakes.fileBrowser->revealed.size(), 1U);
}

TEST_F(CleanUpToolViewControllerTest, ClosingThePanelCallsThePendingSearchOff) {
  controller->show();
  searchButton().click();
  controller->hide();
  EXPECT_EQ(buttonOpacity(), 1.0);
  EXPECT_FALSE(indicatorShows());
  EXPECT_TRUE(child<QLabel>(*controller, "lblRowCount").text().isEmpty());
  fakes.delayedCalls->advance(500ms);
  controller->show();
  searchButton().click();
  fakes.delayedCalls->advance(999ms);
  EXPECT_TRUE(fakes.alerts->shown.empty()) << "the first search does not come back";
  fakes.delayedCalls->advance(1ms);
  EXPECT_EQ(fakes.alerts->shown.size(), 1U);
}

TEST_F(CleanUpToolViewControllerTest, ASearchThatIsCalledOffLeavesTheResultOfTheLastOne) {
  folder.file("left.c");
  controller->show();
  search();
  searchButton().click();
  controller->hide();
  std::filesystem::remove(folder / "left.c");
  fakes.delayedCalls->advance(2s);
  EXPECT_TRUE(fakes.alerts->shown.empty());
  EXPECT_THAT(names(), ElementsAre("left.c"));
  EXPECT_EQ(child<QLabel>(*controller, "lblRowCount").text(), QStringLiteral("1 file not referenced"));
}

TEST_F(CleanUpToolViewControllerTest, APanelThatIsGoneDoesNotSearch) {
  searchButton().click();
  controller.reset();
  fakes.delayedCalls->advance(2s);
  EXPECT_TRUE(fakes.alerts->shown.empty());
}

}  // namespace
}  // namespace quillmeter
