#include "controls/ButtonTextColor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPushButton>

#include "controls/Theme.h"

namespace quillmeter {
namespace {

const QColor kRed(255, 0, 0);
const QColor kGreen(0, 160, 0);

/// Whether a pixel of the painted button is (nearly) of this colour.
bool shows(QPushButton& button, const QColor& color) {
  const QImage image = button.grab().toImage();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      const int distance = std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                           std::abs(pixel.blue() - color.blue());
      if (distance < 24) return true;
    }
  }
  return false;
}

class ButtonTextColor : public ::testing::Test {
 protected:
  ButtonTextColor() {
    QFont font = button.font();
    font.setPixelSize(40);
    button.setFont(font);
    button.setText(QStringLiteral("HHH"));
    button.setCheckable(true);
    button.resize(button.sizeHint());
  }
  QPushButton button;
};

TEST_F(ButtonTextColor, TitleWithoutAColourHasTheDesktopsColour) {
  EXPECT_EQ(textColor(&button), QApplication::palette().color(QPalette::ButtonText));
}

TEST_F(ButtonTextColor, EmptyTitleHasTheDesktopsColour) {
  setTextColor(&button, kRed);
  button.setText(QString());
  EXPECT_EQ(textColor(&button), QApplication::palette().color(QPalette::ButtonText));
}

TEST_F(ButtonTextColor, TitleIsPaintedInItsColour) {
  EXPECT_FALSE(shows(button, kRed));
  setTextColor(&button, kRed);
  EXPECT_EQ(textColor(&button), kRed);
  EXPECT_TRUE(shows(button, kRed));
}

TEST_F(ButtonTextColor, OneColourHoldsForTheOnStateToo) {
  setTextColor(&button, kRed);
  button.setChecked(true);
  EXPECT_TRUE(shows(button, kRed));
}

TEST_F(ButtonTextColor, ButtonThatIsOnShowsTheAlternateColour) {
  setTextColorAndAlternateColor(&button, kRed, kGreen);
  EXPECT_TRUE(shows(button, kRed));
  EXPECT_FALSE(shows(button, kGreen));
  button.setChecked(true);
  EXPECT_TRUE(shows(button, kGreen));
  EXPECT_FALSE(shows(button, kRed));
  EXPECT_EQ(textColor(&button), kRed);
}

TEST_F(ButtonTextColor, PressedButtonShowsTheAlternateColour) {
  setTextColorAndAlternateColor(&button, kRed, kGreen);
  button.setDown(true);
  EXPECT_TRUE(shows(button, kGreen));
}

TEST_F(ButtonTextColor, ColourWinsOverTheWindowsStyleSheet) {
  QWidget window;
  window.setStyleSheet(styleSheetFor(themeFor(window.palette())));
  button.setParent(&window);
  setTextColorAndAlternateColor(&button, kRed, kGreen);
  EXPECT_TRUE(shows(button, kRed));
  button.setChecked(true);
  EXPECT_TRUE(shows(button, kGreen));
  button.setParent(nullptr);
}

TEST_F(ButtonTextColor, ColourSurvivesANewTitle) {
  setTextColor(&button, kRed);
  button.setText(QStringLiteral("MMM"));
  EXPECT_EQ(textColor(&button), kRed);
  EXPECT_TRUE(shows(button, kRed));
}

TEST_F(ButtonTextColor, LastColourWinsAndTheButtonsOwnSheetStays) {
  button.setStyleSheet(QStringLiteral("QPushButton { background: white; }\n"));
  setTextColor(&button, kRed);
  setTextColorAndAlternateColor(&button, kGreen, kRed);
  setTextColor(&button, kGreen);
  EXPECT_TRUE(shows(button, kGreen));
  EXPECT_FALSE(shows(button, kRed));
  EXPECT_TRUE(button.styleSheet().startsWith(QStringLiteral("QPushButton { background: white; }")));
  EXPECT_EQ(button.styleSheet().count(QStringLiteral("color:")), 3);
}

}  // namespace
}  // namespace quillmeter
