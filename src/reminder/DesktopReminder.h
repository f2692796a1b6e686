#pragma once

#include <QPointer>
#include <QWidget>

#include "controls/Services.h"
#include "reminder/RatingsReminder.h"

namespace quillmeter {

/// Puts the reminder's alerts and its review page on the desktop, through the application's services. Keeps
/// no more than a weak hold on the window: an alert whose window has gone comes up on its own.
class DesktopReminder final : public ReminderAlertPresenter, public ReviewPageOpener {
 public:
  /// Alerts come up over `window`, which may be null.
  DesktopReminder(Services services, QWidget* window);

  [[nodiscard]] std::optional<int> runModal(const ReminderAlert& alert) override;
  void open(const std::string& url) override;

 private:
  Services services_;
  QPointer<QWidget> window_;
};

/// One showing of the statistics window, as the application counts it: asks for a review of this version at
/// the 3rd showing and every 3 after it, over `window` (may be null), and lets the user decline. Blocks while
/// the alert is up; the services are held meanwhile, since the caller may go with a window that is closed.
void remindOfRatings(Services services, QWidget* window);

}  // namespace quillmeter
