#pragma once

#include "analysis/ProjectHost.h"
#include "measuring/FileGroups.h"

namespace quillmeter {

/// What the Details tab needs from the window that holds it. Main thread only; outlives the tab.
class DetailsHost : public ProjectHost {
 public:
  /// Ticks exactly these groups in the Export tab.
  virtual void setExportGroups(const FileGroups& groups) = 0;
  /// Switches to the Export tab.
  virtual void tapExportTab() = 0;
};

}  // namespace quillmeter
