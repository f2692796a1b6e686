#include "reminder/DesktopReminder.h"

#include <QString>
#include <QStringList>
#include <QUrl>
#include <utility>

#include "support/Addresses.h"

namespace quillmeter {

DesktopReminder::DesktopReminder(Services services, QWidget* window)
    : services_(std::move(services)), window_(window) {}

std::optional<int> DesktopReminder::runModal(const ReminderAlert& alert) {
  QStringList buttons;
  for (const std::string& button : alert.buttons)
    buttons << QString::fromStdString(button);
  return services_.alerts->runModal(window_, QString::fromStdString(alert.message), buttons);
}

void DesktopReminder::open(const std::string& url) {
  services_.urlOpener->open(QUrl(QString::fromStdString(url)));
}

void remindOfRatings(Services services, QWidget* window) {
  constexpr std::uint64_t kAlertMilestone = 3;
  constexpr std::uint64_t kReminderMilestone = 3;
  UserDefaults& defaults = *services.userDefaults;  // which the desktop keeps
  DesktopReminder desktop(std::move(services), window);
  RatingsReminder(kVersion, defaults, desktop, desktop)
      .alertIfNecessaryWithAppNameAndRateURLAlertMilestoneReminderMilestoneAllowUserNotToRate(
          "Quillmeter", kReviewUrl, kAlertMilestone, kReminderMilestone, true);
}

}  // namespace quillmeter
