#include "controls/ViewDisableSubviews.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

namespace quillmeter {
namespace {

/// A view with controls at three depths, tagged 1 to 7, and containers between them.
class ViewDisableSubviews : public ::testing::Test {
 protected:
  ViewDisableSubviews()
      : outer(new QFrame(&view)),
        inner(new QWidget(outer)),
        push1(new QPushButton(&view)),
        push3(new QPushButton(outer)),
        check4(new QCheckBox(inner)),
        label5(new QLabel(inner)),
        field7(new QLineEdit(outer)) {
    setTag(push1, 1);
    setTag(push3, 3);
    setTag(check4, 4);
    setTag(label5, 5);
    setTag(field7, 7);
  }

  /// The tags of the controls that are disabled on their own account.
  std::set<std::int64_t> disabledTags() const {
    std::set<std::int64_t> tags;
    for (const QWidget* control : std::vector<const QWidget*>{push1, push3, check4, label5, field7}) {
      if (!control->isEnabledTo(control->parentWidget())) tags.insert(tagOf(control));
    }
    return tags;
  }

  QWidget view;
  QFrame* outer;
  QWidget* inner;
  QPushButton* push1;
  QPushButton* push3;
  QCheckBox* check4;
  QLabel* label5;
  QLineEdit* field7;
};

using Tags = std::set<std::int64_t>;

TEST_F(ViewDisableSubviews, EveryNestedControlIsDisabledAndEnabledAgain) {
  disableSubviews(&view, true);
  EXPECT_EQ(disabledTags(), (Tags{1, 3, 4, 5, 7}));
  disableSubviews(&view, false);
  EXPECT_EQ(disabledTags(), Tags{});
}

TEST_F(ViewDisableSubviews, ViewItselfAndContainersStayEnabled) {
  disableSubviews(&view, true);
  EXPECT_TRUE(view.isEnabled());
  EXPECT_TRUE(outer->isEnabled());
  EXPECT_TRUE(inner->isEnabled());
}

TEST_F(ViewDisableSubviews, ClassTakesItsSubclassesToo) {
  disableSubviewsOfType(&view, true, QAbstractButton::staticMetaObject);
  EXPECT_EQ(disabledTags(), (Tags{1, 3, 4}));
  disableSubviewsOfType(&view, false, QPushButton::staticMetaObject);
  EXPECT_EQ(disabledTags(), Tags{4});
}

TEST_F(ViewDisableSubviews, StartAndEndTagAreBothIncluded) {
  setTag(push1, -3);
  disableSubviewsStartTagEndTag(&view, true, 3, 5);
  EXPECT_EQ(disabledTags(), (Tags{3, 4, 5}));
}

TEST_F(ViewDisableSubviews, RangeIsLocationAndLength) {
  disableSubviewsInTagRange(&view, true, {4, 3});
  EXPECT_EQ(disabledTags(), (Tags{4, 5}));
}

TEST_F(ViewDisableSubviews, ListOfTagsTakesThoseOnly) {
  disableSubviewsWithTags(&view, true, {1, 7, 99});
  EXPECT_EQ(disabledTags(), (Tags{1, 7}));
}

TEST_F(ViewDisableSubviews, ClassAndTagsHaveToAgree) {
  disableSubviewsOfTypeInTagRange(&view, true, QAbstractButton::staticMetaObject, {3, 5});
  EXPECT_EQ(disabledTags(), (Tags{3, 4}));
  disableSubviews(&view, false);
  disableSubviewsOfTypeWithTags(&view, true, QPushButton::staticMetaObject, {3, 4});
  EXPECT_EQ(disabledTags(), Tags{3});
}

TEST_F(ViewDisableSubviews, FilterSeesContainersButCannotDisableThem) {
  std::vector<const QWidget*> asked;
  disableSubviewsFilter(&view, true, [&](const QWidget* subview) {
    asked.push_back(subview);
    return subview == inner || subview == check4;
  });
  EXPECT_EQ(disabledTags(), Tags{4});
  EXPECT_TRUE(inner->isEnabled());
  const auto at = [&](const QWidget* subview) { return std::find(asked.begin(), asked.end(), subview); };
  EXPECT_LT(at(check4), at(inner));
  EXPECT_LT(at(inner), at(outer));
}

TEST_F(ViewDisableSubviews, NoFilterTakesEveryControl) {
  disableSubviewsFilter(&view, true, nullptr);
  EXPECT_EQ(disabledTags().size(), 5U);
}

TEST_F(ViewDisableSubviews, WindowsOfTheViewAreNoPartOfIt) {
  QDialog dialog(&view);
  QPushButton button(&dialog);
  disableSubviews(&view, true);
  EXPECT_TRUE(button.isEnabledTo(&dialog));
}

TEST_F(ViewDisableSubviews, UntaggedControlsHaveTagZeroAndContainersMinusOne) {
  EXPECT_EQ(tagOf(new QPushButton(&view)), 0);
  EXPECT_EQ(tagOf(inner), -1);
}

}  // namespace
}  // namespace quillmeter
