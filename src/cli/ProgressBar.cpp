#include "cli/ProgressBar.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "support/Number.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kPatience{300};
constexpr std::chrono::milliseconds kInterval{50};
constexpr std::size_t kWidth = 40;

}  // namespace

ProgressBar::ProgressBar(bool enabled) : enabled_(enabled && ::isatty(STDERR_FILENO) == 1) {}

void ProgressBar::progressParsingProjectStarted() {
  nextDrawing_ = Clock::now() + kPatience;
}

void ProgressBar::progressParsingProject(double fraction) {
  if (!enabled_ || std::isnan(fraction)) return;
  const Clock::time_point now = Clock::now();
  if (now < nextDrawing_) return;
  nextDrawing_ = now + kInterval;
  shown_ = true;
  const auto filled = static_cast<std::size_t>(clampedToInt32(fraction * static_cast<double>(kWidth)));
  const std::string bar = std::string(filled, '#') + std::string(kWidth - filled, '.');
  std::fprintf(stderr, "\rMeasuring [%s] %3d %%", bar.c_str(), clampedToInt32(fraction * 100.0));
}

void ProgressBar::progressParsingProjectEnded() {
  // Return to the line's start and erase to its end.
  if (shown_) std::fputs("\r\033[K", stderr);
  shown_ = false;
}

}  // namespace quillmeter
