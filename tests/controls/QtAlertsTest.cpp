#include "controls/QtAlerts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "controls/QtDelayedCalls.h"
#include "helpers/QtWaiting.h"

namespace quillmeter {
namespace {

/// Runs an alert and does something to it once it is up.
class AlertTest : public ::testing::Test {
 protected:
  std::optional<int> run(const QStringList& buttons, std::function<void(QMessageBox&)> whileUp) {
    QTimer::singleShot(0, [whileUp = std::move(whileUp)] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      whileUp(*box);
    });
    return alerts.runModal(&window, QStringLiteral("<b>Text</b> of an alert"), buttons);
  }
  static void press(QMessageBox& box, Qt::Key key) { QTest::keyClick(&box, key); }

  QtAlerts alerts;
  QWidget window;
  const QStringList kThree{QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")};
};

TEST_F(AlertTest, ShowsPlainTextOverTheWholeApplication) {
  static_cast<void>(run({QStringLiteral("Ok")}, [](QMessageBox& box) {
    EXPECT_EQ(box.text(), QStringLiteral("<b>Text</b> of an alert"));
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
    EXPECT_TRUE(box.isVisible());
    press(box, Qt::Key_Return);
  }));
}

TEST_F(AlertTest, ButtonsStandInTheirOrderFromLeftToRight) {
  static_cast<void>(run(kThree, [this](QMessageBox& box) {
    QList<QAbstractButton*> buttons = box.buttons();
    ASSERT_EQ(buttons.size(), 3);
    std::sort(buttons.begin(), buttons.end(),
              [](const QWidget* a, const QWidget* b) { return a->x() < b->x(); });
    for (int index = 0; index < 3; ++index)
      EXPECT_EQ(buttons[index]->text(), kThree[index]);
    press(box, Qt::Key_Escape);
  }));
}

TEST_F(AlertTest, GivesTheIndexOfThePressedButton) {
  for (int index = 0; index < 3; ++index) {
    EXPECT_EQ(run(kThree, [index](QMessageBox& box) { box.buttons()[index]->click(); }), index);
  }
}

TEST_F(AlertTest, EnterPressesTheFirstButton) {
  EXPECT_EQ(run(kThree, [](QMessageBox& box) { press(box, Qt::Key_Return); }), 0);
}

TEST_F(AlertTest, EscAndTheCloseButtonAnswerNothing) {
  EXPECT_EQ(run(kThree, [](QMessageBox& box) { press(box, Qt::Key_Escape); }), std::nullopt);
  EXPECT_EQ(run(kThree, [](QMessageBox& box) { box.close(); }), std::nullopt);
}

TEST_F(AlertTest, EscAndTheCloseButtonPressASingleButton) {
  EXPECT_EQ(run({QStringLiteral("Ok")}, [](QMessageBox& box) { press(box, Qt::Key_Escape); }), 0);
  EXPECT_EQ(run({QStringLiteral("Ok")}, [](QMessageBox& box) { box.close(); }), 0);
}

TEST_F(AlertTest, WindowThatGoesTakesItsAlertAlong) {
  auto* doomed = new QWidget;
  QTimer::singleShot(0, [doomed] { delete doomed; });
  EXPECT_EQ(alerts.runModal(doomed, QStringLiteral("Text"), kThree), std::nullopt);
}

TEST_F(AlertTest, NeedsNoWindow) {
  QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
  EXPECT_EQ(alerts.runModal(nullptr, QStringLiteral("Text"), {QStringLiteral("Ok")}), 0);
}

TEST_F(AlertTest, DelayedMessagesComeWhileAnAlertIsUp) {
  QtDelayedCalls calls;
  bool came = false;
  calls.performAfterDelay(&window, std::chrono::milliseconds(1), [&] {
    came = true;
    QApplication::activeModalWidget()->close();
  });
  static_cast<void>(alerts.runModal(&window, QStringLiteral("Text"), {QStringLiteral("Ok")}));
  EXPECT_TRUE(came);
}

TEST(QtDelayedCalls, MessageIsDroppedWithItsReceiver) {
  QtDelayedCalls calls;
  bool came = false;
  bool later = false;
  QObject lasting;
  {
    QObject receiver;
    calls.performAfterDelay(&receiver, std::chrono::milliseconds(1), [&] { came = true; });
  }
  calls.performAfterDelay(&lasting, std::chrono::milliseconds(20), [&] { later = true; });
  EXPECT_TRUE(testing::waitFor([&] { return later; }));
  EXPECT_FALSE(came);
}

}  // namespace
}  // namespace quillmeter
