#include "controls/CustomProgressIndicator.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QImage>
#include <QPainter>
#include <functional>
#include <limits>
#include <utility>

#include "controls/NamedImage.h"
#include "helpers/QtWaiting.h"

namespace quillmeter {
namespace {

/// How far the full bar reaches along a line near its upper edge, where no label is.
int filledTo(CustomProgressIndicator& indicator) {
  const QImage image = indicator.grab().toImage();
  const QImage empty = namedImage(QStringLiteral("loader_empty")).toImage();
  int last = -1;
  for (int x = 0; x < empty.width(); ++x) {
    const QColor there = image.pixelColor(x, 13);
    if (there.blue() - there.red() > 35) last = x;
  }
  return last;
}

class Indicator : public ::testing::Test {
 protected:
  Indicator() {
    indicator.resize(300, 50);
    indicator.setMaxValue(1.0);
  }
  CustomProgressIndicator indicator;
};

TEST_F(Indicator, PicturesFitTheBarsGeometry) {
  EXPECT_EQ(namedImageSize(QStringLiteral("loader_empty")), QSize(300, 50));
  EXPECT_EQ(namedImageSize(QStringLiteral("loader_full")), QSize(300, 50));
  EXPECT_EQ(indicator.sizeHint(), QSize(300, 50));
}

TEST_F(Indicator, FilledPartFollowsTheValue) {
  indicator.setDoubleValue(0.0);
  const int atNothing = filledTo(indicator);
  EXPECT_GT(atNothing, 30);
  EXPECT_LT(atNothing, 51);
  indicator.setDoubleValue(0.5);
  EXPECT_NEAR(filledTo(indicator), 150, 20);
  indicator.setDoubleValue(1.0);
  EXPECT_NEAR(filledTo(indicator), 300, 20);
}

TEST_F(Indicator, LabelIsCentredOverTheFilledPart) {
  indicator.setDoubleValue(0.5);
  const QImage image = indicator.grab().toImage();
  int left = 300;
  int right = 0;
  for (int y = 10; y < 40; ++y) {
    for (int x = 0; x < 300; ++x) {
      if (image.pixelColor(x, y).lightness() > 130) continue;
      left = std::min(left, x);
      right = std::max(right, x);
    }
  }
  ASSERT_LT(left, right);
  EXPECT_NEAR((left + right) / 2.0, 75.0, 3.0);
}

TEST_F(Indicator, IndeterminateBarKeepsItsValueToItself) {
  indicator.setIndeterminate(true);
  indicator.setDoubleValue(0.25);
  const QImage before = indicator.grab().toImage();
  indicator.setDoubleValue(0.75);
  EXPECT_EQ(indicator.doubleValue(), 0.75);
  EXPECT_EQ(indicator.grab().toImage(), before);
  indicator.setIndeterminate(false);
  EXPECT_NEAR(filledTo(indicator), 225, 20);
}

TEST_F(Indicator, IndeterminateBarMovesWhileItIsShown) {
  indicator.setIndeterminate(true);
  indicator.show();
  const QImage before = indicator.grab().toImage();
  EXPECT_TRUE(testing::waitFor([&] { return indicator.grab().toImage() != before; }));
}

TEST_F(Indicator, IndeterminateBarBeginsAtTheLeft) {
  indicator.setIndeterminate(true);
  const int end = filledTo(indicator);
  EXPECT_GT(end, 0);
  EXPECT_LT(end, 150);
}

/// Counts the steps of an animation, and looks at each before the next is made.
class Steps final : public QObject {
 public:
  explicit Steps(QWidget& watched, std::function<void(int)> look = {}) : look_(std::move(look)) {
    watched.installEventFilter(this);
  }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::Timer) return false;
    if (look_) look_(steps);
    ++steps;
    return false;
  }
  int steps = 0;

 private:
  std::function<void(int)> look_;  ///< gets the number of the steps made
};

TEST_F(Indicator, IndeterminateBarRestsWhileItIsHidden) {
  indicator.setIndeterminate(true);
  indicator.show();
  Steps animation(indicator);
  EXPECT_TRUE(testing::waitFor([&] { return animation.steps > 2; }));
  indicator.hide();
  EXPECT_TRUE(QAbstractEventDispatcher::instance()->registeredTimers(&indicator).isEmpty());
}

TEST_F(Indicator, IndeterminateBarIsThereAndBackWithinThreeSeconds) {
  indicator.setIndeterminate(true);
  const QImage start = indicator.grab().toImage();
  bool hasLeft = false;
  int stepsThereAndBack = 0;
  const Steps animation(indicator, [&](int steps) {
    const bool isAtItsStart = indicator.grab().toImage() == start;
    if (hasLeft && isAtItsStart && stepsThereAndBack == 0) stepsThereAndBack = steps;
    hasLeft = hasLeft || !isAtItsStart;
  });
  indicator.show();
  EXPECT_TRUE(testing::waitFor([&] { return stepsThereAndBack > 0; }));
  EXPECT_GE(stepsThereAndBack, 40) << "smooth";
  const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(&indicator);
  ASSERT_EQ(timers.size(), 1);
  EXPECT_GT(timers.front().interval, 0);
  EXPECT_LE(timers.front().interval * stepsThereAndBack, 3000) << "milliseconds";
}

TEST_F(Indicator, ValueThatIsNoNumberIsKeptAndDrawnAsNothing) {
  indicator.setDoubleValue(std::numeric_limits<double>::quiet_NaN());
  EXPECT_TRUE(indicator.doubleValue() != indicator.doubleValue());
  EXPECT_LT(filledTo(indicator), 51);
}

TEST_F(Indicator, AssistiveTechnologyHearsThePercentage) {
  indicator.setDoubleValue(0.339);
  EXPECT_EQ(indicator.value(), 33);
  indicator.setIndeterminate(true);
  EXPECT_EQ(indicator.maximum(), 0);
}

/// Red, green and blue thirds of 10 points each.
QPixmap thirds(qreal scale = 1.0) {
  QPixmap image(QSize(30, 4) * scale);
  image.setDevicePixelRatio(scale);
  QPainter painter(&image);
  painter.fillRect(0, 0, 10, 4, Qt::red);
  painter.fillRect(10, 0, 10, 4, Qt::green);
  painter.fillRect(20, 0, 10, 4, Qt::blue);
  return image;
}

TEST(ThreeSliceStretching, EndsStayAndTheMiddleFills) {
  const QImage wide =
      CustomProgressIndicator::imageLeftCapWidthMiddleWidthRightCapWidth(thirds(), 10, 40, 10).toImage();
  ASSERT_EQ(wide.size(), QSize(60, 4));
  EXPECT_EQ(wide.pixelColor(9, 2), QColor(Qt::red));
  EXPECT_EQ(wide.pixelColor(12, 2), QColor(Qt::green));
  EXPECT_EQ(wide.pixelColor(47, 2), QColor(Qt::green));
  EXPECT_EQ(wide.pixelColor(50, 2), QColor(Qt::blue));
  EXPECT_EQ(wide.pixelColor(59, 2), QColor(Qt::blue));
}

TEST(ThreeSliceStretching, PictureOfTwiceTheScaleStaysCrisp) {
  const QPixmap wide =
      CustomProgressIndicator::imageLeftCapWidthMiddleWidthRightCapWidth(thirds(2.0), 10, 5, 10);
  EXPECT_EQ(wide.size(), QSize(50, 8));
  EXPECT_EQ(wide.deviceIndependentSize(), QSizeF(25, 4));
  EXPECT_EQ(wide.toImage().pixelColor(49, 7), QColor(Qt::blue));
}

TEST(ThreeSliceStretching, PictureOfCapsOnlyLeavesTheMiddleEmpty) {
  const QImage wide =
      CustomProgressIndicator::imageLeftCapWidthMiddleWidthRightCapWidth(thirds(), 15, 10, 15).toImage();
  EXPECT_EQ(wide.width(), 40);
  EXPECT_EQ(wide.pixelColor(20, 2).alpha(), 0);
}

TEST(ThreeSliceStretching, NothingToDrawGivesNoPicture) {
  EXPECT_TRUE(CustomProgressIndicator::imageLeftCapWidthMiddleWidthRightCapWidth(thirds(), 0, 0, 0).isNull());
  EXPECT_TRUE(
      CustomProgressIndicator::imageLeftCapWidthMiddleWidthRightCapWidth(QPixmap(), 1, 1, 1).isNull());
}

}  // namespace
}  // namespace quillmeter
