#include "charts/PulsingButton.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QVariantAnimation>

namespace quillmeter {
namespace {

TEST(PulsingButton, GrowsToOneAndSevenTenthsInASecondAndBackInAnother) {
  PulsingButton button;
  button.startPulse();
  auto* pulse = button.findChild<QVariantAnimation*>();
  ASSERT_NE(pulse, nullptr);
  EXPECT_EQ(pulse->loopCount(), -1);
  const auto scaleAt = [&](int milliseconds) {
    pulse->setCurrentTime(milliseconds);
    return button.pictureScale();
  };
  EXPECT_DOUBLE_EQ(scaleAt(500), 1.35);
  EXPECT_DOUBLE_EQ(scaleAt(1000), 1.7);
  EXPECT_DOUBLE_EQ(scaleAt(1500), 1.35);
  EXPECT_DOUBLE_EQ(scaleAt(1999), 1.0 + 0.7 * 0.001);
}

TEST(PulsingButton, RestsWhileHiddenAndHasItsOwnSizeWhenStopped) {
  PulsingButton button;
  button.startPulse();
  auto* pulse = button.findChild<QVariantAnimation*>();
  EXPECT_EQ(pulse->state(), QAbstractAnimation::Stopped);
  button.show();
  EXPECT_EQ(pulse->state(), QAbstractAnimation::Running);
  button.hide();
  EXPECT_EQ(pulse->state(), QAbstractAnimation::Stopped);
  button.show();
  pulse->setCurrentTime(700);
  button.stopPulse();
  EXPECT_FALSE(button.isPulsing());
  EXPECT_EQ(button.pictureScale(), 1.0);
  button.hide();
  button.show();
  EXPECT_EQ(pulse->state(), QAbstractAnimation::Stopped);
}

TEST(PulsingButton, PictureIsNotDimmedWhenDisabled) {
  PulsingButton button;
  button.setPicture(QStringLiteral("chart_info"), 20);
  button.resize(40, 40);
  const QImage enabled = button.grab().toImage();
  button.setEnabled(false);
  EXPECT_EQ(button.grab().toImage(), enabled);
  EXPECT_EQ(enabled.pixelColor(14, 20), QColor(0x12, 0x5b, 0xb8));
}

}  // namespace
}  // namespace quillmeter
