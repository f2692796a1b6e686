#include "app/CustomShapeWindow.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <memory>

#include "app/CustomShapeWindowFrameView.h"
#include "app/WindowButton.h"
#include "helpers/QtWaiting.h"

namespace quillmeter {
namespace {

class ShapeWindow : public ::testing::Test {
 protected:
  ShapeWindow() : window(QRect(30, 40, 200, 100), Qt::Dialog) {}
  CustomShapeWindow window;
};

TEST_F(ShapeWindow, IsBorderlessAndTranslucentWhateverIsAskedFor) {
  EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(window.windowType(), Qt::Window);
  EXPECT_TRUE(window.testAttribute(Qt::WA_TranslucentBackground));
  EXPECT_EQ(window.geometry(), QRect(30, 40, 200, 100));
  EXPECT_TRUE(window.canBecomeKeyWindow());
  EXPECT_TRUE(window.canBecomeMainWindow());
}

TEST_F(ShapeWindow, RectanglesOfFrameAndContentAgree) {
  EXPECT_EQ(window.contentRectForFrameRect(QRect(5, 6, 70, 80)), QRect(0, 0, 70, 80));
  EXPECT_EQ(CustomShapeWindow::frameRectForContentRectStyleMask(QRect(5, 6, 70, 80), Qt::Window),
            QRect(5, 6, 70, 80));
}

TEST_F(ShapeWindow, ContentIsWhatWasSetAndLiesInTheFrameView) {
  EXPECT_EQ(window.contentView(), nullptr);
  auto* content = new QWidget;
  window.setContentView(content);
  EXPECT_EQ(window.contentView(), content);
  auto* frameView = qobject_cast<CustomShapeWindowFrameView*>(content->parentWidget());
  ASSERT_NE(frameView, nullptr);
  EXPECT_EQ(frameView->parentWidget(), &window);
  EXPECT_EQ(content->geometry(), QRect(0, 0, 200, 100));
}

TEST_F(ShapeWindow, NewContentTakesThePlaceOfTheOld) {
  QWidget old;
  window.setContentView(&old);
  QWidget* frameView = old.parentWidget();
  window.setContentView(&old);
  EXPECT_EQ(old.parentWidget(), frameView);
  auto* content = new QWidget;
  window.setContentView(content);
  EXPECT_EQ(old.parentWidget(), nullptr);
  EXPECT_EQ(content->parentWidget(), frameView);
  EXPECT_EQ(window.findChildren<CustomShapeWindowFrameView*>().size(), 1);
}

TEST_F(ShapeWindow, ContentGrowsWithTheWindow) {
  auto* content = new QWidget;
  window.setContentView(content);
  window.show();
  window.resize(300, 250);
  EXPECT_TRUE(testing::waitFor([&] { return content->size() == QSize(300, 250); }));
}

TEST_F(ShapeWindow, ContentSizeIsThatOfTheContent) {
  auto* content = new QWidget;
  window.setContentView(content);
  window.show();
  window.setContentSize(QSize(123, 77));
  EXPECT_TRUE(testing::waitFor([&] { return content->size() == QSize(123, 77); }));
}

TEST_F(ShapeWindow, ContentSizeMakesUpForContentSmallerThanTheWindow) {
  auto* content = new QWidget;
  window.setContentView(content);
  window.show();
  content->resize(180, 90);
  window.setContentSize(QSize(180, 90));
  EXPECT_EQ(window.size(), QSize(200, 100));
}

TEST_F(ShapeWindow, NothingButTheContentIsDrawn) {
  auto* content = new QLabel;
  content->setPixmap([] {
    QPixmap picture(200, 100);
    picture.fill(Qt::transparent);
    QPainter(&picture).fillRect(50, 20, 50, 50, Qt::red);
    return picture;
  }());
  window.setContentView(content);
  window.show();
  QImage drawn(window.size(), QImage::Format_ARGB32_Premultiplied);
  drawn.fill(Qt::gray);  // what was drawn there before
  window.render(&drawn, QPoint(), QRegion(), QWidget::DrawChildren);
  EXPECT_EQ(drawn.pixelColor(70, 40), QColor(Qt::red));
  EXPECT_EQ(drawn.pixelColor(5, 5).alpha(), 0);
}

TEST_F(ShapeWindow, DragMovesItByTheMousesTravelFromThePress) {
  window.setContentView(new QLabel(QStringLiteral("no control")));
  window.show();
  QWidget* pressed = window.contentView();
  const QPoint start = window.pos();
  const auto send = [&](QEvent::Type type, QPoint screen, Qt::MouseButtons held) {
    QMouseEvent event(type, QPointF(pressed->mapFromGlobal(screen)), QPointF(screen),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, {});
    QApplication::sendEvent(pressed, &event);
  };
  send(QEvent::MouseButtonPress, QPoint(100, 90), Qt::LeftButton);
  for (const QPoint& travel : {QPoint(3, -2), QPoint(250, 120), QPoint(-7, 11)}) {
    send(QEvent::MouseMove, QPoint(100, 90) + travel, Qt::LeftButton);
    EXPECT_EQ(window.pos(), start + travel);
  }
  send(QEvent::MouseButtonRelease, QPoint(93, 101), Qt::NoButton);
  send(QEvent::MouseMove, QPoint(400, 400), Qt::LeftButton);
  EXPECT_EQ(window.pos(), start + QPoint(-7, 11));
  EXPECT_EQ(window.size(), QSize(200, 100));
}

TEST_F(ShapeWindow, OtherButtonsDoNotMoveIt) {
  window.setContentView(new QLabel);
  window.show();
  const QPoint start = window.pos();
  QTest::mousePress(window.contentView(), Qt::RightButton, {}, QPoint(10, 10));
  QTest::mouseMove(window.contentView(), QPoint(60, 60));
  EXPECT_EQ(window.pos(), start);
  QTest::mouseRelease(window.contentView(), Qt::RightButton);
}

TEST_F(ShapeWindow, PressWhoseReleaseWentElsewhereDoesNotMoveItLater) {
  window.setContentView(new QLabel);
  window.show();
  const QPoint start = window.pos();
  QTest::mousePress(window.contentView(), Qt::LeftButton, {}, QPoint(10, 10));
  QMouseEvent otherDrag(QEvent::MouseMove, QPointF(60, 60), QPointF(90, 100), Qt::NoButton, Qt::RightButton,
                        {});
  QApplication::sendEvent(window.contentView(), &otherDrag);
  EXPECT_EQ(window.pos(), start);
  QTest::mouseRelease(window.contentView(), Qt::LeftButton);
}

TEST(OutlineOfPicture, HoldsTheOpaquePartOnly) {
  QImage picture(20, 10, QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  for (int x = 5; x < 15; ++x) {
    for (int y = 2; y < 8; ++y)
      picture.setPixelColor(x, y, QColor(10, 20, 30));
  }
  picture.setPixelColor(4, 4, QColor(0, 0, 0, 60));
  EXPECT_EQ(outlineOfPicture(picture), QRegion(5, 2, 10, 6));
}

TEST(WindowButton, LooksTellActiveAndEnabled) {
  QWidget window;
  WindowButton button(WindowButton::Kind::close, &window);
  EXPECT_EQ(button.size(), button.sizeHint());
  window.show();
  QApplication::setActiveWindow(&window);
  const QImage active = button.grab().toImage();
  QApplication::setActiveWindow(nullptr);
  EXPECT_NE(button.grab().toImage(), active);
  QApplication::setActiveWindow(&window);
  EXPECT_EQ(button.grab().toImage(), active);
  button.setEnabled(false);
  EXPECT_NE(button.grab().toImage(), active);
}

/// Counts how often a widget is drawn.
class Drawings final : public QObject {
 public:
  explicit Drawings(QWidget& watched) { watched.installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
  int count = 0;
};

TEST(WindowButton, IsDrawnAnewWhenItsWindowGainsOrLosesTheKeyboard) {
  QWidget window;
  auto* between = new QWidget(&window);
  WindowButton button(WindowButton::Kind::close, between);
  window.show();
  ASSERT_TRUE(testing::waitUntilExposed(&window));
  QApplication::setActiveWindow(&window);
  QCoreApplication::processEvents();
  Drawings drawings(button);
  QApplication::setActiveWindow(nullptr);
  EXPECT_TRUE(testing::waitFor([&] { return drawings.count == 1; }));
  QApplication::setActiveWindow(&window);
  EXPECT_TRUE(testing::waitFor([&] { return drawings.count == 2; }));
}

TEST(WindowButton, MouseOverCloseWarnsAndOverMinimiseDoesNot) {
  QWidget window;
  WindowButton close(WindowButton::Kind::close, &window);
  WindowButton minimize(WindowButton::Kind::minimize, &window);
  WindowButton disabled(WindowButton::Kind::minimize, &window);
  disabled.setEnabled(false);
  window.show();
  QApplication::setActiveWindow(&window);
  const auto disc = [](WindowButton& button) { return button.grab().toImage().pixelColor(8, 4); };
  const QColor atRest = disc(close);
  EXPECT_EQ(disc(minimize), atRest);
  const QColor inactive = disc(disabled);
  for (WindowButton* button : {&close, &minimize, &disabled}) {
    QEnterEvent event(QPointF(8, 8), QPointF(8, 8), QPointF(8, 8));
    QApplication::sendEvent(button, &event);
  }
  EXPECT_GT(disc(close).red(), disc(close).blue() + 80);
  EXPECT_GT(disc(minimize).blue(), disc(minimize).red() + 80);
  EXPECT_EQ(disc(disabled), inactive) << "nothing to press there";
}

TEST(WindowButton, IsDrawnAnewWhenTheMouseComesAndGoesInAnyStyleOfTheDesktop) {
  const std::unique_ptr<QStyle> plain(
      QStyleFactory::create(QStringLiteral("windows")));  // asks for nothing by itself
  QWidget window;
  window.resize(200, 100);
  WindowButton button(WindowButton::Kind::close, &window);
  button.setStyle(plain.get());
  button.move(50, 50);
  window.show();
  ASSERT_TRUE(testing::waitUntilExposed(&window));
  const auto moveTo = [&](QPoint place) {
    QTest::mouseMove(&window, place);
    QCoreApplication::processEvents();
  };
  moveTo(QPoint(5, 5));
  Drawings drawings(button);
  moveTo(QPoint(58, 58));
  EXPECT_TRUE(testing::waitFor([&] { return drawings.count > 0; }));
  drawings.count = 0;
  moveTo(QPoint(5, 5));
  EXPECT_TRUE(testing::waitFor([&] { return drawings.count > 0; }));
}

TEST(WindowButton, ReturnPressesIt) {
  WindowButton button(WindowButton::Kind::close, nullptr);
  int pressed = 0;
  QObject::connect(&button, &QAbstractButton::clicked, [&pressed] { ++pressed; });
  QTest::keyClick(&button, Qt::Key_Return);
  QTest::keyClick(&button, Qt::Key_Enter);
  EXPECT_EQ(pressed, 2);
}

TEST(WindowButton, EachKindHasItsOwnSign) {
  QWidget window;
  WindowButton close(WindowButton::Kind::close, &window);
  WindowButton minimize(WindowButton::Kind::minimize, &window);
  WindowButton zoom(WindowButton::Kind::zoom, &window);
  EXPECT_NE(close.grab().toImage(), minimize.grab().toImage());
  EXPECT_NE(minimize.grab().toImage(), zoom.grab().toImage());
}

}  // namespace
}  // namespace quillmeter
