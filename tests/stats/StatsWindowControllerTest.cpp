#include "stats/StatsWindowController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include "charts/ChartsViewController.h"
#include "charts/DrawingCanvasView.h"
#include "controls/ApplicationTheme.h"
#include "controls/FadingPanel.h"
#include "controls/Theme.h"
#include "export/ExportViewController.h"
#include "export/ReportChart.h"
#include "helpers/FakeServices.h"
#include "helpers/ProjectFixture.h"
#include "helpers/QtWaiting.h"
#include "overview/OverviewViewController.h"
#include "stats/FakeStatsHost.h"
#include "tables/CleanUpToolViewController.h"
#include "tables/DetailsViewController.h"
#include "xcode/CurrentProject.h"

namespace quillmeter {
namespace {

using namespace Qt::StringLiterals;

using std::chrono::milliseconds;
using testing::FakeServices;
using testing::FakeStatsHost;
using testing::projectWith;
using testing::record;

std::shared_ptr<ParseProject> smallProject(const std::string& title = "Fixture") {
  return projectWith(
      {
          record({.name = "a.m", .size = 10, .lines = 30, .linesWithoutSpaces = 20, .comments = 5}),
          record({.name = "b.png", .size = 10}),
          record({.name = "c.xib", .size = 10, .lines = 4}),
      },
      title);
}

class StatsWindow : public ::testing::Test {
 protected:
  const ApplicationTheme theme;  // as in the application
  void open(const std::shared_ptr<ParseProject>& project = smallProject()) {
    host.project = project;
    window = StatsWindowController::create(host, services.services());
    window->show();
  }
  [[nodiscard]] QPushButton* button(const char* name) const {
    return window->findChild<QPushButton*>(QLatin1String(name));
  }
  [[nodiscard]] std::vector<QWidget*> tabs() const {
    return {window->overviewController(), window->detailsViewController(), window->chartsViewController(),
            window->exportViewController()};
  }
  /// Exactly the tab `index` (from 0) is in the window, and exactly its button is on.
  void expectTab(std::size_t index) const {
    const QList<QWidget*> children =
        window->viewRight()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_EQ(children.size(), 1);
    EXPECT_EQ(children.front(), tabs().at(index));
    EXPECT_TRUE(children.front()->isVisible());
    const std::vector<const char*> names{"btnLeft1", "btnLeft2", "btnLeft3", "btnLeft4"};
    for (std::size_t other = 0; other < names.size(); ++other) {
      EXPECT_EQ(button(names[other])->isChecked(), other == index) << names[other];
    }
  }
  /// Puts the grow-in to its end.
  void letTimePass() const { services.delayedCalls->advance(milliseconds(3000)); }

  FakeServices services;
  FakeStatsHost host{nullptr};
  std::unique_ptr<StatsWindowController> window;
};

constexpr milliseconds kFade{300};
constexpr char kQuestion[] =
    "Are you sure you want to close the statistics window and return to the main screen?";

TEST_F(StatsWindow, OpensOnTheOverviewWithOnlyItsButtonOn) {
  open();
  expectTab(0);
}

TEST_F(StatsWindow, NamesTheProject) {
  open(smallProject("Quill & Ink"));
  EXPECT_EQ(window->windowTitle(), u"Quillmeter – Quill & Ink"_s);
  const auto* label = window->findChild<QLabel*>(u"lblProjectTitle"_s);
  EXPECT_EQ(label->text(), u"Current project: Quill & Ink"_s);
  EXPECT_EQ(label->property("backgroundStyle").toInt(), 2);
}

TEST_F(StatsWindow, LongTitleIsKeptInTheToolTipAndDoesNotWidenTheWindow) {
  open();
  const QSize before = window->minimumSizeHint();
  const std::string title(120, 'w');
  open(smallProject(title));
  EXPECT_EQ(window->minimumSizeHint(), before);
  const auto* label = window->findChild<QLabel*>(u"lblProjectTitle"_s);
  EXPECT_EQ(label->text(), u"Current project: "_s + QString::fromStdString(title));
  EXPECT_TRUE(label->toolTip().contains(QString::fromStdString(title)));
}

TEST_F(StatsWindow, TitleIsNeverReadAsMarkup) {
  open(smallProject("<b>a</b>"));
  EXPECT_EQ(window->findChild<QLabel*>(u"lblProjectTitle"_s)->toolTip(), u"<p>&lt;b&gt;a&lt;/b&gt;</p>"_s);
  EXPECT_EQ(window->findChild<QLabel*>(u"lblProjectTitle"_s)->text(), u"Current project: <b>a</b>"_s);
}

TEST_F(StatsWindow, PlaceholderOfTheToolkitInATitleIsShownAsItStands) {
  open(smallProject("a[*]b[*][*]"));
  EXPECT_EQ(window->windowHandle()->title(), u"Quillmeter – a[*]b[*][*]"_s);
  window->tapCleanUpTool();
  EXPECT_EQ(window->cleanUpTool()->windowHandle()->title(), u"Clean-up – a[*]b[*][*]"_s);
}

TEST_F(StatsWindow, TitleThatIsNotUtf8IsStillShown) {
  open(smallProject("caf\xE9"));
  EXPECT_TRUE(window->windowTitle().startsWith(u"Quillmeter – caf"_s));
}

TEST_F(StatsWindow, EachButtonShowsItsTabAloneFromEveryOtherTab) {
  open();
  const std::vector<const char*> names{"btnLeft1", "btnLeft2", "btnLeft3", "btnLeft4"};
  for (std::size_t from = 0; from < names.size(); ++from) {
    for (std::size_t to = 0; to < names.size(); ++to) {
      QTest::mouseClick(button(names[from]), Qt::LeftButton);
      QTest::mouseClick(button(names[to]), Qt::LeftButton);
      expectTab(to);
    }
  }
}

TEST_F(StatsWindow, ChoosingTheShownTabAgainLeavesOneCopyAndItsButtonOn) {
  open();
  QTest::mouseClick(button("btnLeft1"), Qt::LeftButton);
  QTest::mouseClick(button("btnLeft1"), Qt::LeftButton);
  expectTab(0);
}

TEST_F(StatsWindow, CloseButtonHasNoOnState) {
  open();
  EXPECT_FALSE(button("btnLeft5")->isCheckable());
}

TEST_F(StatsWindow, PicturesAreNotDimmedWhenTheirButtonIsDisabled) {
  open();
  for (const char* name : {"btnLeft1", "btnLeft2", "btnLeft3", "btnLeft4", "btnLeft5"}) {
    const QIcon icon = button(name)->icon();
    const QSize size = button(name)->iconSize();
    ASSERT_FALSE(icon.pixmap(size).isNull()) << name;
    EXPECT_EQ(icon.pixmap(size, QIcon::Disabled).toImage(), icon.pixmap(size, QIcon::Normal).toImage());
  }
}

TEST_F(StatsWindow, ChoosingChartsStartsItsAnimationEveryTime) {
  open();
  const auto* canvas = window->chartsViewController()->viewBarChart();
  for (int visit = 0; visit < 2; ++visit) {
    window->tapChartsTab();
    expectTab(2);
    EXPECT_EQ(canvas->CIRCLE_RADIUS(), 0) << "nothing has grown yet";
    letTimePass();
    EXPECT_GT(canvas->CIRCLE_RADIUS(), 0);
  }
}

TEST_F(StatsWindow, EverySwitchClosesTheFilterPopUpsOfDetailsAndCharts) {
  open();
  const std::vector<void (StatsWindowController::*)()> actions{
      &StatsWindowController::tapOverviewTab, &StatsWindowController::tapDetailsTab,
      &StatsWindowController::tapChartsTab, &StatsWindowController::tapExportTab};
  for (const auto action : actions) {
    window->tapDetailsTab();
    window->detailsViewController()->tapFilters();
    const auto* filters = window->detailsViewController()->findChild<QWidget*>(u"viewFilters"_s);
    ASSERT_NE(filters, nullptr);
    ASSERT_FALSE(filters->isHidden());
    (window.get()->*action)();
    services.delayedCalls->advance(kFade);
    EXPECT_TRUE(filters->isHidden());

    window->tapChartsTab();
    window->chartsViewController()->tapFilters();
    ASSERT_FALSE(window->chartsViewController()->viewFilters()->isHidden());
    (window.get()->*action)();
    services.delayedCalls->advance(kFade);
    EXPECT_TRUE(window->chartsViewController()->viewFilters()->isHidden());
  }
}

TEST_F(StatsWindow, ControlAndADigitSwitchesTabs) {
  open();
  window->activateWindow();
  ASSERT_TRUE(testing::waitUntilActive(window.get()));
  const std::vector<Qt::Key> keys{Qt::Key_4, Qt::Key_3, Qt::Key_2, Qt::Key_1};
  for (std::size_t index = 0; index < keys.size(); ++index) {
    QTest::keyClick(window.get(), keys[index], Qt::ControlModifier);
    expectTab(3 - index);
  }
}

TEST_F(StatsWindow, TabKeyWalksTheColumnFromTheTopIntoTheTab) {
  open();
  window->tapExportTab();
  window->activateWindow();
  ASSERT_TRUE(testing::waitUntilActive(window.get()));
  button("btnLeft1")->setFocus();
  for (const char* name : {"btnLeft2", "btnLeft3", "btnLeft4", "btnTools", "btnLeft5"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QLatin1String(name));
  }
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(window->exportViewController()->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(StatsWindow, KeyboardStaysInTheWindowWhenItsTabGoes) {
  open();
  window->tapExportTab();
  window->activateWindow();
  ASSERT_TRUE(testing::waitUntilActive(window.get()));
  window->exportViewController()->checkbox1()->setFocus();
  ASSERT_TRUE(window->exportViewController()->checkbox1()->hasFocus());
  window->tapDetailsTab();
  EXPECT_EQ(QApplication::focusWidget(), button("btnLeft2"));
  QTest::keyClick(window.get(), Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), button("btnLeft3"));
}

TEST_F(StatsWindow, KeyboardStaysWhereItIsWhenTheShownTabIsChosenAgainOrItIsInNoTab) {
  open();
  window->tapExportTab();
  window->activateWindow();
  ASSERT_TRUE(testing::waitUntilActive(window.get()));
  QWidget* const inTab = window->exportViewController()->checkbox1();
  inTab->setFocus();
  QTest::keyClick(window.get(), Qt::Key_4, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), inTab);
  button("btnTools")->setFocus();
  QTest::keyClick(window.get(), Qt::Key_2, Qt::ControlModifier);
  expectTab(1);
  EXPECT_EQ(QApplication::focusWidget(), button("btnTools"));
}

TEST_F(StatsWindow, EveryButtonOfTheColumnHasANameAndADescription) {
  open();
  for (const char* name : {"btnLeft1", "btnLeft2", "btnLeft3", "btnLeft4", "btnTools", "btnLeft5"}) {
    EXPECT_FALSE(button(name)->accessibleName().isEmpty()) << name;
    EXPECT_FALSE(button(name)->accessibleDescription().isEmpty()) << name;
    EXPECT_FALSE(button(name)->toolTip().isEmpty()) << name;
  }
}

TEST_F(StatsWindow, ClosingWithYesReturnsToTheMainScreenFirst) {
  open();
  services.alerts->answers = {0};
  bool visibleWhenShownBack = false;
  host.whenShownBack = [&] { visibleWhenShownBack = window->isVisible(); };
  QTest::mouseClick(button("btnLeft5"), Qt::LeftButton);
  ASSERT_EQ(services.alerts->shown.size(), 1U);
  EXPECT_EQ(services.alerts->shown[0].message, QLatin1String(kQuestion));
  EXPECT_EQ(services.alerts->shown[0].buttons, QStringList({u"Yes"_s, u"No"_s}));
  EXPECT_EQ(host.shownBack, 1);
  EXPECT_TRUE(visibleWhenShownBack);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(StatsWindow, AnyOtherAnswerLeavesTheWindowAndItsTab) {
  open();
  window->tapExportTab();
  for (const std::optional<int> answer : {std::optional<int>(1), std::optional<int>()}) {
    services.alerts->answers = {answer};
    window->tapCloseTab();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(host.shownBack, 0);
    expectTab(3);
  }
}

TEST_F(StatsWindow, ClosingByTheWindowManagerAsksTheSame) {
  open();
  services.alerts->answers = {1, 0};
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(host.shownBack, 0);
  EXPECT_TRUE(window->close());
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(host.shownBack, 1);
  EXPECT_EQ(services.alerts->shown.size(), 2U);
}

TEST_F(StatsWindow, ControlWAsksBeforeClosing) {
  open();
  window->activateWindow();
  ASSERT_TRUE(testing::waitUntilActive(window.get()));
  services.alerts->answers = {1, 0};
  QTest::keyClick(window.get(), Qt::Key_W, Qt::ControlModifier);
  EXPECT_TRUE(window->isVisible());
  QTest::keyClick(window.get(), Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(host.shownBack, 1);
}

TEST_F(StatsWindow, ApplicationClosesItWithoutAsking) {
  open();
  window->closeWithoutAsking();
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(services.alerts->shown.empty());
  EXPECT_EQ(host.shownBack, 0);
}

TEST_F(StatsWindow, ConfirmationLosesItsEffectWhenTheApplicationClosesTheWindowMeanwhile) {
  for (const bool byWindowManager : {false, true}) {
    open();
    services.alerts->answers = {0};
    services.alerts->whileShown = [this] { window->closeWithoutAsking(); };
    if (byWindowManager) {
      window->close();
    } else {
      window->tapCloseTab();
    }
    services.alerts->whileShown = nullptr;
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(host.shownBack, 0);
  }
}

TEST_F(StatsWindow, ConfirmationSurvivesTheEndOfItsWindow) {
  for (const bool byWindowManager : {false, true}) {
    open();
    services.alerts->answers = {0};
    services.alerts->whileShown = [this] { window.reset(); };
    StatsWindowController* const closing = window.get();
    if (byWindowManager) {
      closing->close();
    } else {
      closing->tapCloseTab();
    }
    services.alerts->whileShown = nullptr;
    EXPECT_EQ(host.shownBack, 0);
  }
}

TEST_F(StatsWindow, HostMayDestroyTheWindowWhenItComesBack) {
  open();
  services.alerts->answers = {0};
  host.whenShownBack = [this] { window.reset(); };
  window->tapCloseTab();
  EXPECT_EQ(host.shownBack, 1);
  EXPECT_EQ(window, nullptr);
}

const char* const kCounter = "quillmeter.ratings_reminder.counter_";

std::int64_t countedShowings(const testing::MemoryUserDefaults& defaults) {
  for (const auto& [key, value] : defaults.values) {
    if (key.starts_with(kCounter)) return std::get<std::int64_t>(value);
  }
  return 0;
}

TEST_F(StatsWindow, CountsAShowingFourSecondsAfterLoading) {
  open();
  ASSERT_FALSE(services.delayedCalls->delays.empty());
  EXPECT_THAT(services.delayedCalls->delays, ::testing::Contains(milliseconds(4000)));
  services.delayedCalls->advance(milliseconds(3999));
  EXPECT_EQ(countedShowings(*services.userDefaults), 0);
  services.delayedCalls->advance(milliseconds(1));
  EXPECT_EQ(countedShowings(*services.userDefaults), 1);
  EXPECT_TRUE(services.alerts->shown.empty());
  services.delayedCalls->advance(milliseconds(60000));
  EXPECT_EQ(countedShowings(*services.userDefaults), 1);
}

TEST_F(StatsWindow, AsksForAReviewAtTheThirdShowing) {
  for (int showing = 1; showing <= 3; ++showing) {
    open();
    services.delayedCalls->advance(milliseconds(4000));
    EXPECT_EQ(services.alerts->shown.size(), showing == 3 ? 1U : 0U) << showing;
  }
  EXPECT_EQ(services.alerts->shown.at(0).buttons,
            QStringList({u"Review Now!"_s, u"Remind Later!"_s, u"No Thanks!"_s}));
}

TEST_F(StatsWindow, RemindsAlsoWhileTheConfirmationIsOpen) {
  for (int showing = 1; showing <= 2; ++showing) {
    open();
    services.delayedCalls->advance(milliseconds(4000));
  }
  open();
  services.alerts->answers = {1, 1};
  services.alerts->whileShown = [this] {
    services.alerts->whileShown = nullptr;
    services.delayedCalls->advance(milliseconds(4000));
  };
  window->tapCloseTab();
  ASSERT_EQ(services.alerts->shown.size(), 2U);
  EXPECT_EQ(services.alerts->shown[0].message, QLatin1String(kQuestion));
  EXPECT_EQ(services.alerts->shown[1].buttons.front(), u"Review Now!"_s);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(StatsWindow, ShowingCountsAlsoWhenItsWindowIsClosedWithinFourSeconds) {
  for (int showing = 1; showing <= 3; ++showing) {
    open();
    services.delayedCalls->advance(milliseconds(1000));
    window.reset();
    services.delayedCalls->advance(milliseconds(2999));
    EXPECT_EQ(countedShowings(*services.userDefaults), showing - 1);
    services.delayedCalls->advance(milliseconds(1));
    EXPECT_EQ(countedShowings(*services.userDefaults), showing);
  }
  EXPECT_EQ(services.alerts->shown.size(), 1U);
}

TEST_F(StatsWindow, GivesTheOtherTabsTheOverviewsTotalsAndTexts) {
  open();
  const SourceTotals totals = window->sourceTotals();
  EXPECT_EQ(totals.totalNumberLines, 30U);
  EXPECT_EQ(totals.totalNumberLinesWithSpaces, 10U);
  EXPECT_EQ(totals.totalNumberLinesWithComments, 5U);
  const OverviewTexts texts = window->overviewTexts();
  EXPECT_EQ(texts.codeFiles, "1");
  EXPECT_EQ(texts.imageFiles, "1");
  EXPECT_EQ(texts.xibFiles, "1");
}

TEST_F(StatsWindow, GivesTheReportItsGraph) {
  open();
  ASSERT_NE(window->reportChart(), nullptr);
  const ReportPicture picture = window->reportChart()->picture(
      {.circleRadius = 60, .pieChart2Perc1 = 0.5, .pieChart2Perc2 = 0.2, .width = 300, .height = 200});
  EXPECT_EQ(picture.width, 900);
  EXPECT_EQ(picture.height, 600);
  EXPECT_FALSE(picture.rgba.empty());
}

TEST_F(StatsWindow, KeepsItsProjectWhateverTheApplicationReadsMeanwhile) {
  open();
  const std::weak_ptr<const MeasuredProject> shown = host.project;
  host.project = smallProject("Other");
  EXPECT_EQ(window->parserProject(), shown.lock());
  window.reset();
  EXPECT_TRUE(shown.expired());
}

TEST_F(StatsWindow, DetailsTicksItsGroupInTheExportTabAndGoesThere) {
  open();
  window->tapDetailsTab();
  window->setExportGroups({FileGroup::c, FileGroup::objectiveC, FileGroup::interfaceFiles});
  const ExportViewController& tab = *window->exportViewController();
  EXPECT_TRUE(tab.checkbox1()->isChecked());
  EXPECT_FALSE(tab.checkbox2()->isChecked());
  EXPECT_TRUE(tab.checkbox3()->isChecked());
  EXPECT_FALSE(tab.checkbox4()->isChecked());
  EXPECT_TRUE(tab.checkbox5()->isChecked());
  window->detailsViewController()->tapSave();
  letTimePass();
  expectTab(3);
}

TEST_F(StatsWindow, ToolsOpensTheCleanUpToolOnceAndTakesItAlongWhenItCloses) {
  open();
  EXPECT_EQ(window->cleanUpTool(), nullptr);
  QTest::mouseClick(button("btnTools"), Qt::LeftButton);
  auto* const menu = button("btnTools")->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  EXPECT_TRUE(menu->isVisible());
  menu->actions().front()->trigger();
  menu->close();
  CleanUpToolViewController* const tool = window->cleanUpTool();
  ASSERT_NE(tool, nullptr);
  EXPECT_TRUE(tool->isVisible());
  EXPECT_TRUE(tool->isWindow());
  window->tapCleanUpTool();
  EXPECT_EQ(window->cleanUpTool(), tool);
  window->closeWithoutAsking();
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(StatsWindow, CanBeAsSmallAsASmallScreenOnEveryTab) {
  open();
  for (const auto tap : {&StatsWindowController::tapOverviewTab, &StatsWindowController::tapDetailsTab,
                         &StatsWindowController::tapChartsTab, &StatsWindowController::tapExportTab}) {
    (window.get()->*tap)();
    window->resize(800, 560);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->size(), QSize(800, 560));
    EXPECT_TRUE(window->rect().contains(
        QRect(button("btnLeft5")->mapTo(window.get(), QPoint()), button("btnLeft5")->size())));
  }
}

TEST_F(StatsWindow, OpensInsideItsScreen) {
  open();
  EXPECT_TRUE(window->screen()->availableGeometry().contains(window->geometry()));
}

TEST_F(StatsWindow, EveryPageBeginsWithItsHeadingAtTheSamePlace) {
  open();
  const std::vector<const char*> headings{"lblHeading", "lblTextTitle1", "lblHeading", "lblTextTitle1"};
  const std::vector<void (StatsWindowController::*)()> taps{
      &StatsWindowController::tapOverviewTab, &StatsWindowController::tapDetailsTab,
      &StatsWindowController::tapChartsTab, &StatsWindowController::tapExportTab};
  std::vector<QPoint> places;
  for (std::size_t page = 0; page < taps.size(); ++page) {
    (window.get()->*taps[page])();
    QCoreApplication::processEvents();
    const auto* heading = tabs()[page]->findChild<QLabel*>(QLatin1String(headings[page]));
    ASSERT_NE(heading, nullptr);
    EXPECT_EQ(heading->property("role").toString(), u"heading"_s);
    const QRect text(heading->mapTo(window.get(), QPoint()), heading->size());
    places.push_back({text.left(), text.center().y()});
  }
  EXPECT_THAT(places, ::testing::Each(places.front()));
}

TEST_F(StatsWindow, ReturnPressesTheButtonInFocus) {
  open();
  window->activateWindow();
  ASSERT_TRUE(testing::waitUntilActive(window.get()));
  button("btnLeft4")->setFocus();
  QTest::keyClick(button("btnLeft4"), Qt::Key_Return);
  expectTab(3);
  window->exportViewController()->btnGenerate()->setFocus();
  QTest::keyClick(window->exportViewController()->btnGenerate(), Qt::Key_Enter);
  EXPECT_EQ(services.savePanel->requests.size(), 1U);
  window->tapDetailsTab();
  auto* filters = window->detailsViewController()->findChild<QPushButton*>(u"btnFilters"_s);
  filters->setFocus();
  QTest::keyClick(filters, Qt::Key_Return);
  EXPECT_TRUE(filters->isChecked());
}

TEST_F(StatsWindow, ControlQEndsTheApplicationOnceItIsConfirmed) {
  open();
  window->activateWindow();
  ASSERT_TRUE(testing::waitUntilActive(window.get()));
  services.alerts->answers = {1, 0};
  QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(host.quits, 0);
  EXPECT_TRUE(window->isVisible());
  QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(host.quits, 1);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(services.alerts->shown.front().message, QLatin1String(kQuestion));
}

TEST_F(StatsWindow, FollowsADesktopThatTurnsDark) {
  const QPalette before = QApplication::palette();
  const QPalette dark(QColor(0x2B, 0x2F, 0x33));
  open();
  const auto columnsColor = [this] { return window->viewLeft()->grab().toImage().pixelColor(5, 300); };
  EXPECT_EQ(columnsColor(), themeFor(before).sidebar);
  QApplication::setPalette(dark);
  QTest::qWait(0);
  const QColor whenDark = columnsColor();
  QApplication::setPalette(before);
  EXPECT_EQ(whenDark, themeFor(dark).sidebar);
  EXPECT_NE(whenDark, themeFor(before).sidebar);
}

TEST_F(StatsWindow, SaysNothingOfTheClassicRules) {
  open();
  EXPECT_FALSE(window->findChild<QLabel*>(u"lblRules"_s)->isVisible());
  EXPECT_FALSE(button("btnClassicRules")->isVisible());
  EXPECT_FALSE(button("btnCurrentRules")->isVisible());
}

TEST_F(StatsWindow, OffersTheCurrentRulesWhereMuchWasLeftOut) {
  host.offer = "172 Swift files are not measured by the classic rules.";
  open();
  EXPECT_TRUE(button("btnCurrentRules")->isVisible());
  button("btnCurrentRules")->click();
  EXPECT_THAT(host.measuredBy, ::testing::ElementsAre(ProjectRules::current));
}

TEST_F(StatsWindow, SaysThatTheCurrentRulesWereTakenAndLeadsBack) {
  host.offer = "of no use here";
  host.project = std::make_shared<CurrentProject>();
  window = StatsWindowController::create(host, services.services());
  window->show();
  EXPECT_TRUE(window->findChild<QLabel*>(u"lblRules"_s)->isVisible());
  EXPECT_EQ(window->findChild<QLabel*>(u"lblRules"_s)->text(), u"Measured by the current rules"_s);
  EXPECT_FALSE(button("btnCurrentRules")->isVisible());
  button("btnClassicRules")->click();
  EXPECT_THAT(host.measuredBy, ::testing::ElementsAre(ProjectRules::classic));
}

}  // namespace
}  // namespace quillmeter
