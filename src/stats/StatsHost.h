#pragma once

#include <memory>

namespace quillmeter {

class ParseProject;

/// What the statistics window needs from the application. Main thread only; outlives the window.
class StatsHost {
 public:
  virtual ~StatsHost() = default;
  /// The project last read; never null while a statistics window is open.
  [[nodiscard]] virtual std::shared_ptr<const ParseProject> parserProject() const = 0;
  /// Brings the main screen to the front.
  virtual void showBackMainWindow() = 0;
};

}  // namespace quillmeter
