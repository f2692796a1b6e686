#include "app/MakeServices.h"

#include "controls/QtAlerts.h"
#include "controls/QtDelayedCalls.h"
#include "controls/QtUrlOpener.h"
#include "controls/QtUserDefaults.h"
#include "export/QtSavePanel.h"
#include "tables/DesktopFileBrowser.h"

namespace quillmeter {

Services makeServices() {
  Services services;
  services.delayedCalls = std::make_shared<QtDelayedCalls>();
  services.alerts = std::make_shared<QtAlerts>();
  services.savePanel = std::make_shared<QtSavePanel>();
  services.fileBrowser = std::make_shared<DesktopFileBrowser>(services.delayedCalls);
  services.urlOpener = std::make_shared<QtUrlOpener>();
  services.userDefaults = std::make_shared<QtUserDefaults>();
  return services;
}

}  // namespace quillmeter
