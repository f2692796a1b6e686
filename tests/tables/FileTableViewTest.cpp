#include "tables/FileTableView.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <algorithm>
#include <set>

#include "controls/Theme.h"
#include "helpers/ProjectFixture.h"
#include "helpers/QtWaiting.h"
#include "tables/ClassicTables.h"
#include "tables/CleanUpTable.h"

namespace quillmeter {
namespace {

using testing::record;

class FileTableViewTest : public ::testing::Test {
 protected:
  FileTableViewTest() {
    view.setRevealButtonLook(RevealButtonLook::magnifier);
    view.resize(900, 400);
    view.setTable(
        testing::classicTable({record({.name = "b.m", .size = 1024, .lines = 20}),
                               record({.name = "A.m", .lines = 3}), record({.name = "a.h", .lines = 100})},
                              0, false, "en_US"));
    view.show();
    static_cast<void>(testing::waitUntilExposed(&view));
    view.setFocus();  // the header comes before it
  }

  void clickHeader(int section) {
    QHeaderView* header = view.horizontalHeader();
    const QPoint middle(header->sectionViewportPosition(section) + header->sectionSize(section) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
  }

  void dragEdgeOf(int section, int by) {
    QHeaderView* header = view.horizontalHeader();
    const QPoint edge(header->sectionViewportPosition(section) + header->sectionSize(section) - 1,
                      header->height() / 2);
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseMove(header->viewport(), edge + QPoint(by / 2, 0));
    QTest::mouseMove(header->viewport(), edge + QPoint(by, 0));
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(by, 0));
  }

  [[nodiscard]] QStringList shownNames() const {
    QStringList names;
    for (int row = 0; row < view.model()->rowCount(); ++row)
      names << view.model()->index(row, 2).data().toString();
    return names;
  }

  [[nodiscard]] QPoint middleOf(int row, int column) const {
    return view.visualRect(view.model()->index(row, column)).center();
  }

  FileTableView view;
};

TEST_F(FileTableViewTest, AHeaderClickSortsAscendingAndTheNextOneDescending) {
  EXPECT_EQ(shownNames(), QStringList({QStringLiteral("a.h"), QStringLiteral("A.m"), QStringLiteral("b.m")}));
  clickHeader(2);
  EXPECT_EQ(shownNames(), QStringList({QStringLiteral("A.m"), QStringLiteral("a.h"), QStringLiteral("b.m")}));
  EXPECT_EQ(view.horizontalHeader()->sortIndicatorSection(), 2);
  EXPECT_EQ(view.horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
  clickHeader(2);
  EXPECT_EQ(shownNames(), QStringList({QStringLiteral("b.m"), QStringLiteral("a.h"), QStringLiteral("A.m")}));
  EXPECT_EQ(view.horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(FileTableViewTest, TheHeaderHasRoomForEveryWordOnALineOfItsOwn) {
  const QHeaderView* header = view.horizontalHeader();
  const int shortColumns = header->height();
  view.setTable(testing::classicTable({record({.name = "b.m"})}, 0, true));
  QCoreApplication::processEvents();
  QFont font = header->font();
  font.setPixelSize(kCaptionSize);
  EXPECT_GE(header->height(), 3 * QFontMetrics(font).height()) << "Lines / with / comments";
  view.setTable(testing::classicTable({record({.name = "b.m"})}, 0, false));
  QCoreApplication::processEvents();
  EXPECT_EQ(header->height(), shortColumns);
}

TEST_F(FileTableViewTest, TheSortArrowHidesNoHeader) {
  view.setStyleSheet(styleSheetFor(themeFor(view.palette())));
  view.resize(6 * kMinimumColumnWidth + 10, 300);
  view.setFocus();  // the header would mark it
  QHeaderView* header = view.horizontalHeader();
  for (const int column : {0, 2, 3, 4, 5}) {
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
      header->setSortIndicator(-1, order);
      const QImage plain = header->viewport()->grab().toImage();
      header->setSortIndicator(column, order);
      const QImage sorted = header->viewport()->grab().toImage();
      const QRgb background = plain.pixel(1, 1);
      int arrow = 0;
      int hidden = 0;
      for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
          if (plain.pixel(x, y) == sorted.pixel(x, y)) continue;
          ++(plain.pixel(x, y) == background ? arrow : hidden);
        }
      }
      EXPECT_GT(arrow, 20) << column << ' ' << order;
      EXPECT_EQ(hidden, 0) << column << ' ' << order;
    }
  }
}

TEST_F(FileTableViewTest, NothingCoversTheRoundCornersOfTheBorder) {
  view.setProperty("focusRing", true);  // so that the border is a dark one
  view.setStyleSheet(styleSheetFor(themeFor(view.palette())));
  view.setTable(testing::classicTable(FileList(50, record({.name = "a.c"})), 0, false));
  QCoreApplication::processEvents();
  ASSERT_TRUE(view.verticalScrollBar()->isVisible());
  const QImage image = view.grab().toImage();
  constexpr int lightBlue = 200;
  constexpr int onTheArc = 2;
  for (const int x : {onTheArc, image.width() - 1 - onTheArc}) {
    for (const int y : {onTheArc, image.height() - 1 - onTheArc})
      EXPECT_LT(image.pixelColor(x, y).lightness(), lightBlue) << x << ' ' << y;
  }
}

TEST_F(FileTableViewTest, TheTabKeySelectsTheFirstRow) {
  QFocusEvent arrival(QEvent::FocusIn, Qt::TabFocusReason);
  QCoreApplication::sendEvent(&view, &arrival);
  EXPECT_EQ(view.selectionModel()->selectedRows(), QModelIndexList({view.model()->index(0, 0)}));
  view.selectRow(2);
  QCoreApplication::sendEvent(&view, &arrival);
  EXPECT_EQ(view.selectionModel()->selectedRows(), QModelIndexList({view.model()->index(2, 0)}))
      << "a row that is selected stays so";
}

TEST_F(FileTableViewTest, AClickOnTheViewHeaderChangesNothing) {
  clickHeader(3);
  const QStringList sorted = shownNames();
  clickHeader(1);
  EXPECT_EQ(shownNames(), sorted);
  EXPECT_EQ(view.horizontalHeader()->sortIndicatorSection(), 3) << "the arrow stays where it was";
  EXPECT_EQ(view.horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
}

TEST_F(FileTableViewTest, ANewTableHasNoSortArrow) {
  clickHeader(3);
  view.setTable(view.table());
  EXPECT_EQ(view.horizontalHeader()->sortIndicatorSection(), -1);
  clickHeader(1);
  EXPECT_EQ(view.horizontalHeader()->sortIndicatorSection(), -1) << "nor the memory of one";
}

/// How many points of a row of a picture differ from its first point.
int marksIn(const QImage& image, int y) {
  int marks = 0;
  for (int x = 0; x < image.width(); ++x)
    marks += image.pixel(x, y) != image.pixel(0, y) ? 1 : 0;
  return marks;
}

TEST_F(FileTableViewTest, TheSortArrowPointsDownForAnAscendingOrderAndUpForADescendingOne) {
  QHeaderView* header = view.horizontalHeader();
  constexpr int arrowTop = 2;
  constexpr int arrowFoot = 6;
  for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
    header->setSortIndicator(3, order);
    const QImage image =
        header->viewport()
            ->grab(QRect(header->sectionViewportPosition(3) + 4, 0, header->sectionSize(3) - 8, 9))
            .toImage();
    const int top = marksIn(image, arrowTop);
    const int foot = marksIn(image, arrowFoot);
    if (order == Qt::AscendingOrder) {
      EXPECT_GT(top, foot);
    } else {
      EXPECT_LT(top, foot);
    }
  }
}

TEST_F(FileTableViewTest, TheHeaderSortsFromTheKeyboard) {
  QHeaderView* header = view.horizontalHeader();
  static_cast<void>(testing::waitUntilActive(&view));
  view.setFocus();
  QTest::keyClick(&view, Qt::Key_Backtab);
  ASSERT_TRUE(header->hasFocus());
  QTest::keyClick(header, Qt::Key_Right);
  QTest::keyClick(header, Qt::Key_Right);
  QTest::keyClick(header, Qt::Key_Right);
  QTest::keyClick(header, Qt::Key_Space);
  EXPECT_EQ(shownNames(), QStringList({QStringLiteral("A.m"), QStringLiteral("b.m"), QStringLiteral("a.h")}));
  QTest::keyClick(header, Qt::Key_Return);
  EXPECT_EQ(shownNames(), QStringList({QStringLiteral("a.h"), QStringLiteral("b.m"), QStringLiteral("A.m")}));
  QTest::keyClick(header, Qt::Key_Home);
  QTest::keyClick(header, Qt::Key_Right);
  QTest::keyClick(header, Qt::Key_Space);
  EXPECT_EQ(header->sortIndicatorSection(), 3) << "the column of buttons does not sort";
  QTest::keyClick(header, Qt::Key_Tab);
  EXPECT_TRUE(view.hasFocus());
}

TEST_F(FileTableViewTest, ARightClickBesideTheRowsOffersNothing) {
  const auto menuAfterRightClick = [this](QPoint point) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, view.viewport()->mapToGlobal(point));
    QApplication::sendEvent(view.viewport(), &event);
    auto* menu = view.findChild<QMenu*>();
    const bool isThere = menu != nullptr && menu->isVisible();
    delete menu;
    return isThere;
  };
  view.setCurrentIndex(view.model()->index(0, 2));
  EXPECT_TRUE(menuAfterRightClick(middleOf(1, 2)));
  EXPECT_FALSE(menuAfterRightClick(QPoint(middleOf(1, 2).x(), view.viewport()->height() - 4)));
}

TEST_F(FileTableViewTest, NoBoxStandsAroundTheCellThatTheKeyboardHasReached) {
  static_cast<void>(testing::waitUntilActive(&view));
  view.setFocus();
  view.selectRow(1);
  const auto row = [this] {
    return view.viewport()->grab(view.visualRect(view.model()->index(1, 3))).toImage();
  };
  const QImage other = row();
  view.selectionModel()->setCurrentIndex(view.model()->index(1, 3), QItemSelectionModel::NoUpdate);
  EXPECT_EQ(row(), other);
}

TEST_F(FileTableViewTest, PicturesOnASelectedRowStandOutFromIt) {
  view.setStyleSheet(styleSheetFor(themeFor(view.palette())));
  view.selectRow(0);
  for (const int column : {0, 1}) {
    const QRect cell = view.visualRect(view.model()->index(0, column));
    const QImage image = view.viewport()->grab(cell).toImage();
    const QPoint centre = image.rect().center();
    const int reach = column == 0 ? 11 : 7;  // half the picture and the rim of what it stands on
    EXPECT_EQ(image.pixelColor(centre - QPoint(reach, 0)), QColor(Qt::white)) << column;
  }
}

TEST_F(FileTableViewTest, HeadersAndNamesCanBeReadWhereThereIsRoom) {
  view.setStyleSheet(styleSheetFor(themeFor(view.palette())));
  view.setTable(testing::classicTable({record({.name = "NotebookControllerWithName.m"})}, 0, true));
  QFont font = view.horizontalHeader()->font();
  font.setPixelSize(kCaptionSize);
  constexpr int smallestTable = 568;
  constexpr int usualTable = 900;
  for (const int width : {smallestTable, usualTable}) {
    view.resize(width, 300);
    EXPECT_GE(view.columnWidth(6), QFontMetrics(font).horizontalAdvance(QStringLiteral("comments"))) << width;
  }
  EXPECT_GE(view.columnWidth(2),
            view.fontMetrics().horizontalAdvance(QStringLiteral("NotebookControllerWithName.m")));
}

TEST_F(FileTableViewTest, WidthsAreThoseOfTheTableThatIsShown) {
  const auto widthsFor = [this](const char* name, std::int64_t lines) {
    view.setTable(testing::classicTable({record({.name = name, .lines = lines})}, 0, true));
    std::vector<int> widths;
    for (int column = 0; column < view.model()->columnCount(); ++column)
      widths.push_back(view.columnWidth(column));
    return widths;
  };
  const std::vector<int> usual = widthsFor("a.m", 7);
  EXPECT_NE(widthsFor("a.m", 1'234'567'890'123'456'789), usual);
  EXPECT_NE(widthsFor("NotebookControllerWithAVeryLongName.m", 7), usual);
  EXPECT_EQ(widthsFor("a.m", 7), usual);
}

TEST_F(FileTableViewTest, ColumnsFillTheViewAndKeepTheirLimits) {
  int sum = 0;
  for (int column = 0; column < view.model()->columnCount(); ++column) {
    EXPECT_GE(view.columnWidth(column), 44);
    sum += view.columnWidth(column);
  }
  EXPECT_EQ(sum, view.viewport()->width());
  EXPECT_EQ(view.columnWidth(0), 60);
  EXPECT_EQ(view.columnWidth(1), 60);
}

TEST_F(FileTableViewTest, ANarrowViewKeepsTheMinimaAndScrolls) {
  view.resize(200, 300);
  for (int column = 0; column < view.model()->columnCount(); ++column)
    EXPECT_EQ(view.columnWidth(column), 44) << column;
}

TEST_F(FileTableViewTest, AColumnResizedByHandKeepsToItsLimits) {
  const int name = view.columnWidth(2);
  dragEdgeOf(2, 30);
  EXPECT_EQ(view.columnWidth(2), name + 30);
  dragEdgeOf(0, 300);
  EXPECT_EQ(view.columnWidth(0), 60);
  dragEdgeOf(3, -300);
  EXPECT_EQ(view.columnWidth(3), 44);
  EXPECT_EQ(view.horizontalHeader()->sortIndicatorSection(), -1) << "a drag is no click";
}

TEST_F(FileTableViewTest, AWiderViewSharesItsRoomFromTheWidthsSetByHand) {
  view.setColumnWidth(2, view.columnWidth(2) + 40);
  view.setColumnWidth(3, view.columnWidth(3) - 40);
  const int name = view.columnWidth(2);
  const int lines = view.columnWidth(3);
  view.resize(view.width() + 40, view.height());
  EXPECT_EQ(view.columnWidth(2), name + 10);
  EXPECT_EQ(view.columnWidth(3), lines + 10);
}

TEST_F(FileTableViewTest, ReturnRevealsTheCurrentRow) {
  const QSignalSpy revealed(&view, &FileTableView::revealRequested);
  const FileTable table = view.table();
  view.setTable(FileTable());
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_EQ(revealed.count(), 0) << "no current row";
  view.setTable(table);
  view.setCurrentIndex(view.model()->index(1, 2));
  QTest::keyClick(&view, Qt::Key_Return);
  QTest::keyClick(&view, Qt::Key_Down);
  QTest::keyClick(&view, Qt::Key_Enter);
  ASSERT_EQ(revealed.count(), 2);
  EXPECT_EQ(revealed[0][0].toInt(), 1);
  EXPECT_EQ(revealed[1][0].toInt(), 2);
}

TEST_F(FileTableViewTest, TypingFindsANameIgnoringCase) {
  QTest::keyClicks(&view, QStringLiteral("B"));
  EXPECT_EQ(view.currentIndex().row(), 2);
}

TEST_F(FileTableViewTest, TypingBeginsWithTheFirstRow) {
  view.setCurrentIndex(QModelIndex());
  QTest::keyClicks(&view, QStringLiteral("a"));
  EXPECT_EQ(view.currentIndex().row(), 0);
  QTest::keyClicks(&view, QStringLiteral(".m"));
  EXPECT_EQ(view.currentIndex().row(), 1);
}

TEST_F(FileTableViewTest, TypingFindsANameWithABlank) {
  view.setTable(
      testing::classicTable({record({.name = "Note one.m"}), record({.name = "Note two.m"})}, 0, false));
  QTest::keyClicks(&view, QStringLiteral("note t"));
  EXPECT_EQ(view.currentIndex().row(), 1);
  EXPECT_EQ(view.selectionModel()->selectedRows().size(), 1);
}

TEST_F(FileTableViewTest, AnEmptyTableOffersNothingToDo) {
  const auto offersAnything = [this] {
    const QList<QAction*> actions = view.actions();
    return std::any_of(actions.begin(), actions.end(),
                       [](const QAction* action) { return action->isEnabled(); });
  };
  EXPECT_TRUE(offersAnything());
  view.setTable(testing::classicTable({}, 0, false));
  EXPECT_FALSE(offersAnything());
  view.setTable(testing::classicTable({record({.name = "a.m"})}, 0, false));
  EXPECT_TRUE(offersAnything());
}

TEST_F(FileTableViewTest, SortingATableWithoutColumnsFromTheKeyboardIsHarmless) {
  view.setTable(FileTable());
  QHeaderView* header = view.horizontalHeader();
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Left, Qt::Key_Return, Qt::Key_End, Qt::Key_Enter})
    QTest::keyClick(header, key);
  EXPECT_EQ(header->sortIndicatorSection(), -1);
}

TEST_F(FileTableViewTest, TypingIntoAnEmptyTableIsHarmless) {
  view.setTable(FileTable());
  QTest::keyClicks(&view, QStringLiteral("a"));
  view.setTable(testing::classicTable({}, 0, false));
  QTest::keyClicks(&view, QStringLiteral("a"));
  EXPECT_FALSE(view.currentIndex().isValid());
}

TEST_F(FileTableViewTest, CopyTakesTheSelectedRowsInTheirOrder) {
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  view.clearSelection();
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before")) << "nothing is selected";
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middleOf(2, 2));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(0, 3));
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("h\ta.h\t100\t0\t0\nm\tb.m\t20\t0\t1\n"));
}

TEST_F(FileTableViewTest, AClickOnAButtonRevealsItsRow) {
  const QSignalSpy revealed(&view, &FileTableView::revealRequested);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middleOf(2, 1));
  ASSERT_EQ(revealed.count(), 1);
  EXPECT_EQ(revealed[0][0].toInt(), 2);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middleOf(1, 2));
  QTest::mouseClick(view.viewport(), Qt::RightButton, {}, middleOf(1, 1));
  EXPECT_EQ(revealed.count(), 1) << "other cells and other mouse buttons reveal nothing";
}

TEST_F(FileTableViewTest, AButtonLetGoElsewhereRevealsNothing) {
  const QSignalSpy revealed(&view, &FileTableView::revealRequested);
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, middleOf(0, 1));
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, middleOf(2, 1));
  EXPECT_EQ(revealed.count(), 0);
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, middleOf(0, 2));
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, middleOf(0, 1));
  EXPECT_EQ(revealed.count(), 0);
}

TEST_F(FileTableViewTest, AButtonLetGoBelowTheRowsIsNotPressedAnyMore) {
  const ThemeColors& colors = themeFor(view.palette());
  view.setRevealButtonLook(RevealButtonLook::bullet);
  const QSignalSpy revealed(&view, &FileTableView::revealRequested);
  const QPoint besideTheBullet = middleOf(0, 1) - QPoint(8, 0);
  const QPoint belowTheRows(middleOf(0, 1).x(), view.viewport()->height() - 5);
  const auto colour = [&] { return view.viewport()->grab().toImage().pixelColor(besideTheBullet); };
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, besideTheBullet);
  EXPECT_EQ(colour(), colors.accent);
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, belowTheRows);
  EXPECT_EQ(colour(), colors.card);
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, belowTheRows);
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, besideTheBullet);
  EXPECT_EQ(revealed.count(), 0) << "the press was elsewhere";
}

TEST_F(FileTableViewTest, ABulletLetsGoWhenThePointerLeavesAndIsPressedWhenItComesBack) {
  const ThemeColors& colors = themeFor(view.palette());
  view.setRevealButtonLook(RevealButtonLook::bullet);
  const QPoint bullet = middleOf(0, 1) - QPoint(8, 0);
  const auto colour = [&] { return view.viewport()->grab().toImage().pixelColor(bullet); };
  const auto move = [&](QPoint point) {
    QMouseEvent event(QEvent::MouseMove, point, view.viewport()->mapToGlobal(point), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &event);
  };
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, bullet);
  ASSERT_EQ(colour(), colors.accent);
  move(middleOf(2, 3));
  EXPECT_EQ(colour(), colors.card);
  move(bullet);
  EXPECT_EQ(colour(), colors.accent);
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, bullet);
}

TEST_F(FileTableViewTest, TheBulletHasABorderAndTheMagnifierHasNone) {
  const QRect cell = view.visualRect(view.model()->index(0, 1));
  const auto colours = [&](FileTableView& shown) {
    const QImage image = shown.viewport()->grab(cell).toImage();
    std::set<QRgb> seen;
    const int frame = image.width() / 2 - 13;  // left of the picture, in the bordered button
    for (int x = frame - 2; x <= frame + 2; ++x)
      seen.insert(image.pixel(x, image.height() / 2));
    return seen.size();
  };
  EXPECT_EQ(colours(view), 1U);
  FileTableView cleanUp;
  cleanUp.setRevealButtonLook(RevealButtonLook::bullet);
  cleanUp.resize(view.size());
  cleanUp.setTable(cleanUpTable({record({.name = "a.c"})}, classicKinds()));
  EXPECT_GT(colours(cleanUp), 1U);
}

TEST_F(FileTableViewTest, ANameWithLineBreaksStandsOnOneLine) {
  const auto& delegate = *view.itemDelegate();
  EXPECT_EQ(static_cast<const FileTableDelegate&>(delegate).displayText(QStringLiteral("a\nb\tc\u2028d"), {}),
            QStringLiteral("a b c d"));
}

TEST_F(FileTableViewTest, ALongNameShowsWholeInAToolTip) {
  const std::string name = std::string(1000, 'x') + "<b>.c";
  view.setTable(testing::classicTable({record({.name = name})}, 0, false));
  QHelpEvent event(QEvent::ToolTip, middleOf(0, 2), view.viewport()->mapToGlobal(middleOf(0, 2)));
  QApplication::sendEvent(view.viewport(), &event);
  const QString tip = QToolTip::text();
  EXPECT_EQ(tip.count(QLatin1Char('x')), 1000);
  EXPECT_TRUE(tip.contains(QStringLiteral("&lt;b&gt;.c"))) << "markup in a name is text";
  EXPECT_GE(tip.count(QStringLiteral("<br>")), 9) << "in lines that fit a screen";
  QToolTip::hideText();
}

TEST_F(FileTableViewTest, AnEmptyTableSaysWhy) {
  view.setTable(testing::classicTable({}, 0, false));
  const QImage without = view.viewport()->grab().toImage();
  view.setEmptyText(QStringLiteral("This project has no source files."));
  const QImage with = view.viewport()->grab().toImage();
  EXPECT_NE(without, with);
}

}  // namespace
}  // namespace quillmeter
