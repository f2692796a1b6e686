#pragma once

#include <chrono>

#include "analysis/ParseProject.h"

namespace quillmeter {

/// Shows the progress of a read as one line on standard error that is drawn over and taken away at the end.
/// It only appears when the read takes longer than a moment and standard error is a terminal.
class ProgressBar final : public ParseProjectDelegate {
 public:
  using Clock = std::chrono::steady_clock;

  /// `now` tells the time.
  explicit ProgressBar(bool enabled, Clock::time_point (*now)() = Clock::now);

  void progressParsingProjectStarted() override;
  void progressParsingProject(double fraction) override;
  void progressParsingProjectEnded() override;

 private:
  bool enabled_;
  Clock::time_point (*now_)();
  bool shown_ = false;
  Clock::time_point nextDrawing_;
};

}  // namespace quillmeter
