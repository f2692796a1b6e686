#include "reminder/RatingsReminder.h"

#include <utility>

#include "support/UserDefaults.h"

namespace quillmeter {
namespace {

constexpr auto kMessage =
    "If you like Quillmeter, would you mind taking a moment to rate it? It won't take more than a minute! "
    "Thanks for "
    "your support!";
constexpr auto kReviewNow = "Review Now!";
constexpr auto kRemindLater = "Remind Later!";
constexpr auto kNoThanks = "No Thanks!";

}  // namespace

RatingsReminder::RatingsReminder(std::string bundleVersion, UserDefaults& defaults,
                                 ReminderAlertPresenter& presenter, ReviewPageOpener& opener)
    : bundleVersion_(std::move(bundleVersion)), defaults_(defaults), presenter_(presenter), opener_(opener) {}

RatingsReminder&
RatingsReminder::alertIfNecessaryWithAppNameAndRateURLAlertMilestoneReminderMilestoneAllowUserNotToRate(
    const std::string& /*appName*/, const std::string& rateURL, std::uint64_t alertMilestone,
    std::uint64_t reminderMilestone, bool allowUserNotToRate) {
  setRateURL(rateURL);
  setAPP_VERSION(bundleVersion_);
  setKEY_SHOULD_REMIND("quillmeter.ratings_reminder.should_remind_" + APP_VERSION_);
  setKEY_COUNTER("quillmeter.ratings_reminder.counter_" + APP_VERSION_);

  const std::optional<std::uint64_t> count = countShowing();
  if (!count) return *this;
  const bool atReminder =
      reminderMilestone != 0 && (*count - alertMilestone) % reminderMilestone == 0 && *count > alertMilestone;
  if (*count == alertMilestone || (atReminder && shouldRemind())) ask(allowUserNotToRate);
  return *this;
}

std::optional<std::uint64_t> RatingsReminder::countShowing() {
  const std::int64_t counter = defaults_.integerForKey(KEY_COUNTER_).value_or(0);
  if (!shouldRemind()) {
    if (counter == 0) {
      defaults_.setInteger(KEY_COUNTER_, 1);
      defaults_.setBool(KEY_SHOULD_REMIND_, true);
      defaults_.synchronize();
    }
    return std::nullopt;
  }
  // Unsigned, so that a counter at the end of its range (an edited settings file) wraps.
  const std::uint64_t next = static_cast<std::uint64_t>(counter) + 1;
  defaults_.setInteger(KEY_COUNTER_, static_cast<std::int64_t>(next));
  defaults_.synchronize();
  return next;
}

bool RatingsReminder::shouldRemind() const {
  return defaults_.boolForKey(KEY_SHOULD_REMIND_).value_or(false);
}

void RatingsReminder::ask(bool allowUserNotToRate) {
  const ReminderAlert alert{kMessage, allowUserNotToRate
                                          ? std::vector<std::string>{kReviewNow, kRemindLater, kNoThanks}
                                          : std::vector<std::string>{kRemindLater, kReviewNow}};
  const ReminderAlert*& shown = allowUserNotToRate ? alert1_ : alert2_;
  shown = &alert;
  const std::optional<int> answer = presenter_.runModal(alert);
  shown = nullptr;

  if (!answer || *answer < 0 || static_cast<std::size_t>(*answer) >= alert.buttons.size()) return;
  const std::string& button = alert.buttons[static_cast<std::size_t>(*answer)];
  if (button == kRemindLater) return;
  neverRemindAgain();
  if (button == kReviewNow) opener_.open(rateURL_);
}

void RatingsReminder::alertViewDidDismissWithButtonIndex(const ReminderAlert* alert, int buttonIndex) {
  if (alert == nullptr) return;
  if (alert == alert1_ && buttonIndex == 0) {
    neverRemindAgain();
  } else if (alert == alert1_ && buttonIndex == 1) {
    neverRemindAgain();
    opener_.open(rateURL_);
  }
  if (alert == alert2_ && buttonIndex == 1) {
    neverRemindAgain();
    opener_.open(rateURL_);
  }
}

void RatingsReminder::neverRemindAgain() {
  defaults_.setBool(KEY_SHOULD_REMIND_, false);
  defaults_.synchronize();
}

}  // namespace quillmeter
