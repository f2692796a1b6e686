#include "controls/PopupState.h"

#include <gtest/gtest.h>

namespace quillmeter {
namespace {

TEST(PopupState, IsClosedAtFirst) {
  EXPECT_FALSE(PopupState().isOpen());
}

TEST(PopupState, HidesAtTheEndOfTheFadeThatClosedIt) {
  PopupState popup;
  popup.open();
  EXPECT_TRUE(popup.isOpen());
  const auto hiding = popup.close();
  EXPECT_FALSE(popup.isOpen());
  EXPECT_TRUE(popup.mayHide(hiding));
}

TEST(PopupState, StaysWhenItWasOpenedDuringTheFade) {
  PopupState popup;
  const auto hiding = popup.close();
  popup.open();
  EXPECT_FALSE(popup.mayHide(hiding));
}

TEST(PopupState, FadesToTheEndOfTheLastOfTwoClosings) {
  PopupState popup;
  popup.open();
  const auto first = popup.close();
  popup.open();
  const auto second = popup.close();
  EXPECT_FALSE(popup.mayHide(first));
  EXPECT_TRUE(popup.mayHide(second));
}

}  // namespace
}  // namespace quillmeter
