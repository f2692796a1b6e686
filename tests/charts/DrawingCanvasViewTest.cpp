#include "charts/DrawingCanvasView.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "charts/ChartPainter.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::record;

struct Hit {
  std::shared_ptr<FileObject> file;
  ChartPoint point;
};

class RecordingDelegate final : public DrawingCanvasViewDelegate {
 public:
  void dismissInfoForItem() override { ++dismissed; }
  void showInfoPopoverForItemFromStartingPoint(const std::shared_ptr<FileObject>& file,
                                               ChartPoint point) override {
    hits.push_back({file, point});
  }
  int dismissed = 0;
  std::vector<Hit> hits;
};

void setBars(DrawingCanvasView& canvas, std::size_t count, std::int64_t maximum = 1500) {
  FileList files;
  for (std::size_t i = 0; i < count; ++i) {
    files.push_back(record({.name = "File" + std::to_string(i) + ".m",
                            .lines = maximum - static_cast<std::int64_t>(i) * maximum / 15}));
  }
  canvas.setGraphType(graphTypeOf(ChartKind::sourceFilesBars));
  canvas.setMaxNumberOfLines(maximum);
  canvas.setArrayValues(std::move(files));
}

void setPie(DrawingCanvasView& canvas, double first, double second) {
  canvas.setGraphType(graphTypeOf(ChartKind::codeLinesPie));
  canvas.setCIRCLE_RADIUS(200);
  canvas.setPieChart1Perc1(first);
  canvas.setPieChart1Perc2(second);
}

QImage painted(DrawingCanvasView& canvas, int scale, QColor background = Qt::white) {
  QImage image(660 * scale, 540 * scale, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(background);
  QPainter painter(&image);
  canvas.paintOn(painter, QSizeF(660, 540));
  return image;
}

/// The colour of the pixel that holds a point.
QColor at(const QImage& image, double x, double y) {
  const double scale = image.devicePixelRatio();
  return image.pixelColor(qFloor(x * scale), qFloor(y * scale));
}

::testing::AssertionResult isNear(const QColor& color, const QColor& expected, int tolerance = 3) {
  const bool near = std::abs(color.red() - expected.red()) <= tolerance &&
                    std::abs(color.green() - expected.green()) <= tolerance &&
                    std::abs(color.blue() - expected.blue()) <= tolerance;
  if (near) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << color.name().toStdString() << " is not " << expected.name().toStdString();
}

const QColor kAxis(60, 68, 76);

class Canvas : public ::testing::TestWithParam<int> {
 protected:
  DrawingCanvasView canvas;
};
INSTANTIATE_TEST_SUITE_P(AtScale, Canvas, ::testing::Values(1, 2));

TEST_P(Canvas, BarsRunFromTheStartColourAtTheTopToTheEndColourAtTheFoot) {
  setBars(canvas, 15);
  const QImage image = painted(canvas, GetParam());
  EXPECT_TRUE(isNear(at(image, 99, 71), QColor(18, 91, 184)));
  EXPECT_TRUE(isNear(at(image, 99, 275), QColor(21, 124, 216)));
  EXPECT_TRUE(isNear(at(image, 99, 477), QColor(24, 157, 248)));
  // The last bar is 1 / 15 as high, with the whole gradient in it.
  const double top = 480 - 410.0 / 15;
  EXPECT_TRUE(isNear(at(image, 547, top + 1), QColor(18, 91, 184), 6));
  EXPECT_TRUE(isNear(at(image, 547, 477), QColor(23, 150, 242), 6));
}

TEST_P(Canvas, BarsReachTheirEdgesAndNoFarther) {
  setBars(canvas, 1);
  const QImage image = painted(canvas, GetParam());
  const QColor middle = at(image, 99, 300);
  EXPECT_TRUE(isNear(at(image, 86.2, 300), middle));
  EXPECT_TRUE(isNear(at(image, 111.7, 300), middle));
  EXPECT_FALSE(isNear(at(image, 85.7, 300), middle, 20));
  EXPECT_FALSE(isNear(at(image, 112.2, 300), middle, 20));
}

TEST_P(Canvas, BarsCastTheirShadowToTheRightAndDown) {
  setBars(canvas, 1);
  const QImage image = painted(canvas, GetParam());
  const int right = at(image, 113, 291).lightness();
  const int left = at(image, 84.5, 291).lightness();
  EXPECT_LT(right, left);
  EXPECT_LT(right, 250);
  EXPECT_EQ(at(image, 118, 291), QColor(Qt::white));
}

TEST(ChartShadow, IsTheSameOnOppositeSidesOfARectangle) {
  for (const int scale : {1, 2}) {
    QImage image(QSize(60, 80) * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    {
      QPainter painter(&image);
      paintRectShadow(painter, {20, 20, 20, 40}, {.blurRadius = 3});
    }
    const auto alpha = [&image](int x, int y) { return image.pixelColor(x, y).alpha(); };
    const int below = 60 * scale;
    const int right = 40 * scale;
    EXPECT_GT(alpha(30 * scale, below), 0);
    for (int i = 0; i < 8 * scale; ++i) {
      for (int along = 0; along < 20 * scale; ++along) {
        const int x = 20 * scale + along;
        EXPECT_EQ(alpha(x, below + i), alpha(x, 20 * scale - 1 - i)) << x << " " << i;
        const int y = 30 * scale + along;
        EXPECT_EQ(alpha(right + i, y), alpha(20 * scale - 1 - i, y)) << y << " " << i;
      }
    }
  }
}

TEST_P(Canvas, GridIsDashedTwoOnTwoOff) {
  setBars(canvas, 1, 1000);
  const QImage image = painted(canvas, GetParam());
  // A line 1 wide on a whole coordinate covers half a point on both sides. Beyond the only bar, at y 111.
  for (const double x : {300.0, 400.0, 500.0}) {
    EXPECT_LT(at(image, x + 1, 111.2).lightness(), 200) << x;
    EXPECT_EQ(at(image, x + 2.9, 111.2), QColor(Qt::white)) << x;
  }
  EXPECT_EQ(at(image, 611, 111), QColor(Qt::white));
}

TEST_P(Canvas, AverageLineIsRed) {
  setBars(canvas, 1, 1000);
  canvas.setAverageNumberOfLines(450);
  canvas.setShouldDrawAverageLine(true);
  const QImage image = painted(canvas, GetParam());
  // One point wide about y 295.5, over the bar and up to the end of the plot.
  for (const double x : {82.0, 99.0, 400.0, 609.0}) {
    EXPECT_EQ(at(image, x, 295.2), QColor(255, 55, 1)) << x;
    EXPECT_EQ(at(image, x, 295.8), QColor(255, 55, 1)) << x;
  }
  EXPECT_EQ(at(image, 400, 294.5), QColor(Qt::white));
  EXPECT_EQ(at(image, 400, 296.5), QColor(Qt::white));
  EXPECT_EQ(at(image, 611, 295.5), QColor(Qt::white));
  canvas.setShouldDrawAverageLine(false);
  EXPECT_EQ(at(painted(canvas, GetParam()), 400, 295.5), QColor(Qt::white));
}

TEST_P(Canvas, AxesAreThreePointsWideOverTheBars) {
  setBars(canvas, 1);
  const QImage image = painted(canvas, GetParam());
  EXPECT_TRUE(isNear(at(image, 80, 300), kAxis));
  EXPECT_TRUE(isNear(at(image, 79.2, 300), kAxis));
  EXPECT_TRUE(isNear(at(image, 80.8, 300), kAxis));
  EXPECT_TRUE(isNear(at(image, 99, 480.2), kAxis));
  EXPECT_TRUE(isNear(at(image, 99, 479.2), kAxis)) << "where the bar would cover it";
  EXPECT_TRUE(isNear(at(image, 608, 480.2), kAxis));
  EXPECT_EQ(at(image, 613, 480.2), QColor(Qt::white));
}

TEST_P(Canvas, MagnifiersHangBelowTheBars) {
  setBars(canvas, 15);
  const QImage image = painted(canvas, GetParam());
  for (int bar = 0; bar < 15; ++bar) {
    // The rim of the glass, left of its middle.
    EXPECT_LT(at(image, 92 + 32 * bar + 1.1, 490).lightness(), 150) << bar;
  }
}

TEST_P(Canvas, PieSlicesGoRoundClockwiseFromTheRight) {
  setPie(canvas, 0.25, 0.25);
  const QImage image = painted(canvas, GetParam());
  const auto towards = [&](double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return at(image, 330 + 150 * std::cos(angle), 270 + 150 * std::sin(angle));
  };
  EXPECT_EQ(towards(15), QColor(115, 177, 223));
  EXPECT_EQ(towards(75), QColor(115, 177, 223));
  EXPECT_EQ(towards(105), QColor(12, 141, 255));
  EXPECT_EQ(towards(165), QColor(12, 141, 255));
  EXPECT_EQ(towards(195), QColor(0, 149, 184));
  EXPECT_EQ(towards(345), QColor(0, 149, 184));
}

TEST_P(Canvas, PieReachesItsRadiusAndCastsItsShadowLeftAndUp) {
  setPie(canvas, 0.25, 0.25);
  const QImage image = painted(canvas, GetParam());
  const double inside = 198 / std::numbers::sqrt2;
  EXPECT_EQ(at(image, 330 + inside, 270 + inside), QColor(115, 177, 223));
  EXPECT_EQ(at(image, 330, 270 + 212), QColor(Qt::white));
  // Opposite ends of the diagonal.
  const double diagonal = 203 / std::numbers::sqrt2;
  EXPECT_LT(at(image, 330 - diagonal, 270 - diagonal).lightness(),
            at(image, 330 + diagonal, 270 + diagonal).lightness());
}

TEST_P(Canvas, LegendBoxesAreOutlinedInBlackAndFilled) {
  setPie(canvas, 0.25, 0.25);
  const QImage image = painted(canvas, GetParam());
  EXPECT_EQ(at(image, 38, 58), QColor(115, 177, 223));
  EXPECT_EQ(at(image, 38, 78), QColor(12, 141, 255));
  EXPECT_EQ(at(image, 38, 98), QColor(0, 149, 184));
  EXPECT_LT(at(image, 30.2, 58).lightness(), 130);
  EXPECT_EQ(at(image, 28.5, 58), QColor(Qt::white));
}

TEST_P(Canvas, WholeCircleOfOneColourHasNoHole) {
  setPie(canvas, 1, 0);
  const QImage image = painted(canvas, GetParam());
  for (int degrees = 5; degrees < 360; degrees += 10) {
    const double angle = degrees * std::numbers::pi / 180;
    EXPECT_EQ(at(image, 330 + 100 * std::cos(angle), 270 + 100 * std::sin(angle)), QColor(115, 177, 223))
        << degrees;
  }
}

TEST_P(Canvas, SharesThatAreNoNumbersDrawTitleAndLegendOnly) {
  setPie(canvas, std::nan(""), std::nan(""));
  const QImage image = painted(canvas, GetParam());
  EXPECT_EQ(at(image, 330, 270), QColor(Qt::white));
  EXPECT_EQ(at(image, 38, 58), QColor(115, 177, 223));
}

TEST_P(Canvas, MaximumOfZeroDrawsAxesAndNoBars) {
  setBars(canvas, 3);
  canvas.setMaxNumberOfLines(0);
  canvas.setShouldDrawAverageLine(true);
  const QImage image = painted(canvas, GetParam());
  EXPECT_TRUE(isNear(at(image, 80, 300), kAxis));
  EXPECT_EQ(at(image, 99, 470), QColor(Qt::white));
  EXPECT_EQ(at(image, 400, 111), QColor(Qt::white));
}

TEST_P(Canvas, PaintsNoBackground) {
  setPie(canvas, 0.25, 0.25);
  const QImage image = painted(canvas, GetParam(), Qt::transparent);
  EXPECT_EQ(at(image, 600, 500).alpha(), 0);
  EXPECT_EQ(at(image, 330, 370).alpha(), 255);
}

TEST(DrawingCanvasView, LooksTheSameEachTime) {
  DrawingCanvasView canvas;
  setBars(canvas, 15);
  EXPECT_EQ(painted(canvas, 2), painted(canvas, 2));
}

TEST(DrawingCanvasView, UnknownGraphTypeDrawsNothing) {
  DrawingCanvasView canvas;
  setBars(canvas, 3);
  for (const std::int32_t graphType :
       {-1, static_cast<std::int32_t>(kAllCharts.size()), std::numeric_limits<std::int32_t>::max()}) {
    canvas.setGraphType(graphType);
    const QImage image = painted(canvas, 1);
    QImage blank(image.size(), image.format());
    blank.fill(Qt::white);
    blank.setDevicePixelRatio(1);
    EXPECT_EQ(image, blank);
    EXPECT_FALSE(canvas.lensesDetailsPoints().has_value());
    EXPECT_EQ(canvas.graphType(), graphType);
    EXPECT_EQ(canvas.descriptionAt(QPointF(330, 370)), QString());
    canvas.updateAccessibleTexts();
    EXPECT_EQ(canvas.accessibleName(), QString());
  }
}

TEST(DrawingCanvasView, OddScalesAndRotationsPaintWithoutFailing) {
  DrawingCanvasView canvas;
  setBars(canvas, 15);
  for (const double scale : {0.1, 0.75, 1.25, 1.5, 6.0}) {
    QImage image(QSize(660, 540) * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    canvas.paintOn(painter, QSizeF(660, 540));
    EXPECT_TRUE(isNear(image.pixelColor(qFloor(99 * scale), qFloor(275 * scale)), QColor(21, 124, 216), 8))
        << scale;
  }
}

TEST(DrawingCanvasView, PropertiesBeginEmptyAndKeepWhatTheyAreGiven) {
  DrawingCanvasView canvas;
  EXPECT_EQ(canvas.axisColor(), kAxis);
  EXPECT_TRUE(DrawingCanvasView::isFlipped());
  EXPECT_FALSE(canvas.arrayValues().has_value());
  EXPECT_FALSE(canvas.lensesDetailsPoints().has_value());
  canvas.setPieChart3Perc1(0.3);
  canvas.setPieChart2Perc2(0.2);
  canvas.setCIRCLE_RADIUS(150);
  EXPECT_EQ(canvas.pieChart3Perc1(), 0.3);
  EXPECT_EQ(canvas.pieChart2Perc2(), 0.2);
  EXPECT_EQ(canvas.CIRCLE_RADIUS(), 150);
  EXPECT_EQ(canvas.sizeHint(), QSize(660, 540));
}

/// A shown canvas with fifteen bars and somebody who listens.
class CanvasWithBars : public ::testing::Test {
 protected:
  CanvasWithBars() {
    canvas.resize(660, 540);
    canvas.setDelegate(&delegate);
    setBars(canvas, 15);
    canvas.show();
    canvas.activateWindow();
    canvas.setFocus();
    canvas.grab();
  }
  void click(QPointF point) { QTest::mouseClick(&canvas, Qt::LeftButton, {}, point.toPoint()); }

  RecordingDelegate delegate;
  DrawingCanvasView canvas;
};

TEST_F(CanvasWithBars, ClickOnEachMagnifierShowsItsFile) {
  for (int bar = 0; bar < 15; ++bar) {
    click(QPointF(92 + 32 * bar, 485));
    ASSERT_EQ(delegate.hits.size(), static_cast<std::size_t>(bar) + 1);
    EXPECT_EQ(delegate.hits.back().file, (*canvas.arrayValues())[static_cast<std::size_t>(bar)]);
    EXPECT_EQ(delegate.hits.back().point.x, 92 + 32 * bar);
    EXPECT_EQ(delegate.hits.back().point.y, 485);
    EXPECT_EQ(delegate.dismissed, bar + 1);
  }
}

TEST_F(CanvasWithBars, ClickOnePixelOutsideEachMagnifierOnlyDismisses) {
  int presses = 0;
  for (int bar = 0; bar < 15; ++bar) {
    const int x = 92 + 32 * bar;
    for (const QPoint point :
         {QPoint(x - 1, 490), QPoint(x + 12, 490), QPoint(x + 5, 484), QPoint(x + 5, 497)}) {
      click(point);
      EXPECT_TRUE(delegate.hits.empty()) << point.x() << "," << point.y();
      EXPECT_EQ(delegate.dismissed, ++presses);
    }
    click(QPoint(x + 11, 496));
    EXPECT_EQ(delegate.hits.size(), 1U);
    delegate.hits.clear();
    ++presses;
  }
}

TEST_F(CanvasWithBars, OnlyTheFirstFifteenValuesCanBeHit) {
  setBars(canvas, 40, 4000);
  canvas.grab();
  click(QPointF(92 + 32 * 14, 490));
  EXPECT_EQ(delegate.hits.size(), 1U);
  click(QPointF(92 + 32 * 15, 490));
  EXPECT_EQ(delegate.hits.size(), 1U);
  EXPECT_EQ(canvas.lensesDetailsPoints()->size(), 15U);
}

TEST_F(CanvasWithBars, PressAfterAPieFindsNoMagnifier) {
  setPie(canvas, 0.5, 0.25);
  canvas.grab();
  EXPECT_FALSE(canvas.lensesDetailsPoints().has_value());
  click(QPointF(95, 490));
  EXPECT_TRUE(delegate.hits.empty());
  EXPECT_EQ(delegate.dismissed, 1);
}

TEST_F(CanvasWithBars, PressBeforeTheValuesAreThereFindsNothing) {
  canvas.setArrayValues(std::nullopt);
  click(QPointF(95, 490));
  EXPECT_TRUE(delegate.hits.empty());
}

TEST_F(CanvasWithBars, OtherMouseButtonsOpenNothing) {
  QTest::mouseClick(&canvas, Qt::RightButton, {}, QPoint(95, 490));
  EXPECT_TRUE(delegate.hits.empty());
}

TEST_F(CanvasWithBars, PointerIsAHandOverMagnifiersOnly) {
  QTest::mouseMove(&canvas, QPoint(95, 490));
  EXPECT_EQ(canvas.cursor().shape(), Qt::PointingHandCursor);
  QTest::mouseMove(&canvas, QPoint(95, 300));
  EXPECT_EQ(canvas.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(CanvasWithBars, EveryBarIsReachedAndOpenedByKeyboard) {
  QTest::keyClick(&canvas, Qt::Key_Home);
  for (std::size_t bar = 0; bar < 15; ++bar) {
    QTest::keyClick(&canvas, bar % 2 == 0 ? Qt::Key_Return : Qt::Key_Space);
    ASSERT_EQ(delegate.hits.size(), bar + 1);
    EXPECT_EQ(delegate.hits.back().file, (*canvas.arrayValues())[bar]);
    QTest::keyClick(&canvas, Qt::Key_Right);
  }
  EXPECT_EQ(canvas.currentBar(), 14U);
  QTest::keyClick(&canvas, Qt::Key_Left);
  EXPECT_EQ(canvas.currentBar(), 13U);
  EXPECT_EQ(canvas.accessibleName(), QStringLiteral("Bar 14 of 15: File13.m, 200 lines"));
  QTest::keyClick(&canvas, Qt::Key_End);
  EXPECT_EQ(canvas.currentBar(), 14U);
  QTest::keyClick(&canvas, Qt::Key_Home);
  QTest::keyClick(&canvas, Qt::Key_Left);
  EXPECT_EQ(canvas.currentBar(), 0U);
  const int before = delegate.dismissed;
  QTest::keyClick(&canvas, Qt::Key_Escape);
  EXPECT_EQ(delegate.dismissed, before + 1);
}

TEST_F(CanvasWithBars, KeyboardFocusIsMarkedOnScreenButNotInACapture) {
  const QImage plain = canvas.capture().toImage();
  QTest::keyClick(&canvas, Qt::Key_Right);
  EXPECT_NE(canvas.grab().toImage(), plain);
  EXPECT_EQ(canvas.capture().toImage(), plain);
}

/// Where two pictures of one size differ.
QRect differenceOf(const QImage& one, const QImage& other) {
  QRect area;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x)
      if (one.pixel(x, y) != other.pixel(x, y)) area |= QRect(x, y, 1, 1);
  }
  return area;
}

TEST_F(CanvasWithBars, KeyboardFocusMarksTheMagnifierOfItsBar) {
  const auto expectMarked = [this](int bar) {
    const QRect mark = differenceOf(canvas.grab().toImage(), canvas.capture().toImage());
    EXPECT_NEAR(mark.center().x(), 98 + 32 * bar, 2) << bar;
    EXPECT_LT(mark.width(), 32);
    EXPECT_TRUE(mark.contains(98 + 32 * bar, 491)) << bar;
  };
  QTest::keyClick(&canvas, Qt::Key_Home);
  expectMarked(0);
  QTest::keyClick(&canvas, Qt::Key_Right);
  expectMarked(1);
  QTest::keyClick(&canvas, Qt::Key_End);
  expectMarked(14);
  setBars(canvas, 3);
  canvas.grab();
  expectMarked(2);
}

TEST_F(CanvasWithBars, CaptureIsTheChartOnWhitePaper) {
  const QImage picture = canvas.capture().toImage();
  EXPECT_EQ(picture.deviceIndependentSize().toSize(), QSize(660, 540));
  EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::white));
  EXPECT_TRUE(isNear(at(picture, 99, 477), QColor(24, 157, 248)));
}

TEST_F(CanvasWithBars, ToolTipTellsNameAndValue) {
  EXPECT_EQ(canvas.descriptionAt(QPointF(99, 300)), QStringLiteral("File0.m\n1500 lines"));
  EXPECT_EQ(canvas.descriptionAt(QPointF(95, 490)), QStringLiteral("File0.m\n1500 lines"));
  EXPECT_EQ(canvas.descriptionAt(QPointF(30, 300)), QString());
}

/// What a reader sees of a tool tip, which takes some texts for markup.
QString visibleText(const QString& toolTip) {
  return Qt::mightBeRichText(toolTip) ? QTextDocumentFragment::fromHtml(toolTip).toPlainText() : toolTip;
}

TEST_F(CanvasWithBars, ToolTipShowsAnyNameAsItIs) {
  for (const std::string name : {"a & b.m", "<b>bold</b>.m", "a<b.m", "two  spaces.m", "&lt;.m", "plain.m"}) {
    canvas.setArrayValues(FileList{record({.name = name, .lines = 1500})});
    canvas.grab();
    QHelpEvent help(QEvent::ToolTip, QPoint(99, 300), canvas.mapToGlobal(QPoint(99, 300)));
    QCoreApplication::sendEvent(&canvas, &help);
    const QString shown = visibleText(QToolTip::text()).replace(QChar::Nbsp, QLatin1Char(' '));
    EXPECT_EQ(shown.toStdString(), name + "\n1500 lines");
  }
  QToolTip::hideText();
}

TEST_F(CanvasWithBars, ToolTipBreaksALongName) {
  canvas.setArrayValues(FileList{record({.name = std::string(200, 'W') + ".m", .lines = 1500})});
  canvas.grab();
  QHelpEvent help(QEvent::ToolTip, QPoint(99, 300), canvas.mapToGlobal(QPoint(99, 300)));
  QCoreApplication::sendEvent(&canvas, &help);
  const QString line(80, QLatin1Char('W'));
  EXPECT_EQ(visibleText(QToolTip::text()), line + QLatin1Char('\n') + line + QLatin1Char('\n') +
                                               QString(40, QLatin1Char('W')) +
                                               QStringLiteral(".m\n1500 lines"));
  QToolTip::hideText();
}

TEST(DrawingCanvasView, ToolTipTellsASlicesShare) {
  DrawingCanvasView canvas;
  canvas.resize(660, 540);
  setPie(canvas, 0.5, 0.25);
  EXPECT_EQ(canvas.descriptionAt(QPointF(330, 370)), QStringLiteral("Code lines (50.00%)"));
  EXPECT_EQ(canvas.descriptionAt(QPointF(5, 5)), QString());
}

TEST(DrawingCanvasView, LegendStandsBesideItsBoxesInEveryDirectionOfReading) {
  const auto picture = [](Qt::LayoutDirection direction) {
    DrawingCanvasView canvas;
    canvas.setLayoutDirection(direction);
    canvas.setGraphType(1);
    canvas.setPieChart2Perc1(0.5);
    canvas.resize(660, 540);
    return canvas.grab().toImage();
  };
  EXPECT_EQ(picture(Qt::RightToLeft), picture(Qt::LeftToRight));
}

TEST(DrawingCanvasView, OnlyBarChartsTakeTheKeyboardFocus) {
  DrawingCanvasView canvas;
  canvas.setGraphType(graphTypeOf(ChartKind::fileKindsPie));
  EXPECT_EQ(canvas.focusPolicy(), Qt::NoFocus);
  canvas.setGraphType(graphTypeOf(ChartKind::xibFilesBars));
  EXPECT_EQ(canvas.focusPolicy(), Qt::StrongFocus);
}

TEST(DrawingCanvasView, AccessibleTextsNameChartAndContents) {
  DrawingCanvasView canvas;
  setBars(canvas, 2);
  canvas.updateAccessibleTexts();
  EXPECT_EQ(canvas.accessibleName(), QStringLiteral("Chart type: top 15 source files by lines of code"));
  EXPECT_EQ(canvas.accessibleDescription(), QStringLiteral("File0.m: 1500 lines; File1.m: 1400 lines"));
  setPie(canvas, 0.5, 0.25);
  canvas.updateAccessibleTexts();
  EXPECT_EQ(canvas.accessibleDescription(),
            QStringLiteral("Code lines (50.00%); Comment lines (25.00%); Empty lines (25.00%)"));
}

TEST(DrawingCanvasView, PartsHavePlacesOnceTheyAreDrawnAndNoneWhileAnotherChartComes) {
  DrawingCanvasView canvas;
  setBars(canvas, 15);
  canvas.updateAccessibleTexts();
  ASSERT_EQ(canvas.parts().size(), 15U);
  EXPECT_TRUE(canvas.partRect(14).isEmpty());
  static_cast<void>(painted(canvas, 1));
  EXPECT_FALSE(canvas.partRect(14).isEmpty());
  setPie(canvas, 0.5, 0.25);
  EXPECT_TRUE(canvas.partRect(14).isEmpty());
  EXPECT_FALSE(canvas.partRect(2).isEmpty());
}

}  // namespace
}  // namespace quillmeter
