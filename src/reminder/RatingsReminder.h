#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmeter {

class UserDefaults;

/// An alert as the reminder composes it.
struct ReminderAlert {
  std::string message;
  std::vector<std::string> buttons;  ///< in the order in which they are shown
};

/// Shows the reminder's alerts.
class ReminderAlertPresenter {
 public:
  virtual ~ReminderAlertPresenter() = default;
  /// Blocks until the alert is answered. Gives the index of the button, or nothing when the alert was
  /// dismissed in another way.
  [[nodiscard]] virtual std::optional<int> runModal(const ReminderAlert& alert) = 0;
};

/// Opens the review page. A failure is met in silence.
class ReviewPageOpener {
 public:
  virtual ~ReviewPageOpener() = default;
  virtual void open(const std::string& url) = 0;
};

/// Counts how often the statistics window was shown for one version of the application and, at set counts,
/// asks the user for a review. Its memory is two keys of the user defaults that carry the version in their
/// names, so every version starts counting afresh. Once the user has reviewed or declined, that version never
/// asks again.
///
/// Owns nothing it is given; defaults, presenter and opener outlive it. Main thread only.
class RatingsReminder {
 public:
  /// `bundleVersion` is the version of the running application.
  RatingsReminder(std::string bundleVersion, UserDefaults& defaults, ReminderAlertPresenter& presenter,
                  ReviewPageOpener& opener);

  /// Counts one showing and asks when the count has come to `alertMilestone`, or lies a multiple of
  /// `reminderMilestone` beyond it. The very first showing never asks. `appName` is not used. `rateURL` is
  /// what "Review Now!" opens. `reminderMilestone` must not be 0; with 0 only `alertMilestone` asks. Without
  /// `allowUserNotToRate` the alert has no button to decline for good. Blocks while the alert is up. Gives
  /// this object.
  RatingsReminder& alertIfNecessaryWithAppNameAndRateURLAlertMilestoneReminderMilestoneAllowUserNotToRate(
      const std::string& appName, const std::string& rateURL, std::uint64_t alertMilestone,
      std::uint64_t reminderMilestone, bool allowUserNotToRate);

  /// For presenters that report an answer instead of blocking. Its meaning of the buttons is its own: the
  /// first button of the three-button alert declines, the second reviews; the second of the two-button alert
  /// reviews. An alert that is not up (or null) does nothing.
  void alertViewDidDismissWithButtonIndex(const ReminderAlert* alert, int buttonIndex);

  [[nodiscard]] const std::string& rateURL() const { return rateURL_; }
  void setRateURL(std::string url) { rateURL_ = std::move(url); }
  [[nodiscard]] const std::string& APP_VERSION() const { return APP_VERSION_; }
  void setAPP_VERSION(std::string version) { APP_VERSION_ = std::move(version); }
  [[nodiscard]] const std::string& KEY_SHOULD_REMIND() const { return KEY_SHOULD_REMIND_; }
  void setKEY_SHOULD_REMIND(std::string key) { KEY_SHOULD_REMIND_ = std::move(key); }
  [[nodiscard]] const std::string& KEY_COUNTER() const { return KEY_COUNTER_; }
  void setKEY_COUNTER(std::string key) { KEY_COUNTER_ = std::move(key); }

 private:
  /// Counts this showing; gives the new count, or nothing when this showing must not ask.
  [[nodiscard]] std::optional<std::uint64_t> countShowing();
  [[nodiscard]] bool shouldRemind() const;
  void ask(bool allowUserNotToRate);
  void neverRemindAgain();

  std::string bundleVersion_;
  UserDefaults& defaults_;
  ReminderAlertPresenter& presenter_;
  ReviewPageOpener& opener_;
  std::string rateURL_;
  std::string APP_VERSION_;
  std::string KEY_SHOULD_REMIND_;
  std::string KEY_COUNTER_;
  const ReminderAlert* alert1_ = nullptr;  ///< the three-button alert, while it is up
  const ReminderAlert* alert2_ = nullptr;  ///< the two-button alert, while it is up
};

}  // namespace quillmeter
