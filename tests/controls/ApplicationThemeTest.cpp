#include "controls/ApplicationTheme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <cmath>

#include "controls/FocusRing.h"
#include "controls/ImageView.h"
#include "controls/Theme.h"

namespace quillmeter {
namespace {

const QPalette kLight(QColor(0xEF, 0xEF, 0xEF));
const QPalette kDark(QColor(0x2B, 0x2F, 0x33));

double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(static_cast<double>(color.redF())) +
         0.7152 * linear(static_cast<double>(color.greenF())) +
         0.0722 * linear(static_cast<double>(color.blueF()));
}

double contrast(const QColor& a, const QColor& b) {
  const auto [low, high] = std::minmax({luminance(a), luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

class ApplicationThemeTest : public ::testing::Test {
 protected:
  ~ApplicationThemeTest() override { QApplication::setPalette(before_); }
  QPalette before_ = QApplication::palette();
};

TEST_F(ApplicationThemeTest, FollowsTheDesktopsColours) {
  QApplication::setPalette(kLight);
  const ApplicationTheme theme;
  EXPECT_EQ(qApp->styleSheet(), styleSheetFor(themeFor(kLight)));
  QApplication::setPalette(kDark);
  QCoreApplication::processEvents();
  EXPECT_EQ(qApp->styleSheet(), styleSheetFor(themeFor(kDark)));
}

TEST_F(ApplicationThemeTest, PicturesHaveADarkVersion) {
  QApplication::setPalette(kLight);
  ImageView view;
  view.resize(420, 360);
  view.setImageName(QStringLiteral("window_middle_part"));
  const auto body = [&view] { return view.grab().toImage().pixelColor(30, 200).lightness(); };
  EXPECT_GT(body(), 220);
  QApplication::setPalette(kDark);
  EXPECT_LT(body(), 60);
  EXPECT_EQ(view.imageName(), QStringLiteral("window_middle_part"));
}

/// Two buttons in a window that has the keyboard.
class FocusRingTest : public ::testing::Test {
 protected:
  FocusRingTest() {
    first.setGeometry(0, 0, 80, 40);
    second.setGeometry(100, 0, 80, 40);
    window.resize(200, 60);
    window.show();
    QApplication::setActiveWindow(&window);
    first.setFocus();
  }
  FocusRing ring;
  QWidget window;
  QPushButton first{&window};
  QPushButton second{&window};
};

TEST_F(FocusRingTest, ShowsForWhoUsesTheKeyboard) {
  EXPECT_FALSE(hasFocusRing(&first));
  QTest::keyClick(&first, Qt::Key_Tab);
  ASSERT_TRUE(second.hasFocus());
  EXPECT_TRUE(hasFocusRing(&second));
  EXPECT_FALSE(hasFocusRing(&first));
}

TEST_F(FocusRingTest, IsTheOnlyFrameAroundACheckBox) {
  const ApplicationTheme theme;
  QCheckBox box(QStringLiteral("Headers"), &window);
  box.resize(box.sizeHint());
  box.show();
  const auto inside = [&box] { return box.grab(box.rect().adjusted(6, 6, -6, -6)).toImage(); };
  const QImage before = inside();
  QTest::keyClick(&window, Qt::Key_Shift);
  box.setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(hasFocusRing(&box));
  EXPECT_EQ(inside(), before);
}

TEST_F(FocusRingTest, GoesWithTheFirstPressOfTheMouseAndComesBackWithAKey) {
  QTest::keyClick(&first, Qt::Key_Tab);
  QTest::mouseClick(&first, Qt::LeftButton);
  EXPECT_FALSE(hasFocusRing(&first) || hasFocusRing(&second));
  first.setFocus();
  EXPECT_FALSE(hasFocusRing(&first));
  QTest::keyClick(&first, Qt::Key_Shift);
  EXPECT_TRUE(hasFocusRing(&first));
}

TEST_F(FocusRingTest, FollowsTheFocusThatTheProgramMoves) {
  QTest::keyClick(&first, Qt::Key_Tab);
  first.setFocus(Qt::OtherFocusReason);
  EXPECT_TRUE(hasFocusRing(&first));
  first.hide();
  EXPECT_FALSE(hasFocusRing(&first));
}

/// The widget as it looks with the focus and its ring, or without both.
QImage drawn(QWidget& widget, QWidget& window, bool ring) {
  ring ? widget.setFocus() : widget.clearFocus();
  widget.setProperty("focusRing", ring);
  window.setStyleSheet(window.styleSheet());
  return window.grab(widget.geometry()).toImage();
}

/// The strongest change of a pixel that the ring makes.
double changeByRing(QWidget& widget, QWidget& window) {
  const QImage without = drawn(widget, window, false);
  const QImage with = drawn(widget, window, true);
  double strongest = 1;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x)
      strongest = std::max(strongest, contrast(with.pixelColor(x, y), without.pixelColor(x, y)));
  }
  return strongest;
}

TEST_F(ApplicationThemeTest, RingOfAButtonStaysClearOfItsTextAndMovesNothing) {
  constexpr int kRing = 6;    // with the gap inside it
  constexpr int kCorner = 4;  // the fill's, inside the gap
  for (const char* place : {"page", "sidebar", "popup"}) {
    for (const char* role : {"", "primary"}) {
      for (const bool checked : {false, true}) {
        SCOPED_TRACE(std::string(place) + " " + role + (checked ? " checked" : ""));
        QFrame window;
        window.setAttribute(Qt::WA_StyledBackground);
        window.setProperty("role", QLatin1String(place));
        window.setStyleSheet(styleSheetFor(themeFor(kLight)));
        QPushButton button(QStringLiteral("Search"), &window);
        button.setCheckable(true);
        button.setChecked(checked);
        button.setProperty("role", QLatin1String(role));
        window.show();
        QApplication::setActiveWindow(&window);
        button.ensurePolished();
        button.resize(button.sizeHint());
        const QRect inside = button.rect().adjusted(kRing + kCorner, kRing, -kRing - kCorner, -kRing);
        const QImage without = drawn(button, window, false).copy(inside);
        const QSize size = button.sizeHint();
        EXPECT_TRUE(drawn(button, window, true).copy(inside) == without);
        EXPECT_EQ(button.sizeHint(), size);
      }
    }
  }
}

TEST_F(ApplicationThemeTest, RingIsVisibleOnEverythingInEveryState) {
  for (const QPalette& palette : {kLight, kDark}) {
    for (const char* role : {"page", "sidebar", "popup"}) {
      QFrame window;
      window.setAttribute(Qt::WA_StyledBackground);
      window.setProperty("role", QLatin1String(role));
      window.setStyleSheet(styleSheetFor(themeFor(palette)));
      const bool onPage = role == std::string("page");
      std::vector<QWidget*> widgets;
      const auto button = [&](bool checked, const char* buttonRole) {
        auto* made = new QPushButton(QStringLiteral("Title"), &window);
        made->setCheckable(true);
        made->setChecked(checked);
        made->setProperty("role", QLatin1String(buttonRole));
        widgets.push_back(made);
      };
      button(false, "");
      button(true, "");
      if (onPage) {
        button(false, "primary");
        button(false, "link");
        auto* check = new QCheckBox(QStringLiteral("Title"), &window);
        check->setChecked(true);
        widgets.insert(widgets.end(), {check, new QCheckBox(&window), new QComboBox(&window),
                                       new QToolButton(&window), new QTableWidget(&window)});
      }
      window.show();
      QApplication::setActiveWindow(&window);
      for (QWidget* widget : widgets) {
        for (QWidget* other : widgets)
          other->setVisible(other == widget);
        widget->resize(120, 40);
        EXPECT_GE(changeByRing(*widget, window), 3.0)
            << role << " " << widget->metaObject()->className() << " of "
            << widget->property("role").toString().toStdString();
      }
    }
  }
}

}  // namespace
}  // namespace quillmeter
