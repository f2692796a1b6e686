#include "controls/ChoicePopup.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "controls/FadingPanel.h"
#include "helpers/FakeServices.h"
#include "helpers/QtWaiting.h"

namespace quillmeter {
namespace {

using namespace std::chrono_literals;

/// A page with a button, its panel of two choices, and a field beside them.
class ChoicePopupTest : public ::testing::Test {
 protected:
  ChoicePopupTest() {
    page.resize(400, 300);
    button.setCheckable(true);
    button.setGeometry(200, 10, 100, 30);
    field.setGeometry(10, 10, 100, 30);
    panel.setGeometry(0, 0, 10, 10);
    auto* layout = new QVBoxLayout(&panel);
    for (QPushButton* const choice : {&first, &second}) {
      choice->setCheckable(true);
      layout->addWidget(choice);
    }
    QObject::connect(&popup, &ChoicePopup::dismissed, &popup, [this] { popup.tap(1); });
    page.show();
    page.activateWindow();
    static_cast<void>(testing::waitUntilActive(&page));
  }

  void openByHand() {
    button.setFocus();
    popup.tap(1);
    fakes.delayedCalls->advance(300ms);
  }

  testing::FakeServices fakes;
  QWidget page;
  QPushButton button{&page};
  QLineEdit field{&page};
  FadingPanel panel{&page};
  QPushButton first{QStringLiteral("first")};
  QPushButton second{QStringLiteral("second")};
  ChoicePopup popup{button, panel, {&first, &second}, fakes.delayedCalls, &page};
};

TEST_F(ChoicePopupTest, OpensWithTheCurrentChoiceMarkedAndInFocus) {
  EXPECT_TRUE(panel.isHidden());
  openByHand();
  EXPECT_FALSE(panel.isHidden());
  EXPECT_TRUE(second.isChecked());
  EXPECT_FALSE(first.isChecked());
  EXPECT_TRUE(second.hasFocus());
  EXPECT_TRUE(button.isChecked());
  EXPECT_TRUE(button.isEnabled());
}

TEST_F(ChoicePopupTest, GivesTheKeyboardBackToItsButton) {
  openByHand();
  popup.tap(1);
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(panel.isHidden());
  EXPECT_TRUE(button.hasFocus());
  EXPECT_FALSE(button.isChecked());
}

TEST_F(ChoicePopupTest, LeavesTheKeyboardToWhoTookItMeanwhile) {
  openByHand();
  popup.tap(1);
  fakes.delayedCalls->advance(100ms);
  field.setFocus();
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(field.hasFocus());
}

TEST_F(ChoicePopupTest, LeavesTheKeyboardToWhoTookItBeforeItClosed) {
  openByHand();
  field.setFocus();
  popup.tap(1);
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(field.hasFocus());
}

TEST_F(ChoicePopupTest, EscapeAnywhereInTheWindowClosesIt) {
  openByHand();
  field.setFocus();
  QTest::keyClick(&field, Qt::Key_Escape);
  EXPECT_FALSE(popup.isOpen());
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(panel.isHidden());
}

TEST_F(ChoicePopupTest, APressElsewhereClosesItAndDoesWhatItDoes) {
  openByHand();
  QTest::mouseClick(&field, Qt::LeftButton);
  EXPECT_FALSE(popup.isOpen());
  EXPECT_TRUE(field.hasFocus());
  fakes.delayedCalls->advance(300ms);
  EXPECT_TRUE(field.hasFocus());
}

TEST_F(ChoicePopupTest, APressOnThePanelOrInAnotherWindowLeavesItOpen) {
  QWidget other;
  other.show();
  openByHand();
  QTest::mouseClick(&panel, Qt::LeftButton);
  QTest::mouseClick(&other, Qt::LeftButton);
  EXPECT_TRUE(popup.isOpen());
}

TEST_F(ChoicePopupTest, KnowsWhetherTheMouseChose) {
  openByHand();
  QTest::mouseClick(&first, Qt::LeftButton);
  EXPECT_TRUE(popup.wasChosenByMouse());
  QTest::keyClick(&first, Qt::Key_Space);
  EXPECT_FALSE(popup.wasChosenByMouse());
}

TEST_F(ChoicePopupTest, EndsWhereItsButtonEndsAndInsideThePage) {
  openByHand();
  EXPECT_EQ(panel.geometry().right(), button.geometry().right());
  EXPECT_GT(panel.y(), button.geometry().bottom());
  page.setLayoutDirection(Qt::RightToLeft);
  popup.place();
  EXPECT_EQ(panel.x(), button.x());
}

}  // namespace
}  // namespace quillmeter
