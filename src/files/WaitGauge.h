#pragma once

#include <chrono>

namespace quillmeter {

/// Tells a thread whether its tasks wait rather than work: it slept in at least every other one, and worked
/// for less than half of the time. Counting the sleeps is what tells waiting for a disk from waiting for a
/// processor that other programs use, where more threads would be of no help.
///
/// Asks the system only once in half a millisecond, so that it costs a thread that works nothing to speak of.
/// For the thread alone that made it.
class WaitGauge {
 public:
  WaitGauge() { restart(); }

  /// Begins anew, after a time without tasks.
  void restart();
  /// To be asked after each task.
  [[nodiscard]] bool findsWaiting();

 private:
  using Clock = std::chrono::steady_clock;

  struct Usage {
    std::chrono::microseconds worked{};
    long sleeps = 0;
  };
  [[nodiscard]] static Usage usage();

  Clock::time_point begin_;
  Usage beginUsage_;
  long tasks_ = 0;
};

}  // namespace quillmeter
