#include "reminder/RatingsReminder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <map>

#include "support/UserDefaults.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kMessage =
    "If you like Quillmeter, would you mind taking a moment to rate it? It won't take more than a minute! "
    "Thanks for "
    "your support!";
constexpr auto kFlag = "quillmeter.ratings_reminder.should_remind_1.2";
constexpr auto kCounter = "quillmeter.ratings_reminder.counter_1.2";

class Defaults final : public UserDefaults {
 public:
  std::optional<bool> boolForKey(const std::string& key) const override {
    const auto found = bools.find(key);
    return found == bools.end() ? std::nullopt : std::optional(found->second);
  }
  std::optional<std::int64_t> integerForKey(const std::string& key) const override {
    const auto found = integers.find(key);
    return found == integers.end() ? std::nullopt : std::optional(found->second);
  }
  void setBool(const std::string& key, bool value) override {
    bools[key] = value;
    saved = false;
  }
  void setInteger(const std::string& key, std::int64_t value) override {
    integers[key] = value;
    saved = false;
  }
  void synchronize() override {
    saved = true;
    ++writes;
  }

  std::map<std::string, bool> bools;
  std::map<std::string, std::int64_t> integers;
  bool saved = true;
  int writes = 0;
};

class Presenter final : public ReminderAlertPresenter {
 public:
  std::optional<int> runModal(const ReminderAlert& alert) override {
    shown.push_back(alert);
    if (whileShown) whileShown(alert);
    return answer;
  }
  std::vector<ReminderAlert> shown;
  std::optional<int> answer;
  std::function<void(const ReminderAlert&)> whileShown;
};

class Opener final : public ReviewPageOpener {
 public:
  void open(const std::string& url) override { opened.push_back(url); }
  std::vector<std::string> opened;
};

class RatingsReminderTest : public ::testing::Test {
 protected:
  /// One showing of the statistics window, by a reminder of its own.
  void show(std::uint64_t alertMilestone = 3, std::uint64_t reminderMilestone = 3,
            bool allowUserNotToRate = true, const std::string& version = "1.2") {
    RatingsReminder reminder(version, defaults, presenter, opener);
    reminder.alertIfNecessaryWithAppNameAndRateURLAlertMilestoneReminderMilestoneAllowUserNotToRate(
        "Anything", "https://quillmeter.example/r", alertMilestone, reminderMilestone, allowUserNotToRate);
  }
  void show(int times) {
    for (int time = 0; time < times; ++time)
      show();
  }
  std::size_t alerts() const { return presenter.shown.size(); }

  Defaults defaults;
  Presenter presenter;
  Opener opener;
};

TEST_F(RatingsReminderTest, FirstShowingStartsCountingAndDoesNotAsk) {
  show(1);
  EXPECT_EQ(defaults.integers[kCounter], 1);
  EXPECT_TRUE(defaults.bools[kFlag]);
  EXPECT_TRUE(defaults.saved);
  EXPECT_EQ(defaults.writes, 1);
  EXPECT_EQ(alerts(), 0U);
}

TEST_F(RatingsReminderTest, FirstShowingDoesNotAskEvenAtItsMilestone) {
  show(1, 1);
  EXPECT_EQ(alerts(), 0U);
}

TEST_F(RatingsReminderTest, ThirdShowingAsksWithThreeButtons) {
  show(2);
  EXPECT_EQ(defaults.integers[kCounter], 2);
  EXPECT_EQ(alerts(), 0U);
  show(1);
  EXPECT_EQ(defaults.integers[kCounter], 3);
  EXPECT_TRUE(defaults.saved);
  ASSERT_EQ(alerts(), 1U);
  EXPECT_EQ(presenter.shown[0].message, kMessage);
  EXPECT_THAT(presenter.shown[0].buttons, ElementsAre("Review Now!", "Remind Later!", "No Thanks!"));
}

TEST_F(RatingsReminderTest, CountIsOnDiskBeforeTheAlertIsAnswered) {
  bool savedWhileShown = false;
  presenter.whileShown = [&](const ReminderAlert&) { savedWhileShown = defaults.saved; };
  show(3);
  EXPECT_TRUE(savedWhileShown);
}

TEST_F(RatingsReminderTest, RemindLaterAsksAgainAtEveryThirdShowing) {
  presenter.answer = 1;
  std::vector<int> askedAt;
  for (int showing = 1; showing <= 12; ++showing) {
    const std::size_t before = alerts();
    show(1);
    if (alerts() > before) askedAt.push_back(showing);
  }
  EXPECT_THAT(askedAt, ElementsAre(3, 6, 9, 12));
  EXPECT_TRUE(defaults.bools[kFlag]);
  EXPECT_THAT(opener.opened, IsEmpty());
}

TEST_F(RatingsReminderTest, DismissedAlertCountsAsRemindLater) {
  presenter.answer = std::nullopt;
  show(6);
  EXPECT_EQ(alerts(), 2U);
  EXPECT_TRUE(defaults.bools[kFlag]);
}

TEST_F(RatingsReminderTest, AnAnswerBeyondTheButtonsCountsAsRemindLater) {
  for (const int answer : {3, 1000, -1}) {
    presenter.answer = answer;
    show(3);
    EXPECT_TRUE(defaults.bools[kFlag]) << answer;
  }
  EXPECT_EQ(alerts(), 3U);
  EXPECT_THAT(opener.opened, IsEmpty());
}

TEST_F(RatingsReminderTest, ReviewNowOpensThePageAndNeverAsksAgain) {
  presenter.answer = 0;
  show(3);
  EXPECT_THAT(opener.opened, ElementsAre("https://quillmeter.example/r"));
  EXPECT_FALSE(defaults.bools[kFlag]);
  EXPECT_TRUE(defaults.saved);
  show(9);
  EXPECT_EQ(alerts(), 1U);
  EXPECT_EQ(defaults.integers[kCounter], 3);
}

TEST_F(RatingsReminderTest, NoThanksStopsCountingWithoutOpeningAnything) {
  presenter.answer = 2;
  show(9);
  EXPECT_EQ(alerts(), 1U);
  EXPECT_EQ(defaults.integers[kCounter], 3);
  EXPECT_FALSE(defaults.bools[kFlag]);
  EXPECT_TRUE(defaults.saved);
  EXPECT_THAT(opener.opened, IsEmpty());
}

TEST_F(RatingsReminderTest, NewVersionStartsAfresh) {
  presenter.answer = 2;
  show(3);
  for (int time = 0; time < 3; ++time)
    show(3, 3, true, "2.0");
  EXPECT_EQ(alerts(), 2U);
  EXPECT_EQ(defaults.integers["quillmeter.ratings_reminder.counter_2.0"], 3);
  EXPECT_EQ(defaults.integers[kCounter], 3);
}

TEST_F(RatingsReminderTest, WithoutARefusalThereAreTwoButtons) {
  for (int time = 0; time < 3; ++time)
    show(3, 3, false);
  ASSERT_EQ(alerts(), 1U);
  EXPECT_EQ(presenter.shown[0].message, kMessage);
  EXPECT_THAT(presenter.shown[0].buttons, ElementsAre("Remind Later!", "Review Now!"));
  EXPECT_TRUE(defaults.bools[kFlag]);
}

TEST_F(RatingsReminderTest, FirstOfTwoButtonsRemindsLater) {
  presenter.answer = 0;
  for (int time = 0; time < 3; ++time)
    show(3, 3, false);
  EXPECT_TRUE(defaults.bools[kFlag]);
  EXPECT_THAT(opener.opened, IsEmpty());
}

TEST_F(RatingsReminderTest, SecondOfTwoButtonsReviews) {
  presenter.answer = 1;
  for (int time = 0; time < 3; ++time)
    show(3, 3, false);
  EXPECT_FALSE(defaults.bools[kFlag]);
  EXPECT_THAT(opener.opened, ElementsAre("https://quillmeter.example/r"));
}

TEST_F(RatingsReminderTest, MilestonesMayDiffer) {
  presenter.answer = 1;
  std::vector<int> askedAt;
  for (int showing = 1; showing <= 14; ++showing) {
    const std::size_t before = alerts();
    show(5, 4);
    if (alerts() > before) askedAt.push_back(showing);
  }
  EXPECT_THAT(askedAt, ElementsAre(5, 9, 13));
}

TEST_F(RatingsReminderTest, CountBelowTheMilestoneNeverAsks) {
  for (int time = 0; time < 9; ++time)
    show(10, 1);
  EXPECT_EQ(alerts(), 0U);
}

TEST_F(RatingsReminderTest, ReminderMilestoneOfNothingLeavesTheFirstAlertOnly) {
  for (int time = 0; time < 9; ++time)
    show(3, 0);
  EXPECT_EQ(alerts(), 1U);
}

TEST_F(RatingsReminderTest, FinishedVersionIsKnownByItsCounter) {
  defaults.integers[kCounter] = 7;  // and no flag
  show(5);
  EXPECT_EQ(defaults.integers[kCounter], 7);
  EXPECT_EQ(defaults.writes, 0);
  EXPECT_EQ(alerts(), 0U);
}

TEST_F(RatingsReminderTest, CounterAtTheEndOfItsRangeGoesOn) {
  defaults.bools[kFlag] = true;
  defaults.integers[kCounter] = std::numeric_limits<std::int64_t>::max();
  show(1);
  EXPECT_EQ(defaults.integers[kCounter], std::numeric_limits<std::int64_t>::min());
}

TEST_F(RatingsReminderTest, TellsItsKeysAndGivesItself) {
  RatingsReminder reminder("1.2", defaults, presenter, opener);
  RatingsReminder& same =
      reminder.alertIfNecessaryWithAppNameAndRateURLAlertMilestoneReminderMilestoneAllowUserNotToRate(
          "", "u", 3, 3, true);
  EXPECT_EQ(&same, &reminder);
  EXPECT_EQ(reminder.rateURL(), "u");
  EXPECT_EQ(reminder.APP_VERSION(), "1.2");
  EXPECT_EQ(reminder.KEY_SHOULD_REMIND(), kFlag);
  EXPECT_EQ(reminder.KEY_COUNTER(), kCounter);
}

/// The answers that a presenter reports by itself while the alert is up.
class ReportedAnswer : public RatingsReminderTest {
 protected:
  void report(bool allowUserNotToRate, int button) {
    defaults.bools[kFlag] = true;
    defaults.integers[kCounter] = 2;
    RatingsReminder reminder("1.2", defaults, presenter, opener);
    presenter.whileShown = [&](const ReminderAlert& alert) {
      reminder.alertViewDidDismissWithButtonIndex(&alert, button);
    };
    reminder.alertIfNecessaryWithAppNameAndRateURLAlertMilestoneReminderMilestoneAllowUserNotToRate(
        "", "u", 3, 3, allowUserNotToRate);
    ASSERT_EQ(alerts(), 1U);
  }
};

TEST_F(ReportedAnswer, FirstOfThreeDeclines) {
  report(true, 0);
  EXPECT_FALSE(defaults.bools[kFlag]);
  EXPECT_TRUE(defaults.saved);
  EXPECT_THAT(opener.opened, IsEmpty());
}

TEST_F(ReportedAnswer, SecondOfThreeReviews) {
  report(true, 1);
  EXPECT_FALSE(defaults.bools[kFlag]);
  EXPECT_THAT(opener.opened, ElementsAre("u"));
}

TEST_F(ReportedAnswer, ThirdOfThreeDoesNothing) {
  report(true, 2);
  EXPECT_TRUE(defaults.bools[kFlag]);
  EXPECT_THAT(opener.opened, IsEmpty());
}

TEST_F(ReportedAnswer, SecondOfTwoReviewsAndFirstDoesNothing) {
  report(false, 0);
  EXPECT_TRUE(defaults.bools[kFlag]);
  presenter.shown.clear();
  report(false, 1);
  EXPECT_FALSE(defaults.bools[kFlag]);
  EXPECT_THAT(opener.opened, ElementsAre("u"));
}

TEST_F(ReportedAnswer, AlertThatIsNotUpDoesNothing) {
  const ReminderAlert stranger;
  RatingsReminder reminder("1.2", defaults, presenter, opener);
  reminder.alertViewDidDismissWithButtonIndex(&stranger, 0);
  reminder.alertViewDidDismissWithButtonIndex(nullptr, 1);
  EXPECT_TRUE(defaults.bools.empty());
  EXPECT_THAT(opener.opened, IsEmpty());
}

}  // namespace
}  // namespace quillmeter
