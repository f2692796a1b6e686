#include "reminder/DesktopReminder.h"

#include <gtest/gtest.h>

#include <QWidget>
#include <vector>

#include "helpers/FakeServices.h"
#include "support/Addresses.h"

namespace quillmeter {
namespace {

TEST(DesktopReminder, AsksOverTheDesktopsServicesAtTheThirdShowing) {
  testing::FakeServices fakes;
  for (int showing = 0; showing < 2; ++showing)
    remindOfRatings(fakes.services(), nullptr);
  EXPECT_TRUE(fakes.alerts->shown.empty());
  fakes.alerts->answers = {0};
  remindOfRatings(fakes.services(), nullptr);
  ASSERT_EQ(fakes.alerts->shown.size(), 1U);
  EXPECT_EQ(fakes.alerts->shown[0].buttons,
            (QStringList{QStringLiteral("Review Now!"), QStringLiteral("Remind Later!"),
                         QStringLiteral("No Thanks!")}));
  ASSERT_EQ(fakes.urlOpener->opened.size(), 1U);
  EXPECT_EQ(fakes.urlOpener->opened[0], QUrl(QString::fromUtf8(kReviewUrl)));
}

TEST(DesktopReminder, AsksAgainAtEveryThirdShowingOverItsWindow) {
  testing::FakeServices fakes;
  QWidget window;
  std::vector<int> asked;
  for (int showing = 1; showing <= 12; ++showing) {
    fakes.alerts->shown.clear();
    fakes.alerts->answers = {1};
    remindOfRatings(fakes.services(), &window);
    if (fakes.alerts->shown.empty()) continue;
    asked.push_back(showing);
    EXPECT_EQ(fakes.alerts->shown.front().parent, &window);
  }
  EXPECT_EQ(asked, (std::vector<int>{3, 6, 9, 12}));
}

TEST(DesktopReminder, MemoryIsNamedAfterTheRunningVersion) {
  testing::FakeServices fakes;
  remindOfRatings(fakes.services(), nullptr);
  ASSERT_EQ(fakes.userDefaults->values.size(), 2U);
  EXPECT_TRUE(
      fakes.userDefaults->boolForKey(std::string("quillmeter.ratings_reminder.should_remind_") + kVersion));
  EXPECT_EQ(fakes.userDefaults->integerForKey(std::string("quillmeter.ratings_reminder.counter_") + kVersion),
            1);
}

/// Notes what is written after its owner has gone.
class NotingUserDefaults final : public UserDefaults {
 public:
  explicit NotingUserDefaults(std::vector<bool>& written) : written_(written) {}
  [[nodiscard]] std::optional<bool> boolForKey(const std::string& /*key*/) const override { return true; }
  [[nodiscard]] std::optional<std::int64_t> integerForKey(const std::string& /*key*/) const override {
    return 2;
  }
  void setBool(const std::string& /*key*/, bool value) override { written_.push_back(value); }
  void setInteger(const std::string& /*key*/, std::int64_t /*value*/) override {}
  void synchronize() override {}

 private:
  std::vector<bool>& written_;
};

TEST(DesktopReminder, AnswerCountsAlsoWhenItsCallerHasGoneMeanwhile) {
  testing::FakeServices fakes;
  std::vector<bool> written;
  auto services = std::make_unique<Services>(fakes.services());
  services->userDefaults = std::make_shared<NotingUserDefaults>(written);
  const std::weak_ptr<UserDefaults> defaults = services->userDefaults;
  fakes.alerts->answers = {2};
  fakes.alerts->whileShown = [&] {
    services.reset();
    EXPECT_FALSE(defaults.expired());
  };
  remindOfRatings(*services, nullptr);
  EXPECT_EQ(written, std::vector<bool>{false});
  EXPECT_TRUE(defaults.expired());
}

}  // namespace
}  // namespace quillmeter
