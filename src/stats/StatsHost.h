#pragma once

#include <string>

#include "analysis/ProjectFindings.h"
#include "analysis/ProjectHost.h"

namespace quillmeter {

/// What the statistics window needs from the application. Main thread only; outlives the window.
class StatsHost : public ProjectHost {
 public:
  /// Brings the main screen to the front.
  virtual void showBackMainWindow() = 0;
  /// A sentence on what the classic rules left out of the project; empty when it was not much.
  [[nodiscard]] virtual std::string rulesOffer() const = 0;
  /// Measures the project again by these rules, and the next ones, too.
  virtual void measureBy(ProjectRules rules) = 0;
  /// Ends the application.
  virtual void quitApplication() = 0;
};

}  // namespace quillmeter
