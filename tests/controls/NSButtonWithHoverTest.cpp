#include "controls/NSButtonWithHover.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEnterEvent>
#include <QTest>

namespace quillmeter {
namespace {

const QString kNormal = QStringLiteral("btn_open_project_normal");
const QString kHover = QStringLiteral("btn_open_project_hover");
const QString kPress = QStringLiteral("btn_open_project_press");

class HoverButton : public ::testing::Test {
 protected:
  HoverButton() {
    window.resize(400, 200);
    button.setGeometry(20, 20, 220, 48);
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
  }
  void enter() {
    QEnterEvent event(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QApplication::sendEvent(&button, &event);
  }
  void leave() {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&button, &event);
  }
  QWidget window;
  NSButtonWithHover button{&window};
};

TEST_F(HoverButton, ShowsTheNormalPictureFirst) {
  EXPECT_EQ(button.imageName(), kNormal);
  EXPECT_EQ(button.sizeHint(), QSize(220, 48));
}

TEST_F(HoverButton, PictureFollowsTheMouse) {
  enter();
  EXPECT_EQ(button.imageName(), kHover);
  leave();
  EXPECT_EQ(button.imageName(), kNormal);
}

TEST_F(HoverButton, MouseIsNotTrackedInAWindowWithoutTheKeyboard) {
  QApplication::setActiveWindow(nullptr);
  enter();
  EXPECT_EQ(button.imageName(), kNormal);
}

TEST_F(HoverButton, MouseThatLeavesAfterTheKeyboardTakesItsPictureWithIt) {
  enter();
  QApplication::setActiveWindow(nullptr);
  leave();
  EXPECT_EQ(button.imageName(), kNormal);
}

TEST_F(HoverButton, FreshTrackingAreaReportsOnce) {
  button.updateTrackingAreas();
  button.updateTrackingAreas();
  enter();
  EXPECT_EQ(button.imageName(), kHover);
}

TEST_F(HoverButton, PressedPictureComesAfterTheActionAndStaysUntilTheMouseLeaves) {
  QString duringAction;
  QObject::connect(&button, &QPushButton::clicked, [&] { duringAction = button.imageName(); });
  enter();
  QTest::mousePress(&button, Qt::LeftButton);
  EXPECT_EQ(button.imageName(), kHover);
  QTest::mouseRelease(&button, Qt::LeftButton);
  EXPECT_EQ(duringAction, kHover);
  EXPECT_EQ(button.imageName(), kPress);
  leave();
  EXPECT_EQ(button.imageName(), kNormal);
}

TEST_F(HoverButton, MouseThatLeavesWhileTheActionRunsTakesThePressedPictureWithIt) {
  const auto action = QObject::connect(&button, &QPushButton::clicked, [this] { leave(); });
  enter();
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(button.imageName(), kNormal);
  QObject::disconnect(action);

  QCursor::setPos(button.mapToGlobal(QPoint(5, 5)));
  QObject::connect(&button, &QPushButton::clicked, [] { QCursor::setPos(390, 190); });
  QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(button.imageName(), kNormal) << "nothing was told, as while a panel is up";
}

TEST_F(HoverButton, ButtonThatComesBackIsNotPressedAnyMore) {
  enter();
  QTest::mouseClick(&button, Qt::LeftButton);
  ASSERT_EQ(button.imageName(), kPress);
  button.hide();
  button.show();
  EXPECT_EQ(button.imageName(), kNormal);
  QObject::connect(&button, &QPushButton::clicked, &button, &QWidget::hide);
  QTest::mouseClick(&button, Qt::LeftButton);
  button.show();
  EXPECT_EQ(button.imageName(), kNormal) << "hidden by its own action";
}

TEST_F(HoverButton, DisabledButtonIsPaler) {
  QPixmap canvas(button.size());
  canvas.fill(Qt::white);
  const auto drawn = [&] {
    QPixmap picture = canvas;
    button.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    return picture.toImage().pixelColor(30, 24);
  };
  const QColor enabled = drawn();
  button.setEnabled(false);
  EXPECT_GT(drawn().lightness(), enabled.lightness() + 40);
}

TEST_F(HoverButton, ReleaseThatEndsNoPressShowsTheNormalPicture) {
  QTest::mouseClick(&button, Qt::LeftButton);
  ASSERT_EQ(button.imageName(), kPress);
  QTest::mouseRelease(&button, Qt::LeftButton);
  EXPECT_EQ(button.imageName(), kNormal);
}

TEST_F(HoverButton, ReleaseOutsideSendsNoActionButEndsThePress) {
  bool acted = false;
  QObject::connect(&button, &QPushButton::clicked, [&] { acted = true; });
  QTest::mousePress(&button, Qt::LeftButton);
  QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(300, 100));
  EXPECT_FALSE(acted);
  EXPECT_EQ(button.imageName(), kPress);
}

TEST_F(HoverButton, OtherMouseButtonsChangeNothing) {
  QTest::mouseClick(&button, Qt::RightButton);
  EXPECT_EQ(button.imageName(), kNormal);
}

TEST_F(HoverButton, SwappingTypeShowsTheAlternatePictureWhileHeldDown) {
  button.setAlternateImageName(kPress);
  const QImage normal = button.grab().toImage();
  button.setDown(true);
  EXPECT_EQ(button.grab().toImage(), normal);
  button.setButtonType(NSButtonWithHover::ButtonType::momentaryChange);
  EXPECT_NE(button.grab().toImage(), normal);
}

TEST_F(HoverButton, SpaceBarSendsTheAction) {
  int actions = 0;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++actions; });
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(actions, 1);
}

TEST_F(HoverButton, ActionMayDestroyTheButton) {
  auto* doomed = new NSButtonWithHover(&window);
  QObject::connect(doomed, &QPushButton::clicked, [doomed] { delete doomed; });
  doomed->show();
  QTest::mousePress(doomed, Qt::LeftButton);
  QMouseEvent release(QEvent::MouseButtonRelease, QPointF(3, 3), QPointF(3, 3), Qt::LeftButton, Qt::NoButton,
                      {});
  QApplication::sendEvent(doomed, &release);
  EXPECT_EQ(window.findChildren<NSButtonWithHover*>().size(), 1);
}

}  // namespace
}  // namespace quillmeter
