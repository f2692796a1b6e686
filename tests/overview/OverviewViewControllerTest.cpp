#include "overview/OverviewViewController.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <cstdlib>
#include <set>

#include "controls/ApplicationTheme.h"
#include "controls/Theme.h"
#include "helpers/KindsWithHpp.h"
#include "helpers/ProjectFixture.h"
#include "overview/FigureLabel.h"
#include "overview/OverviewCaptions.h"
#include "overview/ShareBar.h"
#include "stats/FakeStatsHost.h"
#include "xcode/CurrentKinds.h"

namespace quillmeter {
namespace {

using namespace Qt::StringLiterals;

using testing::FakeStatsHost;
using testing::projectWith;
using testing::record;

/// Sets the locale of the process's environment until it goes.
class UserLocale {
 public:
  explicit UserLocale(const QByteArray& name) { qputenv("LC_ALL", name); }
  ~UserLocale() { before_.isNull() ? qunsetenv("LC_ALL") : qputenv("LC_ALL", before_); }
  UserLocale(const UserLocale&) = delete;
  UserLocale& operator=(const UserLocale&) = delete;

 private:
  QByteArray before_ = qEnvironmentVariableIsSet("LC_ALL") ? qgetenv("LC_ALL") : QByteArray();
};

QString figure(const OverviewViewController& panel, std::size_t number) {
  return panel.lblSizeMetrics(number)->text();
}

TEST(OverviewViewController, ShowsTheLinesInLargeTypeAndTenFigures) {
  const UserLocale locale("en_US.UTF-8");
  FakeStatsHost host(projectWith({
      record({.name = "a.m", .size = 1536, .lines = 12345, .linesWithoutSpaces = 10000, .comments = 2001}),
      record({.name = "a.png", .size = 0}),
      record({.name = "b.xib", .size = 0, .lines = 50}),
      record({.name = "a.h", .size = 0}),
  }));
  const auto panel = OverviewViewController::create(host);
  EXPECT_EQ(panel->lblTotalNumberLines()->text(), u"12,345"_s);
  EXPECT_EQ(figure(*panel, 1), u"1.5 KB"_s);
  EXPECT_EQ(figure(*panel, 2), u"12,345"_s);
  EXPECT_EQ(figure(*panel, 3), u"12.35"_s);
  EXPECT_EQ(figure(*panel, 4), u"10,000"_s);
  EXPECT_EQ(figure(*panel, 5), u"2,001"_s);
  EXPECT_EQ(figure(*panel, 6), u"5,000"_s);
  EXPECT_EQ(panel->lblSizeMetrics7()->text(), u"2"_s);
  EXPECT_EQ(panel->lblSizeMetrics8()->text(), u"1"_s);
  EXPECT_EQ(panel->lblSizeMetrics9()->text(), u"1"_s);
  EXPECT_EQ(figure(*panel, 10), u"1,000"_s);
  EXPECT_EQ(panel->totalNumberLines(), 12345U);
  EXPECT_EQ(panel->totalNumberLinesWithSpaces(), 2345U);
  EXPECT_EQ(panel->totalNumberLinesWithComments(), 2001U);
}

TEST(OverviewViewController, FollowsTheUsersGrouping) {
  const UserLocale locale("de_DE.UTF-8");
  FakeStatsHost host(projectWith({record({.name = "a.m", .size = 1536, .lines = 12345})}));
  const auto panel = OverviewViewController::create(host);
  EXPECT_EQ(panel->lblTotalNumberLines()->text(), u"12.345"_s);
  EXPECT_EQ(figure(*panel, 1), u"1,5 KB"_s);
  EXPECT_EQ(figure(*panel, 3), u"12.35"_s);
}

TEST(OverviewViewController, ShowsZerosForAnEmptyProject) {
  FakeStatsHost host(projectWith({}));
  const auto panel = OverviewViewController::create(host);
  EXPECT_EQ(panel->lblTotalNumberLines()->text(), u"0"_s);
  EXPECT_EQ(figure(*panel, 1), u"0 B"_s);
  EXPECT_EQ(figure(*panel, 6), u"0"_s);
  EXPECT_EQ(figure(*panel, 10), u"0"_s);
}

TEST(OverviewViewController, KeepsItsFiguresWhenTheApplicationReadsAnotherProject) {
  FakeStatsHost host(projectWith({record({.name = "a.m", .lines = 7})}));
  const auto panel = OverviewViewController::create(host);
  host.project = projectWith({record({.name = "b.m", .lines = 9})});
  EXPECT_EQ(panel->lblTotalNumberLines()->text(), u"7"_s);
  panel->setTotalLinesOfCode(1);
  EXPECT_EQ(panel->lblTotalNumberLines()->text(), u"1"_s);
  EXPECT_EQ(panel->totalNumberLines(), 7U);
}

TEST(OverviewViewController, ToolTipsNameTheExtensionsOfTheProjectsOwnTable) {
  FakeStatsHost host(
      projectWith({record({.name = "a.hpp", .lines = 7})}, "Fixture", testing::kindsWithHpp()));
  const auto panel = OverviewViewController::create(host);
  EXPECT_EQ(panel->totalNumberLines(), 7U);
  EXPECT_TRUE(panel->lblSizeMetrics(2)->toolTip().contains(u".pch, .hpp)"_s));
  EXPECT_TRUE(panel->findChild<QLabel*>(u"lblCaptionTotal"_s)->toolTip().contains(u".pch, .hpp)"_s));
}

TEST(OverviewViewController, CaptionsAndToolTipsSayWhatTheListOfCaptionsSays) {
  FakeStatsHost host(projectWith({record({.name = "a.m", .lines = 7})}));
  const auto panel = OverviewViewController::create(host);
  EXPECT_EQ(panel->findChild<QLabel*>(u"lblCaptionTotal"_s)->text(),
            QString::fromUtf8(totalLinesCaption(classicKinds()).caption.data()));
  const OverviewCaptions captions = overviewCaptions(classicKinds());
  for (std::size_t number = 1; number <= kOverviewMetrics; ++number) {
    const OverviewCaption& expected = captions.at(number - 1);
    const QString definition = QString::fromUtf8(expected.definition.data());
    const auto* caption = panel->findChild<QLabel*>(u"lblCaption%1"_s.arg(number));
    ASSERT_NE(caption, nullptr);
    EXPECT_EQ(caption->text(), QString::fromUtf8(expected.caption.data()));
    EXPECT_EQ(caption->toolTip(), u"<p>%1</p>"_s.arg(definition.toHtmlEscaped()));
    const QLabel* const label = panel->lblSizeMetrics(number);
    EXPECT_EQ(label->toolTip(), caption->toolTip());
    EXPECT_EQ(label->accessibleDescription(), definition);
    EXPECT_EQ(label->accessibleName(), caption->text() + u": "_s + label->text());
  }
}

TEST(OverviewViewController, GroupsTheFiguresUnderThreeHeadingsOnCards) {
  FakeStatsHost host(projectWith({}));
  const auto panel = OverviewViewController::create(host);
  for (int number = 1; number <= 3; ++number) {
    const auto* heading = panel->findChild<QLabel*>(u"lblTextTitle%1"_s.arg(number));
    ASSERT_NE(heading, nullptr);
    EXPECT_FALSE(heading->text().isEmpty());
    EXPECT_EQ(heading->property("backgroundStyle").toInt(), 2);
    EXPECT_EQ(heading->parentWidget()->property("role").toString(), u"card"_s);
  }
}

TEST(OverviewViewController, CardsStayTogetherAtTheTopOfATallWindow) {
  FakeStatsHost host(projectWith({record({.name = "a.m", .lines = 30})}));
  const auto panel = OverviewViewController::create(host);
  panel->resize(1600, 2000);
  panel->show();
  QCoreApplication::processEvents();
  const auto* total = panel->findChild<QWidget*>(u"cardTotal"_s);
  EXPECT_LT(total->y(), 100);
  EXPECT_LE(total->height(), 200);
  const auto* lines = panel->findChild<QWidget*>(u"cardLines"_s);
  EXPECT_EQ(lines->y(), total->geometry().bottom() + 1 + 16);
  EXPECT_LE(lines->height(), 480);
  for (const char* const name : {"cardFiles", "cardAverages"}) {
    const auto* card = panel->findChild<QWidget*>(QLatin1String(name));
    EXPECT_EQ(card->y(), lines->y()) << name;
    EXPECT_EQ(card->height(), lines->height()) << name;
  }
}

TEST(OverviewViewController, CardsAreOfOneWidthAndTheirFiguresOnOneLineInAnyWindow) {
  FakeStatsHost host(projectWith({record({.name = "a.m", .lines = 30})}));
  const auto panel = OverviewViewController::create(host);
  for (const int width : {616, 700, 1016, 1600}) {
    panel->resize(width, 700);
    panel->show();
    QCoreApplication::processEvents();
    const auto* lines = panel->findChild<QWidget*>(u"cardLines"_s);
    const auto at = [&](std::size_t number) {
      return panel->lblSizeMetrics(number)->mapTo(panel.get(), QPoint()).y();
    };
    for (const char* const name : {"cardFiles", "cardAverages"})
      EXPECT_NEAR(panel->findChild<QWidget*>(QLatin1String(name))->width(), lines->width(), 1) << width;
    EXPECT_EQ(at(7), at(2)) << width;
    EXPECT_EQ(at(1), at(2)) << width;
  }
}

TEST(OverviewViewController, HeadingsTakeAsManyLinesAsTheLongestNeedsInAWindowThatIsMadeNarrowerAndWider) {
  FakeStatsHost host(projectWith({record({.name = "a.m", .lines = 30})}));
  const auto panel = OverviewViewController::create(host);
  panel->setStyleSheet(u"QLabel[role=\"heading\"] { font-size: 30px; }"_s);
  const auto top = [&panel](std::size_t number) {
    return panel->lblSizeMetrics(number)->mapTo(panel.get(), QPoint()).y();
  };
  const auto* heading = panel->findChild<QLabel*>(u"lblTextTitle3"_s);
  const auto needed = [heading] {
    const QRect room(0, 0, heading->width(), 1000);
    return heading->fontMetrics().boundingRect(room, Qt::TextWordWrap, heading->text()).height();
  };
  std::set<int> heights;
  constexpr int kNarrow = 616;
  constexpr int kRange = 984;
  panel->show();
  for (int step = 0; step <= 2 * kRange; step += 8) {
    panel->resize(kNarrow + std::abs(kRange - step), 700);
    QCoreApplication::processEvents();
    ASSERT_EQ(heading->height(), needed()) << panel->width();
    ASSERT_EQ(top(7), top(2)) << panel->width();
    ASSERT_EQ(top(1), top(2)) << panel->width();
    heights.insert(heading->height());
  }
  EXPECT_EQ(heights.size(), 2U);
}

TEST(OverviewViewController, ScrollsWhatDoesNotFitButNeverSideways) {
  const ApplicationTheme theme;
  const UserLocale locale("en_US.UTF-8");
  FakeStatsHost host(projectWith(
      {record({.name = "a.m", .lines = 1987654321, .linesWithoutSpaces = 1654321000, .comments = 234567800})},
      "Fixture", currentKinds()));
  const auto panel = OverviewViewController::create(host);
  panel->resize(616, 300);
  panel->show();
  QCoreApplication::processEvents();
  auto* page = panel->findChild<QScrollArea*>(u"scrollPage"_s);
  EXPECT_GT(page->verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(page->horizontalScrollBar()->maximum(), 0);
}

TEST(OverviewViewController, BarShowsWhatTheLinesAre) {
  const UserLocale locale("en_US.UTF-8");
  FakeStatsHost host(
      projectWith({record({.name = "a.m", .lines = 10000, .linesWithoutSpaces = 8000, .comments = 2000})}));
  const auto panel = OverviewViewController::create(host);
  panel->resize(1000, 700);
  panel->show();
  auto* bar = panel->findChild<ShareBar*>();
  EXPECT_EQ(bar->shares(), (std::array{0.6, 0.2, 0.2}));
  const QImage image = bar->grab().toImage();
  const int middle = image.height() / 2;
  for (const auto& [part, kind] : {std::pair(0.5, 0U), std::pair(0.7, 1U), std::pair(0.9, 2U)})
    EXPECT_EQ(image.pixelColor(static_cast<int>(part * image.width()), middle), ShareBar::colorOf(kind))
        << part;
  EXPECT_EQ(panel->findChild<QLabel*>(u"lblShare1"_s)->text(), u"Code 6,000"_s);
  EXPECT_EQ(panel->findChild<QLabel*>(u"lblShare2"_s)->text(), u"Comments 2,000"_s);
  EXPECT_EQ(panel->findChild<QLabel*>(u"lblShare3"_s)->text(), u"Empty 2,000"_s);
}

TEST(OverviewViewController, LegendShowsTheColoursOfTheBar) {
  FakeStatsHost host(projectWith({record({.name = "a.m", .lines = 10})}));
  const auto panel = OverviewViewController::create(host);
  panel->resize(1000, 700);
  panel->show();
  for (std::size_t kind = 0; kind < kLineKinds; ++kind) {
    auto* swatch = panel->findChild<ShareSwatch*>(u"swatch%1"_s.arg(kind + 1));
    ASSERT_NE(swatch, nullptr);
    EXPECT_EQ(swatch->grab().toImage().pixelColor(swatch->rect().center()), ShareBar::colorOf(kind)) << kind;
  }
}

TEST(LineShares, StayWholeForFiguresThatCannotBe) {
  OverviewFigures figures;
  EXPECT_EQ(lineShares(figures), (std::array{0.0, 0.0, 0.0}));
  figures.totalNumberLines = 4;
  figures.totalNumberLinesWithSpaces = 3;
  figures.totalNumberLinesWithComments = 5;
  EXPECT_EQ(linesByKind(figures), (std::array<std::uint64_t, 3>{0, 1, 3}));
  figures.totalNumberLinesWithSpaces = 9;
  EXPECT_EQ(linesByKind(figures), (std::array<std::uint64_t, 3>{0, 0, 4}));
}

/// Whether the text of a label stands closer to its right side than to its left.
bool standsRight(QLabel& label) {
  const QImage image = label.grab().toImage();
  int left = image.width();
  int right = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) == image.pixel(0, 0)) continue;
      left = std::min(left, x);
      right = std::max(right, x);
    }
  }
  return left > image.width() - right;
}

TEST(OverviewViewController, FiguresAndCaptionsStandOnTheSideWhereReadingBegins) {
  FakeStatsHost host(projectWith({record({.name = "a.m", .lines = 30})}));
  const auto panel = OverviewViewController::create(host);
  panel->setLayoutDirection(Qt::RightToLeft);
  panel->resize(1200, 700);
  panel->show();
  QCoreApplication::processEvents();
  EXPECT_TRUE(standsRight(*panel->lblSizeMetrics7()));
  EXPECT_TRUE(standsRight(*panel->findChild<QLabel*>(u"lblCaption7"_s)));
}

TEST(FigureLabel, LargeNumbersTakeASmallerFontInsteadOfBeingCutOff) {
  FigureLabel label(u"18,446,744,073,709,551,614"_s);
  QFont font = label.font();
  font.setPixelSize(kFigureSize);
  label.setFont(font);
  label.resize(190, 40);
  EXPECT_LT(label.fittingFont().pixelSize(), kFigureSize);
  EXPECT_LE(QFontMetrics(label.fittingFont()).horizontalAdvance(label.text()), 190);
  label.setText(u"12"_s);
  EXPECT_EQ(label.fittingFont().pixelSize(), kFigureSize);
}

/// Sets the direction of reading of the whole application until it goes.
class DirectionOfReading {
 public:
  explicit DirectionOfReading(Qt::LayoutDirection direction) {
    QGuiApplication::setLayoutDirection(direction);
  }
  ~DirectionOfReading() { QGuiApplication::setLayoutDirection(before_); }
  DirectionOfReading(const DirectionOfReading&) = delete;
  DirectionOfReading& operator=(const DirectionOfReading&) = delete;

 private:
  Qt::LayoutDirection before_ = QGuiApplication::layoutDirection();
};

TEST(FigureLabel, ANumberStandsBeforeItsUnitInEveryDirectionOfReading) {
  const auto picture = [](Qt::LayoutDirection direction) {
    const DirectionOfReading reading(direction);
    FigureLabel label(u"1.5 KB"_s);
    label.setAlignment(Qt::AlignAbsolute | Qt::AlignLeft);
    label.resize(200, 40);
    return label.grab().toImage();
  };
  EXPECT_EQ(picture(Qt::RightToLeft), picture(Qt::LeftToRight));
}

TEST(FigureLabel, NeverWidensThePage) {
  FigureLabel label(QString(400, QLatin1Char('8')));
  EXPECT_EQ(label.minimumSizeHint().width(), 0);
  label.resize(1, 20);
  EXPECT_GT(label.fittingFont().pixelSize(), 0);
  EXPECT_FALSE(label.grab().isNull());
}

TEST(OverviewViewController, OffersTheCurrentRulesOnlyWithASentence) {
  FakeStatsHost host(projectWith({record({.name = "a.m", .lines = 30})}));
  const auto panel = OverviewViewController::create(host);
  int requests = 0;
  QObject::connect(panel.get(), &OverviewViewController::currentRulesRequested, [&requests] { ++requests; });
  panel->show();
  auto* const button = panel->findChild<QPushButton*>(u"btnCurrentRules"_s);
  EXPECT_FALSE(button->isVisible());
  panel->offerCurrentRules("");
  EXPECT_FALSE(button->isVisible());
  panel->offerCurrentRules("172 Swift files are not measured by the classic rules.");
  EXPECT_TRUE(button->isVisible());
  EXPECT_EQ(panel->findChild<QLabel*>(u"lblRulesOffer"_s)->text(),
            u"172 Swift files are not measured by the classic rules."_s);
  button->click();
  EXPECT_EQ(requests, 1);
}

}  // namespace
}  // namespace quillmeter
