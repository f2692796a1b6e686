#include "controls/FadingPanel.h"
#include "helpers/QtWaiting.h"

#include <gtest/gtest.h>

#include <QTest>

namespace quillmeter {
namespace {

TEST(FadingPanel, ChangesAtOnceOrFadesThere) {
  FadingPanel panel;
  EXPECT_EQ(panel.alphaValue(), 1.0);
  panel.setAlphaValue(0);
  EXPECT_EQ(panel.shownAlpha(), 0.0);
  panel.animateAlphaValue(0.9);
  EXPECT_EQ(panel.alphaValue(), 0.9);
  EXPECT_LT(panel.shownAlpha(), 0.9);
  EXPECT_TRUE(testing::waitFor([&] { return panel.shownAlpha() == 0.9; }));
}

TEST(FadingPanel, SettingTheOpacityEndsAFade) {
  FadingPanel panel;
  panel.animateAlphaValue(0);
  panel.setAlphaValue(0.5);
  QTest::qWait(20);
  EXPECT_EQ(panel.shownAlpha(), 0.5);
}

}  // namespace
}  // namespace quillmeter
