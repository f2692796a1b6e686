#include "app/AppDelegate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QApplication>
#include <QTest>
#include <chrono>
#include <filesystem>
#include <mutex>
#include <thread>
#include <utility>

#include "app/CustomShapeWindow.h"
#include "app/OpenPanel.h"
#include "app/ProjectRead.h"
#include "app/WindowButton.h"
#include "helpers/FakeServices.h"
#include "helpers/ProjectFixture.h"
#include "helpers/QtWaiting.h"
#include "stats/StatsWindowController.h"
#include "support/Addresses.h"
#include "ui_AppDelegate.h"

namespace quillmeter {
namespace {

using namespace std::chrono_literals;
using ::testing::Contains;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

const QString kErrorText = QStringLiteral(
    "Error processing current folder. Please contact the Support team to assist you with importing this "
    "project.");

class ScriptedOpenPanel final : public OpenPanel {
 public:
  ScriptedOpenPanel(std::optional<std::string>& answer, QWidget*& over, std::string& folder)
      : answer_(answer), over_(over), folder_(folder) {}
  std::optional<std::string> runModal(QWidget* parent, const std::string& folder) override {
    over_ = parent;
    folder_ = folder;
    return answer_;
  }

 private:
  std::optional<std::string>& answer_;
  QWidget*& over_;
  std::string& folder_;
};

/// The application with everything around it played by the test, on real projects on the disk.
class AppDelegateTest : public ::testing::Test {
 protected:
  AppDelegateTest() { launch(); }

  void launch() {
    delegate = std::make_unique<AppDelegate>(
        fakes.services(), std::make_unique<ScriptedOpenPanel>(panelAnswer, panelOver, panelFolder),
        [this](std::string_view line) {
          if (line.starts_with("parsing file")) {
            const std::lock_guard pass(readerGate);
            std::this_thread::sleep_for(readerPause);
          }
          const std::lock_guard lock(logMutex);
          logged.emplace_back(line);
        });
    delegate->applicationDidFinishLaunching();
  }
  const Ui::AppDelegate& outlets() const { return delegate->outlets(); }
  std::string writeProject(const std::string& subfolder = "p", int files = 2,
                           const std::string& name = "App") {
    std::vector<std::string> names;
    for (int number = 0; number < files; ++number) {
      names.push_back("f" + std::to_string(number) + ".c");
      folder.file(subfolder + "/" + names.back(), "int x;\n");
    }
    folder.file(subfolder + "/" + name + ".xcodeproj/project.pbxproj", testing::projectText(names));
    return folder / subfolder;
  }
  /// Drops a folder and lets the opening delay pass.
  void open(const std::string& path) {
    delegate->fileSelected(path);
    fakes.delayedCalls->advance(500ms);
  }
  bool waitForStats() {
    return testing::waitFor([&] { return delegate->controllerWindow() != nullptr; });
  }
  bool waitForAlert(std::size_t count = 1) {
    return testing::waitFor([&] { return fakes.alerts->shown.size() >= count; });
  }
  std::vector<std::string> logLines() {
    const std::lock_guard lock(logMutex);
    return logged;
  }
  void waitForReading() {
    ASSERT_TRUE(testing::waitFor([&] { return outlets().indicatorProgress->isVisible(); }));
    EXPECT_TRUE(delegate->window()->isVisible());
    EXPECT_TRUE(outlets().lblProcessing->isVisible());
    EXPECT_FALSE(outlets().btnOpenProject->isVisible());
    EXPECT_FALSE(outlets().imgMiddleOver->isVisible());
    EXPECT_EQ(outlets().imgMiddle->imageName(), QStringLiteral("window_middle_part_over"));
  }
  void expectIdle() {
    EXPECT_TRUE(delegate->window()->isVisible());
    EXPECT_FALSE(outlets().indicatorProgress->isVisible());
    EXPECT_FALSE(outlets().lblProcessing->isVisible());
    EXPECT_TRUE(outlets().btnOpenProject->isVisible());
    EXPECT_TRUE(outlets().imgMiddleOver->isVisible());
    EXPECT_EQ(outlets().imgMiddle->imageName(), QStringLiteral("window_middle_part"));
    EXPECT_EQ(outlets().imgMiddleOver->imageName(), QStringLiteral("drag_normal"));
  }

  TemporaryFolder folder;
  testing::FakeServices fakes;
  std::optional<std::string> panelAnswer;
  QWidget* panelOver = nullptr;
  std::string panelFolder;
  std::mutex readerGate;                     ///< a test that holds it keeps readers from coming to their end
  std::chrono::milliseconds readerPause{0};  ///< what a reader takes for each file beside reading it
  std::mutex logMutex;
  std::vector<std::string> logged;
  std::unique_ptr<AppDelegate> delegate;
};

TEST_F(AppDelegateTest, LaunchShowsAnIdleScreenOfOneSize) {
  expectIdle();
  const CustomShapeWindow& window = *delegate->window();
  EXPECT_EQ(window.minimumSize(), window.size());
  EXPECT_EQ(window.maximumSize(), window.size());
  EXPECT_EQ(window.size(), QSize(420, 360));
  EXPECT_TRUE(window.acceptDrops());
  EXPECT_EQ(outlets().btnOpenProject->buttonType(), NSButtonWithHover::ButtonType::momentaryChange);
  EXPECT_EQ(outlets().indicatorProgress->height(), 50);
  EXPECT_EQ(outlets().indicatorProgress->width(), 300);
  EXPECT_EQ(window.contentView()->objectName(), QStringLiteral("viewMain"));
  EXPECT_TRUE(delegate->applicationShouldTerminateAfterLastWindowClosed());
}

TEST_F(AppDelegateTest, WindowButtonsStandAtTheirPoints) {
  const int height = delegate->window()->contentView()->height();
  const auto lowerLeft = [&](const QWidget* button) {
    return QPoint(button->x(), height - button->y() - button->height());
  };
  EXPECT_EQ(lowerLeft(delegate->closeButton()), QPoint(20, 330));
  EXPECT_EQ(lowerLeft(delegate->minimizeButton()), QPoint(40, 330));
  EXPECT_EQ(lowerLeft(delegate->maximizeButton()), QPoint(60, 330));
  EXPECT_TRUE(delegate->closeButton()->isEnabled());
  EXPECT_TRUE(delegate->minimizeButton()->isEnabled());
  EXPECT_FALSE(delegate->maximizeButton()->isEnabled());
}

TEST_F(AppDelegateTest, WindowButtonsCloseAndMinimise) {
  QTest::mouseClick(delegate->minimizeButton(), Qt::LeftButton);
  EXPECT_TRUE(delegate->window()->isMinimized());
  QTest::mouseClick(delegate->closeButton(), Qt::LeftButton);
  EXPECT_FALSE(delegate->window()->isVisible());
}

TEST_F(AppDelegateTest, EveryControlIsReachedByTabAndHasAName) {
  QApplication::setActiveWindow(delegate->window());
  outlets().btnOpenProject->setFocus();
  QStringList visited;
  for (int tab = 0; tab < 5; ++tab) {
    const QWidget* focused = delegate->window()->focusWidget();
    ASSERT_NE(focused, nullptr);
    visited << focused->objectName();
    const auto* button = qobject_cast<const QAbstractButton*>(focused);
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->text().isEmpty() && button->accessibleName().isEmpty());
    QTest::keyClick(delegate->window()->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(visited, (QStringList{QStringLiteral("btnOpenProject"), QStringLiteral("btnRateOnStore"),
                                  QStringLiteral("tapViewOnline"), QStringLiteral("closeButton"),
                                  QStringLiteral("minimizeButton")}));
}

TEST_F(AppDelegateTest, DragFeedbackChangesPicturesWordsAndTheButton) {
  const QString inviting = outlets().lblDropHint->text();
  delegate->draggingEntered(outlets().viewDrag);
  EXPECT_EQ(outlets().imgMiddle->imageName(), QStringLiteral("window_middle_part_over"));
  EXPECT_EQ(outlets().imgMiddleOver->imageName(), QStringLiteral("drag_over"));
  EXPECT_FALSE(outlets().btnOpenProject->isVisible());
  const QString valid = outlets().lblDropHint->text();

  delegate->draggingInvalid(outlets().viewDrag);
  EXPECT_EQ(outlets().imgMiddle->imageName(), QStringLiteral("window_middle_part_invalid"));
  EXPECT_EQ(outlets().imgMiddleOver->imageName(), QStringLiteral("drag_invalid"));
  EXPECT_FALSE(outlets().btnOpenProject->isVisible());
  EXPECT_NE(outlets().lblDropHint->text(), valid);

  delegate->draggingExited(outlets().viewDrag);
  expectIdle();
  EXPECT_EQ(outlets().lblDropHint->text(), inviting);
}

TEST_F(AppDelegateTest, OpenButtonHasTheKeyboardAgainAfterADrag) {
  QApplication::setActiveWindow(delegate->window());
  outlets().btnOpenProject->setFocus();
  delegate->draggingEntered(outlets().viewDrag);
  EXPECT_EQ(delegate->window()->focusWidget(), outlets().viewDrag);
  delegate->draggingExited(outlets().viewDrag);
  EXPECT_EQ(delegate->window()->focusWidget(), outlets().btnOpenProject);
}

TEST_F(AppDelegateTest, ReturnPressesTheFocusedButton) {
  QApplication::setActiveWindow(delegate->window());
  outlets().tapViewOnline->setFocus();
  QTest::keyClick(outlets().tapViewOnline, Qt::Key_Return);
  EXPECT_EQ(fakes.urlOpener->opened.size(), 1U);
  outlets().btnOpenProject->setFocus();
  QTest::keyClick(outlets().btnOpenProject, Qt::Key_Return);
  EXPECT_NE(panelOver, nullptr);
}

TEST_F(AppDelegateTest, ControlQAndControlWEndIt) {
  for (const Qt::Key key : {Qt::Key_Q, Qt::Key_W}) {
    delegate->window()->show();
    QApplication::setActiveWindow(delegate->window());
    QTest::keyClick(delegate->window(), key, Qt::ControlModifier);
    EXPECT_FALSE(delegate->window()->isVisible());
  }
}

TEST_F(AppDelegateTest, LinksOpenTheirPages) {
  outlets().btnRateOnStore->click();
  outlets().tapViewOnline->click();
  EXPECT_EQ(fakes.urlOpener->opened,
            (std::vector<QUrl>{QUrl(QString::fromUtf8(kReviewUrl)), QUrl(QString::fromUtf8(kProductUrl))}));
}

TEST_F(AppDelegateTest, DroppedFolderIsOpenedHalfASecondLater) {
  delegate->fileSelected(writeProject());
  EXPECT_EQ(fakes.delayedCalls->delays, std::vector<std::chrono::milliseconds>{500ms});
  fakes.delayedCalls->advance(499ms);
  QTest::qWait(20);
  EXPECT_THAT(logLines(), IsEmpty());
  fakes.delayedCalls->advance(1ms);
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(delegate->parserProject()->files().size(), 2U);
  EXPECT_EQ(delegate->parserProject()->projectTitle(), "App");
  EXPECT_TRUE(delegate->controllerWindow()->isVisible());
  EXPECT_FALSE(delegate->window()->isVisible());
  EXPECT_THAT(fakes.alerts->shown, IsEmpty());
  EXPECT_THAT(logLines(), Contains("started parsing"));
  EXPECT_THAT(logLines(), Contains("ended parsing"));
}

TEST_F(AppDelegateTest, FirstProjectInTheListingWinsWhateverItsLetterCase) {
  writeProject("p", 1, "b");
  folder.file("p/A.XCODEPROJ/project.pbxproj", testing::projectText({"f0.c"}));
  open(folder / "p");
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(delegate->parserProject()->initialPath(), folder / "p/A.XCODEPROJ");
}

TEST_F(AppDelegateTest, BundleChosenInThePanelIsOpenedItself) {
  panelAnswer = " \n" + writeProject() + "/App.xcodeproj\n";
  QApplication::setActiveWindow(delegate->window());
  QTest::keyClick(delegate->window(), Qt::Key_O, Qt::ControlModifier);
  fakes.delayedCalls->advance(500ms);
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(delegate->parserProject()->initialPath(), folder / "p/App.xcodeproj");
}

TEST_F(AppDelegateTest, CancelledPanelDoesNothing) {
  outlets().btnOpenProject->click();
  EXPECT_THAT(fakes.delayedCalls->delays, IsEmpty());
  expectIdle();
}

TEST_F(AppDelegateTest, PanelStartsInTheFolderOfTheProjectOpenedLast) {
  delegate->tapOpenFile();
  EXPECT_EQ(panelFolder, "");
  open(writeProject("first"));
  ASSERT_TRUE(waitForStats());
  delegate->tapOpenFile();
  EXPECT_EQ(panelFolder, folder / "first");
  open(folder.folder("no project"));
  ASSERT_TRUE(waitForAlert());
  delegate->tapOpenFile();
  EXPECT_EQ(panelFolder, folder / "first");
  open(writeProject("second") + "/App.xcodeproj");
  ASSERT_TRUE(waitForStats());
  delegate->tapOpenFile();
  EXPECT_EQ(panelFolder, folder / "second");
}

TEST_F(AppDelegateTest, DragChangesNothingThatShowsWhileAProjectIsRead) {
  const std::string project = writeProject("p", 4);
  std::unique_lock reading(readerGate);
  delegate->draggingEntered(outlets().viewDrag);
  open(project);
  waitForReading();
  const auto expectReadingStill = [&] {
    waitForReading();
    EXPECT_FALSE(outlets().lblDropHint->isVisible());
  };
  delegate->draggingExited(outlets().viewDrag);
  expectReadingStill();
  delegate->draggingEntered(outlets().viewDrag);
  expectReadingStill();
  delegate->draggingInvalid(outlets().viewDrag);
  expectReadingStill();
  delegate->draggingExited(outlets().viewDrag);
  expectReadingStill();
  delegate->draggingInvalid(outlets().viewDrag);
  reading.unlock();
  ASSERT_TRUE(waitForStats());
  fakes.alerts->answers = {0};
  delegate->controllerWindow()->tapCloseTab();
  expectIdle();
  EXPECT_EQ(outlets().lblDropHint->text(), QStringLiteral("Drop a project folder here"));
}

TEST_F(AppDelegateTest, ReadingShowsProgressUntilTheEnd) {
  const std::string project = writeProject("p", 400);
  std::unique_lock reading(readerGate);
  open(project);
  waitForReading();
  EXPECT_TRUE(outlets().indicatorProgress->isIndeterminate());
  EXPECT_LT(outlets().indicatorProgress->doubleValue(), 1.0);
  reading.unlock();
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(outlets().indicatorProgress->doubleValue(), 1.0);
  EXPECT_EQ(outlets().indicatorProgress->maxValue(), 1.0);
  EXPECT_TRUE(outlets().indicatorProgress->isIndeterminate());
  EXPECT_TRUE(outlets().indicatorProgress->isHidden() && outlets().lblProcessing->isHidden());
}

/// Each of these ends in the one error alert, and the application goes on.
class Unreadable : public AppDelegateTest {
 protected:
  void expectTheAlertFor(const std::string& path) {
    open(path);
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(fakes.alerts->shown[0].message, kErrorText);
    EXPECT_EQ(fakes.alerts->shown[0].buttons, QStringList{QStringLiteral("Ok")});
    EXPECT_EQ(delegate->controllerWindow(), nullptr);
    expectIdle();
    open(writeProject("good"));
    ASSERT_TRUE(waitForStats());
    EXPECT_EQ(fakes.alerts->shown.size(), 1U);
  }
};

TEST_F(Unreadable, FolderWithoutAProject) {
  expectTheAlertFor(folder.folder("empty"));
}

TEST_F(Unreadable, FolderThatIsNotThere) {
  expectTheAlertFor(folder / "nothing");
}

TEST_F(Unreadable, FolderThatVanishesBeforeTheRead) {
  writeProject("gone");
  delegate->fileSelected(folder / "gone");
  std::filesystem::remove_all(folder / "gone");
  fakes.delayedCalls->advance(500ms);
  expectTheAlertFor(folder / "gone");
}

TEST_F(Unreadable, ProjectFileOfGarbage) {
  std::string garbage(70'000, '\0');
  for (std::size_t at = 0; at < garbage.size(); ++at)
    garbage[at] = static_cast<char>(at * 197 % 256);
  folder.file("bad/App.xcodeproj/project.pbxproj", garbage);
  expectTheAlertFor(folder / "bad");
}

TEST_F(Unreadable, BundleWithoutAProjectFile) {
  folder.folder("bare/App.xcodeproj");
  expectTheAlertFor(folder / "bare");
}

TEST_F(Unreadable, ProjectFileThatIsAFolder) {
  folder.folder("odd/App.xcodeproj/project.pbxproj");
  expectTheAlertFor(folder / "odd");
}

TEST_F(Unreadable, ProjectWhoseReferencesAllFail) {
  folder.file("lost/App.xcodeproj/project.pbxproj", testing::projectText({"a.c", "b.h"}));
  expectTheAlertFor(folder / "lost");
}

TEST_F(Unreadable, FileInPlaceOfAFolder) {
  expectTheAlertFor(folder.file("file.txt", "text"));
}

TEST_F(AppDelegateTest, SectionOfOneLineLeavesAValueThatIsNoNumber) {
  folder.file("p/a.c", "int a;\n");
  folder.file("p/App.xcodeproj/project.pbxproj",
              "/* Begin PBXFileReference section */path = a.c; sourceTree/* End PBXFileReference section */");
  open(folder / "p");
  ASSERT_TRUE(testing::waitFor(
      [&] { return delegate->controllerWindow() != nullptr || !fakes.alerts->shown.empty(); }));
  EXPECT_TRUE(outlets().indicatorProgress->doubleValue() != outlets().indicatorProgress->doubleValue());
}

TEST_F(AppDelegateTest, FolderWhoseNameIsNotUtf8IsRead) {
  writeProject("latin\xE4", 3);
  open(folder / "latin\xE4");
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(delegate->parserProject()->files().size(), 3U);
}

TEST_F(AppDelegateTest, ClosingTheStatisticsComesBackToTheMainScreen) {
  open(writeProject());
  ASSERT_TRUE(waitForStats());
  const QPointer<QWidget> stats = delegate->controllerWindow();
  fakes.alerts->answers = {1, 0};
  delegate->controllerWindow()->tapCloseTab();
  EXPECT_TRUE(stats->isVisible());
  EXPECT_FALSE(delegate->window()->isVisible());
  delegate->controllerWindow()->tapCloseTab();
  expectIdle();
  EXPECT_EQ(delegate->controllerWindow(), nullptr);
  EXPECT_TRUE(testing::waitFor([&] { return stats.isNull(); }));
}

TEST_F(AppDelegateTest, MainScreenThatWasMinimisedIsThereAgainAfterTheStatistics) {
  delegate->window()->showMinimized();
  open(writeProject("first"));
  ASSERT_TRUE(waitForStats());
  fakes.alerts->answers = {0};
  delegate->controllerWindow()->tapCloseTab();
  EXPECT_FALSE(delegate->window()->isMinimized());
  expectIdle();
}

TEST_F(AppDelegateTest, MainScreenThatWasMinimisedShowsTheNextRead) {
  delegate->window()->showMinimized();
  open(writeProject("first"));
  ASSERT_TRUE(waitForStats());
  const std::string second = writeProject("second");
  const std::unique_lock reading(readerGate);
  open(second);
  waitForReading();
  EXPECT_FALSE(delegate->window()->isMinimized());
}

TEST_F(AppDelegateTest, WindowManagersCloseAsksToo) {
  open(writeProject());
  ASSERT_TRUE(waitForStats());
  fakes.alerts->answers = {1, 0};
  delegate->controllerWindow()->close();
  ASSERT_NE(delegate->controllerWindow(), nullptr);
  EXPECT_TRUE(delegate->controllerWindow()->isVisible());
  delegate->controllerWindow()->close();
  EXPECT_EQ(delegate->controllerWindow(), nullptr);
  EXPECT_EQ(fakes.alerts->shown.size(), 2U);
  expectIdle();
}

TEST_F(AppDelegateTest, ProjectIsReopenedAfresh) {
  for (int time = 1; time <= 3; ++time) {
    open(writeProject("p", time));
    ASSERT_TRUE(waitForStats());
    EXPECT_EQ(delegate->parserProject()->files().size(), static_cast<std::size_t>(time));
    fakes.alerts->answers = {0};
    delegate->controllerWindow()->tapCloseTab();
  }
}

TEST_F(AppDelegateTest, NewReadClosesTheStatisticsAtItsStart) {
  open(writeProject("first"));
  ASSERT_TRUE(waitForStats());
  const QPointer<QWidget> first = delegate->controllerWindow();
  const std::weak_ptr<const MeasuredProject> firstProject = delegate->parserProject();
  const std::string second = writeProject("second", 5);
  std::unique_lock reading(readerGate);
  open(second);
  waitForReading();
  EXPECT_EQ(delegate->controllerWindow(), nullptr);
  EXPECT_TRUE(testing::waitFor([&] { return first.isNull(); }));
  reading.unlock();
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(delegate->parserProject()->files().size(), 5U);
  EXPECT_TRUE(firstProject.expired());
  EXPECT_THAT(fakes.alerts->shown, IsEmpty());
  EXPECT_FALSE(delegate->window()->isVisible());
}

TEST_F(AppDelegateTest, ControlOInTheStatisticsOpensAnotherProjectInTheirPlace) {
  open(writeProject("first"));
  ASSERT_TRUE(waitForStats());
  const QPointer<QWidget> first = delegate->controllerWindow();
  panelAnswer = writeProject("second", 2, "Second");
  QTest::keyClick(first, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(panelOver, first);
  fakes.delayedCalls->advance(500ms);
  ASSERT_TRUE(testing::waitFor([&] { return first.isNull() && delegate->controllerWindow() != nullptr; }));
  EXPECT_EQ(delegate->controllerWindow()->windowTitle(), QStringLiteral("Quillmeter – Second"));
}

TEST_F(AppDelegateTest, NewReadUnderTheOpenConfirmationMakesItsAnswerVoid) {
  for (const bool byWindowManager : {false, true}) {
    open(writeProject("first"));
    ASSERT_TRUE(waitForStats());
    const QPointer<QWidget> first = delegate->controllerWindow();
    fakes.alerts->answers = {0};
    fakes.alerts->whileShown = [&] {
      fakes.alerts->whileShown = nullptr;
      open(writeProject("second", 4));
      ASSERT_TRUE(
          testing::waitFor([&] { return first.isNull() && delegate->controllerWindow() != nullptr; }));
    };
    if (byWindowManager) {
      delegate->controllerWindow()->close();
    } else {
      delegate->controllerWindow()->tapCloseTab();
    }
    ASSERT_NE(delegate->controllerWindow(), nullptr);
    EXPECT_TRUE(delegate->controllerWindow()->isVisible());
    EXPECT_EQ(delegate->parserProject()->files().size(), 4U);
  }
}

TEST_F(AppDelegateTest, OfTwoReadsInQuickSuccessionTheLastOneIsShown) {
  for (int time = 0; time < 10; ++time) {
    const std::string big = writeProject("big", 200);
    const std::string small = writeProject("small", 3);
    delegate->fileSelected(big);
    delegate->fileSelected(small);
    fakes.delayedCalls->advance(500ms);
    ASSERT_TRUE(waitForStats());
    QTest::qWait(10);
    EXPECT_EQ(delegate->parserProject()->files().size(), 3U);
    fakes.alerts->answers = {0};
    delegate->controllerWindow()->tapCloseTab();
  }
  EXPECT_EQ(fakes.alerts->shown.size(), 10U);  // the confirmations, no error
}

TEST_F(AppDelegateTest, ClosingTheScreenDuringAReadLeavesTheReadAlone) {
  open(writeProject("p", 200));
  delegate->window()->close();
  EXPECT_TRUE(waitForStats());
}

TEST_F(AppDelegateTest, QuittingDuringAReadLeavesMostFilesUnread) {
  constexpr std::ptrdiff_t files = 2000;
  readerPause = 2ms;
  const std::string project = writeProject("p", files);
  std::unique_lock reading(readerGate);
  open(project);
  waitForReading();
  reading.unlock();
  delegate.reset();
  EXPECT_LT(std::ssize(logLines()), files / 2) << "those that the threads had under way are done";
}

TEST_F(AppDelegateTest, AnotherProjectLeavesMostFilesOfTheOneThatIsReadUnread) {
  constexpr std::ptrdiff_t files = 2000;
  readerPause = 2ms;
  const std::string big = writeProject("big", files);
  const std::string small = writeProject("small");
  std::unique_lock reading(readerGate);
  open(big);
  waitForReading();
  open(small);
  reading.unlock();
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(delegate->parserProject()->files().size(), 2U);
  // The read that was given up ends before its project does.
  ASSERT_TRUE(testing::waitFor([&] { return delegate->findChildren<ProjectRead*>().isEmpty(); }));
  EXPECT_LT(std::ssize(logLines()), files / 2) << "those that the threads had under way are done";
}

TEST_F(AppDelegateTest, QuittingDuringAReadIsCleanAtAnyMoment) {
  const std::string project = writeProject("p", 400);
  for (int time = 0; time < 12; ++time) {
    open(project);
    QTest::qWait(time);
    delegate.reset();
    launch();
  }
  expectIdle();
}

TEST_F(AppDelegateTest, QuittingBeforeTheOpeningDelayIsOverReadsNothing) {
  delegate->fileSelected(writeProject());
  delegate.reset();
  fakes.delayedCalls->advance(500ms);
  EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(AppDelegateTest, ReminderComesAtTheThirdShowingFourSecondsAfterLoading) {
  for (int showing = 1; showing <= 3; ++showing) {
    open(writeProject());
    ASSERT_TRUE(waitForStats());
    fakes.delayedCalls->advance(3999ms);
    EXPECT_THAT(fakes.alerts->shown, IsEmpty());
    fakes.delayedCalls->advance(1ms);
    if (showing == 3) break;
    EXPECT_THAT(fakes.alerts->shown, IsEmpty());
    fakes.alerts->answers = {0};
    delegate->controllerWindow()->tapCloseTab();
    fakes.alerts->shown.clear();
  }
  ASSERT_EQ(fakes.alerts->shown.size(), 1U);
  EXPECT_TRUE(fakes.alerts->shown[0].message.startsWith(QStringLiteral("If you like Quillmeter")));
}

TEST_F(AppDelegateTest, TakesNoMoreThanItsOwnDefaults) {
  open(writeProject());
  ASSERT_TRUE(waitForStats());
  fakes.delayedCalls->advance(5s);
  EXPECT_FALSE(fakes.userDefaults->values.empty());
  for (const auto& [key, value] : fakes.userDefaults->values) {
    EXPECT_TRUE(key == "DETAILS_SHOW_MINIMAL" || key.starts_with("quillmeter.ratings_reminder.")) << key;
  }
}

/// A project of two Swift files, with C files beside them or without any.
class SwiftProject : public AppDelegateTest {
 protected:
  static constexpr const char* kKey = "MEASURE_BY_CURRENT_RULES";
  std::string writeSwift(int cFiles, const std::string& subfolder = "swift") {
    std::vector<std::string> names{"a.swift", "b.swift"};
    if (cFiles > 0) names.emplace_back("c.c");
    std::string objects;
    std::string children;
    for (const std::string& name : names) {
      folder.file(subfolder + "/" + name, "let x = 1\n");
      objects += "\t\t" + name + "ID /* x */ = {isa = PBXFileReference; path = " + name +
                 "; sourceTree = \"<group>\"; };\n";
      children += name + "ID, ";
    }
    folder.file(subfolder + "/App.xcodeproj/project.pbxproj",
                "{ objects = {\n/* Begin PBXFileReference section */\n" + objects +
                    "/* End PBXFileReference section */\nG = { isa = PBXGroup; children = ( " + children +
                    "); sourceTree = \"<group>\"; };\nR = { isa = PBXProject; mainGroup = G; };\n};\n"
                    "rootObject = R; }\n");
    return folder / subfolder;
  }
  [[nodiscard]] bool isOffered() const { return outlets().btnRulesOffer->isVisible(); }
  [[nodiscard]] ProjectRules rules() const { return delegate->parserProject()->rules(); }
  QPushButton* statsButton(const char* name) {
    return delegate->controllerWindow()->findChild<QPushButton*>(QLatin1String(name));
  }
  bool waitForStatsBy(ProjectRules wanted) {
    return testing::waitFor([&] { return delegate->controllerWindow() != nullptr && rules() == wanted; });
  }
};

TEST_F(SwiftProject, OfferFollowsTheAlertAndIsTaken) {
  EXPECT_FALSE(isOffered());
  open(writeSwift(0));
  ASSERT_TRUE(waitForAlert());
  EXPECT_EQ(fakes.alerts->shown[0].message, kErrorText);
  EXPECT_TRUE(isOffered());
  EXPECT_EQ(outlets().lblRulesOffer->text(),
            QStringLiteral("2 Swift files are not measured by the classic rules."));
  EXPECT_FALSE(outlets().btnRateOnStore->isVisible());
  outlets().btnRulesOffer->click();
  ASSERT_TRUE(waitForStatsBy(ProjectRules::current));
  EXPECT_EQ(delegate->parserProject()->files().size(), 2U);
  EXPECT_EQ(fakes.userDefaults->boolForKey(kKey), true);
  EXPECT_EQ(fakes.alerts->shown.size(), 1U);
}

TEST_F(SwiftProject, OfferGoesWithTheNextProject) {
  open(writeSwift(0));
  ASSERT_TRUE(waitForAlert());
  ASSERT_TRUE(isOffered());
  open(writeProject());
  EXPECT_FALSE(isOffered());
  EXPECT_TRUE(outlets().btnRateOnStore->isVisible());
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(rules(), ProjectRules::classic);
  EXPECT_FALSE(statsButton("btnCurrentRules")->isVisible());
}

TEST_F(SwiftProject, NothingIsOfferedWhereTheCurrentRulesFindNothingEither) {
  open(folder.folder("empty"));
  ASSERT_TRUE(waitForAlert());
  EXPECT_FALSE(isOffered());
}

TEST_F(SwiftProject, OverviewOffersTheCurrentRulesAndTheWindowLeadsBack) {
  open(writeSwift(1));
  ASSERT_TRUE(waitForStatsBy(ProjectRules::classic));
  EXPECT_EQ(delegate->parserProject()->files().size(), 1U);
  ASSERT_TRUE(statsButton("btnCurrentRules")->isVisible());
  statsButton("btnCurrentRules")->click();
  ASSERT_TRUE(waitForStatsBy(ProjectRules::current));
  EXPECT_EQ(delegate->parserProject()->files().size(), 3U);
  statsButton("btnClassicRules")->click();
  ASSERT_TRUE(waitForStatsBy(ProjectRules::classic));
  EXPECT_EQ(fakes.userDefaults->boolForKey(kKey), false);
}

TEST_F(SwiftProject, ChoiceIsRememberedForTheNextRun) {
  fakes.userDefaults->setBool(kKey, true);
  launch();
  open(writeSwift(1));
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(rules(), ProjectRules::current);
}

TEST_F(SwiftProject, RulesOfTheCommandLineAreTakenWithoutBeingRemembered) {
  delegate->startWithRules(ProjectRules::current);
  open(writeSwift(1));
  ASSERT_TRUE(waitForStats());
  EXPECT_EQ(rules(), ProjectRules::current);
  EXPECT_EQ(fakes.userDefaults->boolForKey(kKey), std::nullopt);
  statsButton("btnClassicRules")->click();
  ASSERT_TRUE(waitForStatsBy(ProjectRules::classic)) << "the user's choice counts more";
}

TEST_F(SwiftProject, FaultOfTheDescriptionGivesTheAlertAndTheWayBack) {
  delegate->startWithRules(ProjectRules::current);
  open(writeProject("p", 2));
  ASSERT_TRUE(waitForAlert());
  EXPECT_EQ(fakes.alerts->shown[0].message, kErrorText);
  EXPECT_EQ(delegate->controllerWindow(), nullptr);
  ASSERT_TRUE(isOffered());
  EXPECT_EQ(outlets().btnRulesOffer->text(), QStringLiteral("Measure by the classic rules"));
  outlets().btnRulesOffer->click();
  ASSERT_TRUE(waitForStatsBy(ProjectRules::classic));
}

}  // namespace
}  // namespace quillmeter
