#include "controls/Theme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace quillmeter {
namespace {

double linear(double component) {
  return component <= 0.03928 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(static_cast<double>(color.redF())) +
         0.7152 * linear(static_cast<double>(color.greenF())) +
         0.0722 * linear(static_cast<double>(color.blueF()));
}

double contrast(const QColor& a, const QColor& b) {
  const auto [low, high] = std::minmax({luminance(a), luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

const QPalette kLight(QColor(0xEF, 0xEF, 0xEF));
const QPalette kDark(QColor(0x2B, 0x2F, 0x33));

class Theme : public ::testing::TestWithParam<const QPalette*> {
 protected:
  const ThemeColors& colors = themeFor(*GetParam());
};

TEST_P(Theme, TextsAreReadable) {
  constexpr double readable = 4.5;
  const QColor white(Qt::white);
  EXPECT_GE(contrast(colors.text, colors.card), readable);
  EXPECT_GE(contrast(colors.text, colors.background), readable);
  EXPECT_GE(contrast(colors.mutedText, colors.card), readable);
  EXPECT_GE(contrast(colors.mutedText, colors.background), readable);
  EXPECT_GE(contrast(colors.link, colors.card), readable);
  EXPECT_GE(contrast(colors.sidebarText, colors.sidebar), readable);
  EXPECT_GE(contrast(colors.sidebarText, colors.sidebarHover), readable);
  EXPECT_GE(contrast(colors.warning, colors.card), readable);
  EXPECT_GE(contrast(white, colors.accent), readable);
  EXPECT_GE(contrast(white, colors.accentHover), readable);
}

TEST_P(Theme, FocusAndOnStatesStandOut) {
  constexpr double visible = 3.0;
  EXPECT_GE(contrast(colors.accent, colors.card), visible);
  EXPECT_GE(contrast(colors.accent, colors.background), visible);
  // The bar of the chosen tab, and the focus ring in the column.
  EXPECT_GE(contrast(colors.sidebarText, colors.sidebar), visible);
  EXPECT_GE(contrast(colors.sidebarText, colors.accent), visible);
  EXPECT_GE(contrast(colors.scrollThumb, colors.card), visible);
  EXPECT_GE(contrast(colors.scrollThumb, colors.background), visible);
  // The focus ring on what is on in a pop-up panel.
  EXPECT_GE(contrast(colors.accent, colors.sidebarText), visible);
}

TEST_P(Theme, StyleSheetHasAValueForEveryName) {
  const QString sheet = styleSheetFor(colors);
  EXPECT_FALSE(sheet.contains(u'@')) << sheet.toStdString();
  EXPECT_TRUE(sheet.contains(colors.accent.name()));
  EXPECT_EQ(sheet.count(u'{'), sheet.count(u'}'));
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Theme, ::testing::Values(&kLight, &kDark));

TEST(ThemeFor, FollowsTheDesktopsPalette) {
  EXPECT_NE(&themeFor(kLight), &themeFor(kDark));
  EXPECT_LT(themeFor(kDark).background.lightness(), themeFor(kLight).background.lightness());
}

}  // namespace
}  // namespace quillmeter
