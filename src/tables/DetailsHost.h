#pragma once

#include <array>

#include "analysis/ProjectHost.h"

namespace quillmeter {

/// What the Details tab needs from the window that holds it. Main thread only; outlives the tab.
class DetailsHost : public ProjectHost {
 public:
  /// Ticks exactly these file groups in the Export tab, its five boxes in their order: C and C++ sources,
  /// headers, Objective-C sources, images, interface files.
  virtual void setExportKinds(const std::array<bool, 5>& kinds) = 0;
  /// Switches to the Export tab.
  virtual void tapExportTab() = 0;
};

}  // namespace quillmeter
