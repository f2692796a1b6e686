#include "reminder/DesktopReminder.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include "support/Addresses.h"

namespace quillmeter {

DesktopReminder::DesktopReminder(const Services& services, QWidget* window)
    : services_(services), window_(window) {}

std::optional<int> DesktopReminder::runModal(const ReminderAlert& alert) {
  QStringList buttons;
  for (const std::string& button : alert.buttons)
    buttons << QString::fromStdString(button);
  return services_.alerts->runModal(window_, QString::fromStdString(alert.message), buttons);
}

void DesktopReminder::open(const std::string& url) {
  services_.urlOpener->open(QUrl(QString::fromStdString(url)));
}

void remindOfRatings(const Services& services, QWidget* window) {
  constexpr std::uint64_t kAlertMilestone = 3;
  constexpr std::uint64_t kReminderMilestone = 3;
  DesktopReminder desktop(services, window);
  // A copy of its own: the caller's services may go with a window that is closed while the alert is up.
  const std::shared_ptr<UserDefaults> defaults = services.userDefaults;
  RatingsReminder(kVersion, *defaults, desktop, desktop)
      .alertIfNecessaryWithAppNameAndRateURLAlertMilestoneReminderMilestoneAllowUserNotToRate(
          "Quillmeter", kReviewUrl, kAlertMilestone, kReminderMilestone, true);
}

}  // namespace quillmeter
