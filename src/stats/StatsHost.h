#pragma once

#include "analysis/ProjectHost.h"

namespace quillmeter {

/// What the statistics window needs from the application. Main thread only; outlives the window.
class StatsHost : public ProjectHost {
 public:
  /// Brings the main screen to the front.
  virtual void showBackMainWindow() = 0;
  /// Ends the application.
  virtual void quitApplication() = 0;
};

}  // namespace quillmeter
