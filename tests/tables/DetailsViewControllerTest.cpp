#include "tables/DetailsViewController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QFrame>
#include <QGraphicsOpacityEffect>
#include <QHeaderView>
#include <QLabel>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QTest>

#include "controls/ButtonTextColor.h"
#include "controls/Theme.h"
#include "helpers/FakeServices.h"
#include "helpers/ProjectFixture.h"
#include "helpers/QtWaiting.h"
#include "tables/FileTableView.h"
#include "tables/TablesTestSupport.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter {
namespace {

using testing::child;
using ::testing::ElementsAre;
using testing::record;
using namespace std::chrono_literals;

constexpr const char* kKey = "DETAILS_SHOW_MINIMAL";

class DetailsViewControllerTest : public ::testing::Test {
 protected:
  DetailsViewControllerTest() { make(); }

  void make() {
    controller = DetailsViewController::create(host, fakes.services());
    controller->resize(900, 600);
  }

  [[nodiscard]] QPushButton& button(const char* name) const { return child<QPushButton>(*controller, name); }
  [[nodiscard]] FileTableView& table() const { return child<FileTableView>(*controller, "tableDetails"); }
  [[nodiscard]] QFrame& popup() const { return child<QFrame>(*controller, "viewFilters"); }
  [[nodiscard]] double opacity() const {
    return qobject_cast<QGraphicsOpacityEffect*>(popup().graphicsEffect())->opacity();
  }
  [[nodiscard]] const QPropertyAnimation& fade() const {
    return *controller->findChild<QPropertyAnimation*>();
  }
  /// The fades themselves run on the toolkit's clock.
  void waitForFade() const {
    ASSERT_TRUE(testing::waitFor([this] { return fade().state() == QAbstractAnimation::Stopped; }));
  }
  void choose(int filter) {
    button("btnFilters").click();
    fakes.delayedCalls->advance(300ms);
    button(qPrintable(QStringLiteral("btnFilter%1").arg(filter + 1))).click();
    fakes.delayedCalls->advance(300ms);
  }
  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> result;
    for (const auto& file : controller->currentDataArray())
      result.push_back(*file->fileName());
    return result;
  }
  [[nodiscard]] QStringList headers() const {
    QStringList result;
    for (int column = 0; column < table().model()->columnCount(); ++column)
      result << table().model()->headerData(column, Qt::Horizontal).toString();
    return result;
  }

  testing::TablesHost host{
      testing::projectWith({record({.name = "b.m", .size = 1536, .lines = 2047}), record({.name = "A.m"}),
                            record({.name = "a.h"}), record({.name = "z.cpp"}), record({.name = "photo.png"}),
                            record({.name = "Main.nib"}), record({.name = "Menu.xib"})})};
  testing::FakeServices fakes;
  std::unique_ptr<DetailsViewController> controller;
};

TEST_F(DetailsViewControllerTest, BeginsWithAllSourcesAndTheShortColumns) {
  EXPECT_EQ(controller->currentTableFilter(), 0U);
  EXPECT_THAT(names(), ElementsAre("a.h", "A.m", "b.m", "z.cpp"));
  EXPECT_EQ(headers().join(QLatin1Char('|')), QStringLiteral("Type|View|Filename|LOC|SLOC|Size (KB)"));
  EXPECT_FALSE(child<QCheckBox>(*controller, "checkMinimalVersion").isChecked());
  EXPECT_TRUE(popup().isHidden());
  EXPECT_EQ(opacity(), 0.0);
  EXPECT_EQ(child<QLabel>(*controller, "lblTextTitle1").property("backgroundStyle").toInt(), 2);
}

TEST_F(DetailsViewControllerTest, TheBoxShowsMoreColumnsAndIsRemembered) {
  auto& box = child<QCheckBox>(*controller, "checkMinimalVersion");
  box.click();
  EXPECT_EQ(headers().join(QLatin1Char('|')),
            QStringLiteral("Type|View|Filename|LOC|KLOC|SLOC|Lines with comments|Words|Chars|Size (KB)"));
  EXPECT_EQ(fakes.userDefaults->boolForKey(kKey), true);
  EXPECT_EQ(fakes.userDefaults->synchronized, 1);
  make();
  EXPECT_TRUE(child<QCheckBox>(*controller, "checkMinimalVersion").isChecked());
  EXPECT_EQ(headers().size(), 10);
  child<QCheckBox>(*controller, "checkMinimalVersion").click();
  EXPECT_EQ(fakes.userDefaults->boolForKey(kKey), false);
  EXPECT_EQ(fakes.userDefaults->synchronized, 2);
  EXPECT_EQ(headers().size(), 6);
}

TEST_F(DetailsViewControllerTest, NothingIsRememberedThatNobodyChose) {
  choose(4);
  EXPECT_TRUE(fakes.userDefaults->values.empty());
  make();
  EXPECT_EQ(controller->currentTableFilter(), 0U);
}

TEST_F(DetailsViewControllerTest, EachButtonShowsItsGroup) {
  const std::vector<std::vector<std::string>> expected = {
      {"a.h", "A.m", "b.m", "z.cpp"}, {"z.cpp"}, {"a.h"}, {"A.m", "b.m"}, {"photo.png"},
      {"Main.nib", "Menu.xib"}};
  for (int filter = 5; filter >= 0; --filter) {
    choose(filter);
    EXPECT_EQ(controller->currentTableFilter(), static_cast<std::uint32_t>(filter));
    EXPECT_EQ(names(), expected[static_cast<std::size_t>(filter)]);
    EXPECT_EQ(headers().size(), filter < 4 ? 6 : 4);
  }
}

TEST_F(DetailsViewControllerTest, AnotherSenderLeavesTheGroupAsItIs) {
  choose(3);
  controller->tapSelectedFilter(&table());
  EXPECT_EQ(controller->currentTableFilter(), 3U);
  controller->tapSelectedFilter(nullptr);
  EXPECT_EQ(controller->currentTableFilter(), 3U);
}

TEST_F(DetailsViewControllerTest, ARebuildReturnsToTheOrderOfNames) {
  table().horizontalHeader()->setSortIndicator(3, Qt::DescendingOrder);
  EXPECT_THAT(names(), ElementsAre("b.m", "a.h", "A.m", "z.cpp"));
  child<QCheckBox>(*controller, "checkMinimalVersion").click();
  EXPECT_THAT(names(), ElementsAre("a.h", "A.m", "b.m", "z.cpp"));
}

TEST_F(DetailsViewControllerTest, TheFilterButtonIsDisabledWhileThePopupFades) {
  auto& filters = button("btnFilters");
  filters.click();
  EXPECT_FALSE(filters.isEnabled());
  EXPECT_FALSE(popup().isHidden());
  EXPECT_EQ(fade().endValue().toDouble(), 1.0);
  EXPECT_EQ(fade().duration(), 300);
  fakes.delayedCalls->advance(299ms);
  EXPECT_FALSE(filters.isEnabled());
  fakes.delayedCalls->advance(1ms);
  EXPECT_TRUE(filters.isEnabled());
  EXPECT_TRUE(filters.isChecked());
  EXPECT_FALSE(popup().isHidden());
  waitForFade();
  EXPECT_EQ(opacity(), 1.0);

  filters.click();
  EXPECT_FALSE(filters.isEnabled());
  EXPECT_EQ(fade().endValue().toDouble(), 0.0);
  EXPECT_FALSE(popup().isHidden());
  fakes.delayedCalls->advance(299ms);
  EXPECT_FALSE(popup().isHidden()) << "it fades out first";
  fakes.delayedCalls->advance(1ms);
  EXPECT_TRUE(popup().isHidden());
  EXPECT_TRUE(filters.isEnabled());
  EXPECT_FALSE(filters.isChecked());
  waitForFade();
  EXPECT_EQ(opacity(), 0.0);
}

TEST_F(DetailsViewControllerTest, ThePopupHighlightsTheCurrentGroup) {
  choose(2);
  button("btnFilters").click();
  for (int i = 1; i <= 6; ++i)
    EXPECT_EQ(button(qPrintable(QStringLiteral("btnFilter%1").arg(i))).isChecked(), i == 3) << i;
}

TEST_F(DetailsViewControllerTest, AChoiceFadesThePopupOutAndTurnsItsButtonOff) {
  button("btnFilters").click();
  fakes.delayedCalls->advance(300ms);
  button("btnFilter5").click();
  EXPECT_FALSE(button("btnFilters").isChecked());
  EXPECT_TRUE(button("btnFilters").isEnabled());
  EXPECT_EQ(fade().endValue().toDouble(), 0.0);
  EXPECT_FALSE(popup().isHidden());
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(popup().isHidden());
}

TEST_F(DetailsViewControllerTest, AChoiceTakesTheKeyboardToTheFirstRow) {
  controller->show();
  static_cast<void>(testing::waitUntilActive(controller.get()));
  choose(3);
  EXPECT_TRUE(table().hasFocus());
  EXPECT_EQ(table().selectionModel()->selectedRows(), QModelIndexList({table().model()->index(0, 0)}));
  QTest::keyClick(&table(), Qt::Key_Down);
  QTest::keyClick(&table(), Qt::Key_Return);
  EXPECT_THAT(fakes.fileBrowser->revealed, ElementsAre("/project/b.m"));
}

TEST_F(DetailsViewControllerTest, AChoiceWithTheMouseSelectsNoRow) {
  controller->show();
  static_cast<void>(testing::waitUntilActive(controller.get()));
  button("btnFilters").click();
  fakes.delayedCalls->advance(300ms);
  QTest::mouseClick(&button("btnFilter4"), Qt::LeftButton);
  fakes.delayedCalls->advance(300ms);
  EXPECT_THAT(names(), ElementsAre("A.m", "b.m"));
  EXPECT_TRUE(table().hasFocus());
  EXPECT_FALSE(table().selectionModel()->hasSelection());
}

TEST_F(DetailsViewControllerTest, TheFilterButtonLooksOnWhileThePopupIsOpen) {
  controller->setStyleSheet(styleSheetFor(themeFor(controller->palette())));
  controller->show();
  auto& filters = button("btnFilters");
  const auto background = [&] { return filters.grab().toImage().pixelColor(8, filters.height() / 2); };
  filters.click();
  fakes.delayedCalls->advance(300ms);
  EXPECT_EQ(background(), themeFor(controller->palette()).accent);
  filters.click();
  fakes.delayedCalls->advance(300ms);
  EXPECT_EQ(background(), themeFor(controller->palette()).card);
}

TEST_F(DetailsViewControllerTest, SelectedRowsAreMarkedAsInASourceList) {
  EXPECT_EQ(table().selectionHighlightStyle(), SelectionHighlightStyle::sourceList);
  EXPECT_EQ(static_cast<int>(table().selectionHighlightStyle()), 1);
}

TEST_F(DetailsViewControllerTest, ATabChangeClosesThePopupWithoutAFade) {
  button("btnFilters").click();
  fakes.delayedCalls->advance(300ms);
  waitForFade();
  ASSERT_EQ(opacity(), 1.0);
  controller->forcePopupClose();
  EXPECT_EQ(opacity(), 0.0);
  EXPECT_NE(fade().state(), QAbstractAnimation::Running);
  EXPECT_FALSE(button("btnFilters").isChecked());
  EXPECT_FALSE(popup().isHidden());
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(popup().isHidden());
}

TEST_F(DetailsViewControllerTest, APopupOpenedAgainAtOnceStaysOpen) {
  controller->forcePopupClose();
  button("btnFilters").click();
  fakes.delayedCalls->advance(600ms);
  EXPECT_FALSE(popup().isHidden()) << "the end of the earlier close does not take it away";
}

TEST_F(DetailsViewControllerTest, EscapeClosesThePopup) {
  controller->show();
  static_cast<void>(testing::waitUntilActive(controller.get()));
  button("btnFilters").click();
  fakes.delayedCalls->advance(300ms);
  QTest::keyClick(&button("btnFilter1"), Qt::Key_Escape);
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(popup().isHidden());
  EXPECT_TRUE(button("btnFilters").hasFocus()) << "so that the keyboard goes on where it was";
}

TEST_F(DetailsViewControllerTest, FilterButtonsAreWhiteAndDarkGreyWhenOn) {
  button("btnFilters").click();
  const QColor white(Qt::white);
  for (int i = 1; i <= 6; ++i) {
    auto& filter = button(qPrintable(QStringLiteral("btnFilter%1").arg(i)));
    EXPECT_EQ(textColor(&filter), white);
    EXPECT_TRUE(filter.styleSheet().contains(QStringLiteral("#ff555555"))) << "the colour of the on state";
  }
}

TEST_F(DetailsViewControllerTest, SaveTicksTheGroupAndGoesToTheExportTab) {
  using enum FileGroup;
  const std::vector<FileGroups> groups = {{c, headers, objectiveC}, {c}, {headers}, {objectiveC}, {images},
                                          {interfaceFiles}};
  for (int filter = 0; filter < 6; ++filter) {
    choose(filter);
    button("btnSave").click();
    ASSERT_EQ(host.exportGroups.size(), static_cast<std::size_t>(filter) + 1);
    EXPECT_EQ(host.exportGroups.back(), groups[static_cast<std::size_t>(filter)]) << filter;
    EXPECT_EQ(host.exportTabTaps, filter);
    fakes.delayedCalls->advance(99ms);
    EXPECT_EQ(host.exportTabTaps, filter) << "not before a tenth of a second has passed";
    fakes.delayedCalls->advance(1ms);
    EXPECT_EQ(host.exportTabTaps, filter + 1);
  }
}

TEST_F(DetailsViewControllerTest, ATabThatIsGoneGetsNoMessages) {
  button("btnFilters").click();
  button("btnSave").click();
  controller.reset();
  fakes.delayedCalls->advance(1s);
  EXPECT_EQ(host.exportTabTaps, 0);
}

TEST_F(DetailsViewControllerTest, AMagnifierRevealsTheFileOfItsRow) {
  controller->show();
  QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                    table().visualRect(table().model()->index(2, 1)).center());
  EXPECT_THAT(fakes.fileBrowser->revealed, ElementsAre("/project/b.m"));
  controller->tapViewInFinder(-1);
  controller->tapViewInFinder(4);
  EXPECT_EQ(fakes.fileBrowser->revealed.size(), 1U) << "rows that are not there reveal nothing";
}

TEST_F(DetailsViewControllerTest, CellsSayWhatTheRecordsHold) {
  const auto* model = table().model();
  EXPECT_EQ(model->index(2, 3).data().toString(), QStringLiteral("2047"));
  EXPECT_EQ(model->index(2, 5).data().toDouble(), 1.5);
}

TEST_F(DetailsViewControllerTest, TheFootCountsTheRows) {
  EXPECT_EQ(child<QLabel>(*controller, "lblRowCount").text(), QStringLiteral("4 files – source files"));
  choose(4);
  EXPECT_EQ(child<QLabel>(*controller, "lblRowCount").text(), QStringLiteral("1 file – images"));
}

TEST(DetailsViewController, AProjectWithoutFilesSaysSo) {
  testing::TablesHost host(testing::projectWith({}));
  const testing::FakeServices fakes;
  const auto controller = DetailsViewController::create(host, fakes.services());
  EXPECT_TRUE(controller->currentDataArray().empty());
  EXPECT_EQ(child<FileTableView>(*controller, "tableDetails").emptyText(),
            QStringLiteral("No file of this project was found on disk."));
}

TEST(DetailsViewController, ARecordWithoutAPathRevealsNothing) {
  const auto bare = std::make_shared<FileObject>();
  bare->setFileName("bare.c");
  testing::TablesHost host(testing::projectWith({bare}));
  const testing::FakeServices fakes;
  const auto controller = DetailsViewController::create(host, fakes.services());
  controller->tapViewInFinder(0);
  EXPECT_TRUE(fakes.fileBrowser->revealed.empty());
}

TEST_F(DetailsViewControllerTest, ClassicRulesHaveNoSwiftFilter) {
  EXPECT_TRUE(button("btnFilter7").isHidden());
  controller->tapSelectedFilter(&button("btnFilter7"));
  EXPECT_EQ(controller->currentTableFilter(), 0U);
}

class DetailsByCurrentRules : public DetailsViewControllerTest {
 protected:
  DetailsByCurrentRules() { make(); }
  void make() {
    controller = DetailsViewController::create(currentHost, fakes.services());
    controller->resize(900, 600);
  }
  void tap(const char* filter) { controller->tapSelectedFilter(&button(filter)); }

  testing::TablesHost currentHost{testing::projectWith(
      {record({.name = "a.swift", .lines = 3}), record({.name = "b.m"}), record({.name = "c.cc"}),
       record({.name = "d.png"}), record({.name = "e.xib"}), record({.name = "f.storyboard"})},
      "Fixture", currentKinds())};
};

TEST_F(DetailsByCurrentRules, SwiftFilesAreSourcesAndHaveAFilterOfTheirOwn) {
  EXPECT_THAT(names(), ElementsAre("a.swift", "b.m", "c.cc"));
  EXPECT_FALSE(button("btnFilter7").isHidden());
  tap("btnFilter7");
  EXPECT_THAT(names(), ElementsAre("a.swift"));
  EXPECT_TRUE(button("btnFilter7").isChecked());
  EXPECT_EQ(child<QLabel>(*controller, "lblRowCount").text(), QStringLiteral("1 file – Swift sources"));
}

TEST_F(DetailsByCurrentRules, OtherFiltersShowWhatTheyShowedAndStoryboardsAreInterfaceFiles) {
  tap("btnFilter2");
  EXPECT_THAT(names(), ElementsAre("c.cc"));
  tap("btnFilter4");
  EXPECT_THAT(names(), ElementsAre("b.m"));
  tap("btnFilter5");
  EXPECT_THAT(names(), ElementsAre("d.png"));
  tap("btnFilter6");
  EXPECT_THAT(names(), ElementsAre("e.xib", "f.storyboard"));
}

TEST_F(DetailsByCurrentRules, ExportTicksTheGroupsOfTheFilter) {
  tap("btnFilter7");
  controller->tapSave();
  tap("btnFilter6");
  controller->tapSave();
  EXPECT_THAT(currentHost.exportGroups,
              ElementsAre(FileGroups{FileGroup::swift},
                          FileGroups{FileGroup::interfaceFiles, FileGroup::storyboards}));
}

}  // namespace
}  // namespace quillmeter
