#include "charts/ChartsViewController.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "analysis/ParseProject.h"
#include "charts/ChartsHost.h"
#include "charts/PulsingButton.h"
#include "controls/ButtonTextColor.h"
#include "controls/FadingPanel.h"
#include "helpers/FakeServices.h"
#include "helpers/ProjectFixture.h"
#include "helpers/QtWaiting.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using namespace std::chrono_literals;
using testing::FakeServices;
using testing::record;
using testing::TemporaryFolder;

class FixedHost final : public ChartsHost {
 public:
  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project; }
  [[nodiscard]] SourceTotals sourceTotals() const override { return totals; }

  std::shared_ptr<ParseProject> project;
  SourceTotals totals;
};

FileList twentyOfEach() {
  FileList files;
  for (int i = 1; i <= 20; ++i) {
    const std::string number = std::to_string(i);
    files.push_back(record({.name = "Source" + number + ".m", .size = 10, .lines = 100 * i}));
    files.push_back(record({.name = "Window" + number + ".xib", .size = 1024 * i}));
    files.push_back(record({.name = "Picture" + number + ".png", .size = 2048 * i}));
  }
  return files;
}

class ChartsTab : public ::testing::Test {
 protected:
  void open(FileList files, SourceTotals totals = {1000, 200, 300}) {
    host.project = testing::projectWith(std::move(files));
    host.totals = totals;
    tab = ChartsViewController::create(host, fakes.services());
    tab->resize(660 + 64, 760);  // at which the canvas has its own size
    tab->show();
  }
  void choose(int chart) { tab->tapSelectedFilter(button(chart)); }
  void chooseAndGrow(int chart) {
    choose(chart);
    fakes.delayedCalls->advance(2s);
    canvas()->grab();
  }
  [[nodiscard]] QPushButton* button(int chart) const {
    return tab->findChild<QPushButton*>(QStringLiteral("btnFilter%1").arg(chart + 1));
  }
  [[nodiscard]] QPushButton* named(const char* name) const {
    return tab->findChild<QPushButton*>(QLatin1String(name));
  }
  [[nodiscard]] PulsingButton* info() const {
    return tab->findChild<PulsingButton*>(QStringLiteral("btnInfo"));
  }
  [[nodiscard]] QString details(int number) const {
    return tab->findChild<QLabel*>(QStringLiteral("lblPopoverDetailsChart%1").arg(number))->text();
  }
  [[nodiscard]] DrawingCanvasView* canvas() const { return tab->viewBarChart(); }
  void clickBar(int bar) {
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, canvas()->toWidget({95.0 + 32 * bar, 490}));
  }

  FakeServices fakes;
  FixedHost host;
  std::unique_ptr<ChartsViewController> tab;
};

// Set-up

TEST_F(ChartsTab, BeginsWithTheChartOfFileKindsNotYetDrawn) {
  open(twentyOfEach());
  EXPECT_EQ(tab->currentTableFilter(), 1);
  EXPECT_FALSE(tab->animationInfoButtonStartedOnce());
  EXPECT_EQ(canvas()->CIRCLE_RADIUS(), 0);
  EXPECT_EQ(canvas()->maxNumberOfLines(), 0);
  EXPECT_FALSE(canvas()->shouldDrawAverageLine());
  EXPECT_FALSE(canvas()->arrayValues().has_value());
  EXPECT_TRUE(tab->viewFilters()->isHidden());
  EXPECT_EQ(tab->viewFilters()->alphaValue(), 0.0);
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
  EXPECT_TRUE(info()->isHidden());
  EXPECT_EQ(canvas()->size(), QSize(660, 540));
}

TEST_F(ChartsTab, HandsTheSharesToTheCanvas) {
  open(twentyOfEach());
  EXPECT_DOUBLE_EQ(canvas()->pieChart2Perc1(), 1.0 / 3);
  EXPECT_DOUBLE_EQ(canvas()->pieChart2Perc2(), 1.0 / 3);
  EXPECT_DOUBLE_EQ(canvas()->pieChart1Perc1(), 0.5);
  EXPECT_DOUBLE_EQ(canvas()->pieChart1Perc2(), 0.3);
  EXPECT_TRUE(std::isnan(canvas()->pieChart3Perc1()));
}

TEST_F(ChartsTab, SharesAreTakenOnceAndNeverAgain) {
  open(twentyOfEach());
  host.project->setArrayFiles(FileList{record({.name = "only.m"})});
  host.totals = {};
  tab->startAnimation();
  fakes.delayedCalls->advance(2s);
  EXPECT_DOUBLE_EQ(canvas()->pieChart2Perc1(), 1.0 / 3);
  EXPECT_DOUBLE_EQ(canvas()->pieChart1Perc1(), 0.5);
}

/// How many points of a widget's picture have exactly this colour.
int pointsOf(QWidget* widget, const QColor& color) {
  const QImage picture = widget->grab().toImage();
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x)
      count += picture.pixelColor(x, y) == color ? 1 : 0;
  }
  return count;
}

TEST_F(ChartsTab, ChartButtonsHaveWhiteTitlesThatTurnDarkWhenOn) {
  open(twentyOfEach());
  tab->tapFilters();
  const QColor darkGrey(85, 85, 85);
  for (int chart = 0; chart < 5; ++chart) {
    EXPECT_EQ(textColor(button(chart)), QColor(Qt::white)) << chart;
    EXPECT_EQ(pointsOf(button(chart), darkGrey) > 0, chart == 1) << chart;
  }
}

// The grow-in

TEST_F(ChartsTab, PieGrowsInSixteenFrames) {
  open(twentyOfEach());
  tab->startAnimation();
  EXPECT_EQ(canvas()->graphType(), 1);
  EXPECT_EQ(canvas()->CIRCLE_RADIUS(), 0);
  fakes.delayedCalls->advance(99ms);
  EXPECT_EQ(canvas()->CIRCLE_RADIUS(), 0);
  std::vector<int> radii;
  fakes.delayedCalls->advance(1ms);
  radii.push_back(canvas()->CIRCLE_RADIUS());
  while (fakes.delayedCalls->pendingCount() > 0) {
    fakes.delayedCalls->advance(20ms);
    radii.push_back(canvas()->CIRCLE_RADIUS());
  }
  EXPECT_EQ(radii.size(), 16U);
  EXPECT_EQ(radii.front(), 80);
  EXPECT_EQ(radii.back(), 200);
  EXPECT_TRUE(tab->currentArrayValuesBarChart().empty());
  EXPECT_TRUE(canvas()->arrayValues()->empty());
  EXPECT_TRUE(canvas()->shouldDrawAverageLine());
}

TEST_F(ChartsTab, BarsGrowInTwentySixFramesToTheirFullValues) {
  open(twentyOfEach());
  choose(2);
  EXPECT_EQ(canvas()->graphType(), 2);
  EXPECT_FALSE(canvas()->arrayValues().has_value());
  fakes.delayedCalls->advance(100ms);
  std::vector<double> heights;
  for (int frame = 0; frame < 26; ++frame) {
    heights.push_back(doubleValue(canvas()->arrayValues()->front()->noLinesTotal()));
    fakes.delayedCalls->advance(20ms);
  }
  EXPECT_EQ(heights.front(), 0.0);
  EXPECT_EQ(heights[1], static_cast<double>(2000.0F * (1.0F / 25.0F)));
  EXPECT_LT(heights[24], 2000.0);
  EXPECT_EQ(heights.back(), 2000.0);
  const auto steps = std::count(fakes.delayedCalls->delays.begin(), fakes.delayedCalls->delays.end(), 20ms);
  EXPECT_EQ(steps, 25);
  fakes.delayedCalls->advance(2s);
  EXPECT_EQ(std::count(fakes.delayedCalls->delays.begin(), fakes.delayedCalls->delays.end(), 20ms), 25);
}

TEST_F(ChartsTab, BarChartsKnowAllFilesAndShowFifteen) {
  open(twentyOfEach());
  chooseAndGrow(3);
  EXPECT_EQ(tab->currentArrayValuesBarChart().size(), 20U);
  EXPECT_EQ(canvas()->arrayValues()->size(), 15U);
  EXPECT_EQ(canvas()->maxNumberOfLines(), 20 * 1024);
  EXPECT_DOUBLE_EQ(canvas()->averageNumberOfLines(), 10.5 * 1024);
  chooseAndGrow(4);
  EXPECT_EQ(canvas()->maxNumberOfLines(), 20 * 2048);
  EXPECT_EQ(canvas()->arrayValues()->front()->fileName(), "Picture20.png");
}

TEST_F(ChartsTab, LastFrameOfTheBarsIsTheFullChart) {
  open(twentyOfEach());
  chooseAndGrow(2);
  const QImage picture = canvas()->grab().toImage();
  EXPECT_NEAR(picture.pixelColor(99, 73).blue(), 184, 4);
  EXPECT_NEAR(picture.pixelColor(99, 476).blue(), 248, 4);
}

TEST_F(ChartsTab, AnimationsThatOverlapBothEndAtTheFullChart) {
  open(twentyOfEach());
  choose(2);
  fakes.delayedCalls->advance(300ms);
  choose(1);
  fakes.delayedCalls->advance(150ms);
  choose(2);
  fakes.delayedCalls->advance(5s);
  EXPECT_EQ(fakes.delayedCalls->pendingCount(), 0U);
  ASSERT_EQ(canvas()->arrayValues()->size(), 15U);
  EXPECT_EQ(doubleValue(canvas()->arrayValues()->front()->noLinesTotal()), 2000.0);
  EXPECT_EQ(std::count(fakes.delayedCalls->delays.begin(), fakes.delayedCalls->delays.end(), 20ms),
            25 + 15 + 25);
}

TEST_F(ChartsTab, BarStepsThatRunIntoAPieEndAtItsFullRadius) {
  open(twentyOfEach());
  choose(2);
  fakes.delayedCalls->advance(110ms);
  choose(0);
  fakes.delayedCalls->advance(5s);
  EXPECT_EQ(canvas()->CIRCLE_RADIUS(), 200);
  EXPECT_TRUE(canvas()->arrayValues()->empty());
}

TEST_F(ChartsTab, ReturningToTheTabRunsTheSameChartAgain) {
  open(twentyOfEach());
  chooseAndGrow(4);
  tab->forcePopupClose();
  tab->startAnimation();
  EXPECT_EQ(tab->currentTableFilter(), 4);
  EXPECT_FALSE(canvas()->arrayValues().has_value());
  fakes.delayedCalls->advance(2s);
  EXPECT_EQ(canvas()->arrayValues()->size(), 15U);
}

TEST_F(ChartsTab, StepsThatWaitAreDroppedWithTheTab) {
  open(twentyOfEach());
  choose(2);
  tab.reset();
  fakes.delayedCalls->advance(2s);
  EXPECT_EQ(fakes.delayedCalls->pendingCount(), 0U);
}

// Projects with little in them

TEST_F(ChartsTab, EmptyProjectShowsEveryChartWithoutContents) {
  open({}, {});
  for (int chart = 0; chart < 5; ++chart) {
    chooseAndGrow(chart);
    EXPECT_TRUE(canvas()->arrayValues()->empty());
    EXPECT_EQ(canvas()->grab().toImage().pixelColor(330, 271), QColor(Qt::white));
  }
  EXPECT_EQ(canvas()->averageNumberOfLines(), 0.0);
  EXPECT_EQ(canvas()->maxNumberOfLines(), 0);
}

TEST_F(ChartsTab, ProjectThatWasNeverReadIsShownAsEmpty) {
  host.project = std::make_shared<ParseProject>();
  tab = ChartsViewController::create(host, fakes.services());
  chooseAndGrow(2);
  EXPECT_TRUE(canvas()->arrayValues()->empty());
}

TEST_F(ChartsTab, ChartWithoutContentsSaysWhy) {
  open({record({.name = "a.png", .size = 5})}, {});
  const auto* hint = tab->findChild<QLabel*>(QStringLiteral("lblHint"));
  choose(0);
  EXPECT_EQ(hint->text(), QStringLiteral("This project has no source lines."));
  choose(1);
  EXPECT_EQ(hint->text(), QString());
  choose(2);
  EXPECT_EQ(hint->text(), QStringLiteral("This project has no source files."));
  choose(3);
  EXPECT_EQ(hint->text(), QStringLiteral("This project has no XIB files."));
  choose(4);
  EXPECT_EQ(hint->text(), QStringLiteral("Press a magnifying glass for details about a file."));
}

TEST_F(ChartsTab, BarsOfFilesWithoutLinesCanStillBeAsked) {
  open({record({.name = "empty.m"}), record({.name = "also.m"})}, {});
  chooseAndGrow(2);
  clickBar(1);
  EXPECT_EQ(details(1), QStringLiteral("also.m"));
  EXPECT_EQ(details(2), QStringLiteral("LOC: 0 lines"));
}

// The panel of charts

TEST_F(ChartsTab, PanelOpensBelowItsButtonWithTheCurrentChartMarked) {
  open(twentyOfEach());
  QTest::mouseClick(named("btnFilters"), Qt::LeftButton);
  EXPECT_FALSE(tab->viewFilters()->isHidden());
  EXPECT_EQ(tab->viewFilters()->alphaValue(), 1.0);
  EXPECT_FALSE(named("btnFilters")->isEnabled());
  for (int chart = 0; chart < 5; ++chart)
    EXPECT_EQ(button(chart)->isChecked(), chart == 1) << chart;
  EXPECT_GE(tab->viewFilters()->y(), named("btnFilters")->geometry().bottom());
  EXPECT_TRUE(tab->rect().contains(tab->viewFilters()->geometry()));
  fakes.delayedCalls->advance(299ms);
  EXPECT_FALSE(named("btnFilters")->isEnabled());
  fakes.delayedCalls->advance(1ms);
  EXPECT_TRUE(named("btnFilters")->isEnabled());
}

TEST_F(ChartsTab, PanelClosesByItsButtonAndIsHiddenAfterTheFade) {
  open(twentyOfEach());
  tab->tapFilters();
  fakes.delayedCalls->advance(300ms);
  tab->tapFilters();
  EXPECT_EQ(tab->viewFilters()->alphaValue(), 0.0);
  EXPECT_FALSE(tab->viewFilters()->isHidden());
  EXPECT_FALSE(named("btnFilters")->isChecked());
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(tab->viewFilters()->isHidden());
  EXPECT_TRUE(named("btnFilters")->isEnabled());
}

TEST_F(ChartsTab, ChoosingAChartClosesThePanelAndStartsIt) {
  open(twentyOfEach());
  tab->tapFilters();
  fakes.delayedCalls->advance(300ms);
  QTest::mouseClick(button(3), Qt::LeftButton);
  EXPECT_EQ(tab->currentTableFilter(), 3);
  EXPECT_EQ(tab->viewFilters()->alphaValue(), 0.0);
  EXPECT_FALSE(named("btnFilters")->isChecked());
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(tab->viewFilters()->isHidden());
}

TEST_F(ChartsTab, ChartThatIsChosenAgainStaysTheOneMarked) {
  open(twentyOfEach());
  tab->tapFilters();
  for (const int chosen : {1, 3}) {
    QTest::mouseClick(button(chosen), Qt::LeftButton);
    for (int chart = 0; chart < 5; ++chart)
      EXPECT_EQ(button(chart)->isChecked(), chart == chosen) << chart;
  }
}

TEST_F(ChartsTab, ArrowKeysGoThroughThePanelWithoutChoosing) {
  open(twentyOfEach());
  tab->activateWindow();
  ASSERT_TRUE(testing::waitUntilActive(tab.get()));
  named("btnFilters")->setFocus();
  tab->tapFilters();
  for (const int chart : {2, 3, 4}) {
    QTest::keyClick(tab->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(tab->focusWidget(), button(chart));
    EXPECT_EQ(tab->currentTableFilter(), 1);
    EXPECT_EQ(tab->viewFilters()->alphaValue(), 1.0);
  }
  QTest::keyClick(tab->focusWidget(), Qt::Key_Space);
  EXPECT_EQ(tab->currentTableFilter(), 4);
  EXPECT_EQ(tab->viewFilters()->alphaValue(), 0.0);
}

TEST_F(ChartsTab, EachButtonOfThePanelChoosesItsChart) {
  open(twentyOfEach());
  for (int chart = 0; chart < 5; ++chart) {
    choose(chart);
    EXPECT_EQ(tab->currentTableFilter(), chart);
    EXPECT_EQ(canvas()->graphType(), chart);
  }
}

TEST_F(ChartsTab, EachButtonOfThePanelHasThePictureOfItsKindOfChart) {
  open(twentyOfEach());
  const auto picture = [this](int chart) {
    return button(chart)->icon().pixmap(button(chart)->iconSize()).toImage();
  };
  ASSERT_FALSE(picture(0).isNull());
  ASSERT_FALSE(picture(2).isNull());
  EXPECT_NE(picture(0), picture(2));
  EXPECT_EQ(picture(1), picture(0));
  EXPECT_EQ(picture(3), picture(2));
  EXPECT_EQ(picture(4), picture(2));
}

TEST_F(ChartsTab, UnknownSenderKeepsTheChart) {
  open(twentyOfEach());
  choose(3);
  tab->tapSelectedFilter(named("btnSaveChart"));
  EXPECT_EQ(tab->currentTableFilter(), 3);
  tab->tapSelectedFilter(nullptr);
  EXPECT_EQ(tab->currentTableFilter(), 3);
}

TEST_F(ChartsTab, ForcedCloseIsAtOnceAndHidesAfterwards) {
  open(twentyOfEach());
  tab->tapFilters();
  fakes.delayedCalls->advance(300ms);
  tab->forcePopupClose();
  EXPECT_EQ(tab->viewFilters()->shownAlpha(), 0.0);
  EXPECT_FALSE(named("btnFilters")->isChecked());
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(tab->viewFilters()->isHidden());
}

TEST_F(ChartsTab, PanelOpenedDuringTheFadeOfAnEarlierCloseStaysOpen) {
  open(twentyOfEach());
  tab->forcePopupClose();
  fakes.delayedCalls->advance(100ms);
  tab->tapFilters();
  fakes.delayedCalls->advance(1s);
  EXPECT_FALSE(tab->viewFilters()->isHidden());
  EXPECT_EQ(tab->viewFilters()->alphaValue(), 1.0);
}

TEST_F(ChartsTab, EscapeClosesThePanel) {
  open(twentyOfEach());
  tab->tapFilters();
  fakes.delayedCalls->advance(300ms);
  QTest::keyClick(button(1), Qt::Key_Escape);
  EXPECT_EQ(tab->viewFilters()->alphaValue(), 0.0);
}

TEST_F(ChartsTab, EscapeOnTheChartClosesThePanelAndTheDetails) {
  open(twentyOfEach());
  chooseAndGrow(2);
  tab->tapFilters();
  fakes.delayedCalls->advance(300ms);
  clickBar(3);
  QTest::keyClick(canvas(), Qt::Key_Escape);
  EXPECT_EQ(tab->viewFilters()->alphaValue(), 0.0);
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
}

// Information

TEST_F(ChartsTab, InfoButtonIsThereForBarChartsOnly) {
  open(twentyOfEach());
  for (const int chart : {0, 1, 2, 3, 4, 1, 2, 0}) {
    choose(chart);
    EXPECT_EQ(info()->isHidden(), chart < 2) << chart;
  }
}

TEST_F(ChartsTab, InfoButtonPulsesUntilItIsPressedOnce) {
  open(twentyOfEach());
  choose(2);
  EXPECT_TRUE(info()->isPulsing());
  QTest::mouseClick(info(), Qt::LeftButton);
  EXPECT_FALSE(info()->isPulsing());
  EXPECT_TRUE(tab->animationInfoButtonStartedOnce());
  choose(3);
  EXPECT_FALSE(info()->isPulsing());
  ASSERT_EQ(fakes.alerts->shown.size(), 1U);
  EXPECT_EQ(fakes.alerts->shown[0].message,
            QStringLiteral(
                "Please tap on the magnifying glass icon below the chart in order to view more details "
                "and suggestions on how to improve your code and logic.\n\nDISCLAIMER: the tips regarding "
                "the code are only informative, based on the current statistics."));
  EXPECT_EQ(fakes.alerts->shown[0].buttons, QStringList{QStringLiteral("Ok")});
}

TEST_F(ChartsTab, MagnifierOfTheFifthBarTellsAboutTheFifthFile) {
  open(twentyOfEach());
  chooseAndGrow(2);
  clickBar(4);
  EXPECT_EQ(details(1), QStringLiteral("Source16.m"));
  EXPECT_EQ(details(2), QStringLiteral("LOC: 1600 lines"));
  EXPECT_EQ(details(3), QStringLiteral("Average: 1050.0 lines"));
  EXPECT_EQ(details(4), QStringLiteral("code level is in\nnormal range"));
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.9);
  const int x = tab->viewPopoverDetailsChart()->x() - canvas()->mapTo(tab.get(), QPoint()).x();
  EXPECT_EQ(x, 92 + 4 * 32 - tab->viewPopoverDetailsChart()->width() / 2 + 8);
}

TEST_F(ChartsTab, DetailsStayInsideThePageAndBelowTheMagnifiersAtBothEnds) {
  open(twentyOfEach());
  tab->resize(616, 720);
  chooseAndGrow(3);
  for (const int bar : {0, 14}) {
    clickBar(bar);
    const QRect panel = tab->viewPopoverDetailsChart()->geometry();
    EXPECT_GE(panel.left(), 0) << bar;
    EXPECT_LE(panel.right(), tab->rect().right()) << bar;
    EXPECT_LE(panel.bottom(), tab->rect().bottom()) << bar;
    EXPECT_GE(panel.top(), canvas()->mapTo(tab.get(), canvas()->toWidget({0, 497})).y());
  }
}

TEST_F(ChartsTab, CanvasGrowsAndShrinksWithThePageAndItsMagnifiersWithIt) {
  open(twentyOfEach());
  for (const QSize page : {QSize(616, 500), QSize(616, 720), QSize(1400, 1000), QSize(3000, 3000)}) {
    tab->resize(page);
    QCoreApplication::processEvents();
    chooseAndGrow(2);
    const double scale = canvas()->scale();
    EXPECT_EQ(canvas()->size(), QSize(660, 540) * scale) << page.width();
    clickBar(4);
    EXPECT_EQ(details(1), QStringLiteral("Source16.m")) << page.width();
    EXPECT_EQ(canvas()->capture().size(), QSize(660, 540)) << "the picture that is saved has its own size";
  }
  EXPECT_EQ(canvas()->scale(), 2.0);
  tab->resize(1400, 1000);
  QCoreApplication::processEvents();
  EXPECT_GT(canvas()->scale(), 1.4);
  EXPECT_EQ(canvas()->mapTo(tab.get(), QPoint()).x(), 24 + 8) << "where the other pages begin";
}

TEST_F(ChartsTab, APressBesideTheChartFadesTheDetailsOutAndEscapeDoes) {
  open(twentyOfEach());
  chooseAndGrow(2);
  clickBar(0);
  QTest::mouseClick(tab->findChild<QLabel*>(QStringLiteral("lblHeading")), Qt::LeftButton);
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
  clickBar(0);
  QTest::keyClick(named("btnSaveChart"), Qt::Key_Escape);
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
}

TEST_F(ChartsTab, DetailsAreHiddenFromEverybodyUntilTheyAreShown) {
  open(twentyOfEach());
  chooseAndGrow(2);
  EXPECT_TRUE(tab->viewPopoverDetailsChart()->isHidden());
  clickBar(4);
  EXPECT_FALSE(tab->viewPopoverDetailsChart()->isHidden());
  EXPECT_EQ(
      tab->viewPopoverDetailsChart()->accessibleName(),
      QStringLiteral("Source16.m, LOC: 1600 lines, Average: 1050.0 lines, code level is in normal range"));
  tab->dismissInfoForItem();
  EXPECT_TRUE(testing::waitFor([this] { return tab->viewPopoverDetailsChart()->isHidden(); }));
}

TEST_F(ChartsTab, PressBesideTheMagnifiersFadesTheDetailsOut) {
  open(twentyOfEach());
  chooseAndGrow(2);
  clickBar(0);
  QTest::mouseClick(canvas(), Qt::LeftButton, {}, QPoint(300, 200));
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
}

TEST_F(ChartsTab, OpeningThePanelFadesTheDetailsOut) {
  open(twentyOfEach());
  chooseAndGrow(2);
  clickBar(0);
  tab->tapFilters();
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
}

TEST_F(ChartsTab, DetailsOfOneChartAreNotLeftStandingOverAnother) {
  open(twentyOfEach());
  chooseAndGrow(2);
  tab->tapFilters();
  clickBar(14);
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.9);
  choose(0);
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
}

TEST_F(ChartsTab, AdviceThatCannotBeGivenLeavesTheLastOneStanding) {
  open({record({.name = "a.m", .lines = 30}), record({.name = "b.m", .lines = 2})});
  chooseAndGrow(2);
  clickBar(1);
  const QString before = details(4);
  EXPECT_FALSE(before.isEmpty());
  canvas()->setAverageNumberOfLines(std::nan(""));
  clickBar(0);
  EXPECT_EQ(details(1), QStringLiteral("a.m"));
  EXPECT_EQ(details(4), before);
}

TEST_F(ChartsTab, DetailsAreNotShownOnAPie) {
  open(twentyOfEach());
  chooseAndGrow(0);
  tab->showInfoPopoverForItemFromStartingPoint(record({.name = "a.m"}), {100, 485});
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
}

TEST_F(ChartsTab, NameOfAThousandCharactersIsKeptWholeInAPanelOfTheSameSize) {
  const std::string name = std::string(1000, 'W') + ".m";
  open({record({.name = name, .lines = 30})});
  chooseAndGrow(2);
  const QSize before = tab->viewPopoverDetailsChart()->size();
  clickBar(0);
  QTest::qWait(1);
  EXPECT_EQ(details(1).toStdString(), name);
  EXPECT_EQ(tab->viewPopoverDetailsChart()->size(), before);
}

TEST_F(ChartsTab, NameWithMarkupIsShownAsItIs) {
  open({record({.name = "<b>a</b>.m", .lines = 30})});
  chooseAndGrow(2);
  clickBar(0);
  EXPECT_EQ(details(1), QStringLiteral("<b>a</b>.m"));
  EXPECT_EQ(tab->findChild<QLabel*>(QStringLiteral("lblPopoverDetailsChart1"))->textFormat(), Qt::PlainText);
}

// Saving

TEST_F(ChartsTab, SavedPictureDecodesWithTheCanvassSizeAndColours) {
  const TemporaryFolder folder;
  open(twentyOfEach());
  chooseAndGrow(2);
  fakes.savePanel->answer = folder / "picture.jpg";
  QTest::mouseClick(named("btnSaveChart"), Qt::LeftButton);
  ASSERT_EQ(fakes.savePanel->requests.size(), 1U);
  EXPECT_EQ(fakes.savePanel->requests[0].title, QStringLiteral("Save chart"));
  EXPECT_EQ(fakes.savePanel->requests[0].allowedFileType, QStringLiteral("jpg"));
  EXPECT_EQ(fakes.savePanel->requests[0].suggestedName, QStringLiteral("chart"));
  const std::string bytes = testing::readFile(folder / "picture.jpg");
  EXPECT_EQ(bytes.substr(0, 3), "\xFF\xD8\xFF");
  const QImage saved = QImage::fromData(QByteArray::fromStdString(bytes), "JPEG");
  const QImage shown = canvas()->capture().toImage();
  ASSERT_EQ(saved.size(), shown.size());
  for (const QPoint point :
       {QPoint(99, 75), QPoint(99, 300), QPoint(99, 470), QPoint(300, 30), QPoint(640, 520)}) {
    EXPECT_NEAR(saved.pixelColor(point).red(), shown.pixelColor(point).red(), 12);
    EXPECT_NEAR(saved.pixelColor(point).green(), shown.pixelColor(point).green(), 12);
    EXPECT_NEAR(saved.pixelColor(point).blue(), shown.pixelColor(point).blue(), 12);
  }
}

TEST_F(ChartsTab, SuccessIsToldASecondAfterSaving) {
  const TemporaryFolder folder;
  open(twentyOfEach());
  fakes.savePanel->answer = folder / "chart.jpg";
  tab->tapSave();
  fakes.delayedCalls->advance(999ms);
  EXPECT_TRUE(fakes.alerts->shown.empty());
  fakes.delayedCalls->advance(1ms);
  ASSERT_EQ(fakes.alerts->shown.size(), 1U);
  EXPECT_EQ(fakes.alerts->shown[0].message, QStringLiteral("Chart image successfully saved."));
  EXPECT_EQ(fakes.alerts->shown[0].buttons, QStringList{QStringLiteral("Ok")});
}

TEST_F(ChartsTab, NameWithoutExtensionGetsJpgAndAnyOtherStays) {
  const TemporaryFolder folder;
  open(twentyOfEach());
  fakes.savePanel->answer = folder / "plain";
  tab->tapSave();
  EXPECT_FALSE(testing::readFile(folder / "plain.jpg").empty());
  fakes.savePanel->answer = folder / "picture.png";
  tab->tapSave();
  EXPECT_EQ(testing::readFile(folder / "picture.png").substr(0, 3), "\xFF\xD8\xFF");
}

TEST_F(ChartsTab, CancelledSaveWritesAndTellsNothing) {
  const TemporaryFolder folder;
  open(twentyOfEach());
  fakes.savePanel->answer = std::nullopt;
  tab->tapSave();
  fakes.delayedCalls->advance(2s);
  EXPECT_TRUE(fakes.alerts->shown.empty());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(ChartsTab, FailedSaveIsMetInSilenceAndCalledASuccess) {
  const TemporaryFolder folder;
  open(twentyOfEach());
  fakes.savePanel->answer = folder / "missing/chart.jpg";
  tab->tapSave();
  fakes.delayedCalls->advance(1s);
  EXPECT_EQ(fakes.alerts->shown.size(), 1U);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(ChartsTab, PictureIsTakenBeforeTheSheetOpens) {
  const TemporaryFolder folder;
  open(twentyOfEach());
  chooseAndGrow(2);
  fakes.savePanel->answersAtOnce = false;
  fakes.savePanel->answer = folder / "chart.jpg";
  tab->tapSave();
  chooseAndGrow(0);
  fakes.savePanel->finish();
  const QImage saved(QString::fromStdString(folder / "chart.jpg"));
  EXPECT_NEAR(saved.pixelColor(99, 470).blue(), 248, 12);
}

TEST_F(ChartsTab, SheetThatEndsAfterTheTabIsIgnored) {
  const TemporaryFolder folder;
  open(twentyOfEach());
  fakes.savePanel->answersAtOnce = false;
  fakes.savePanel->answer = folder / "chart.jpg";
  tab->tapSave();
  tab.reset();
  fakes.savePanel->finish();
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(ChartsTab, SavingFadesTheDetailsOut) {
  open(twentyOfEach());
  chooseAndGrow(2);
  clickBar(2);
  tab->tapSave();
  EXPECT_EQ(tab->viewPopoverDetailsChart()->alphaValue(), 0.0);
}

}  // namespace
}  // namespace quillmeter
