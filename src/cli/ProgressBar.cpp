#include "cli/ProgressBar.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "support/Number.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kPatience{300};
constexpr std::chrono::milliseconds kInterval{50};
constexpr int kWidest = 40;
constexpr int kTextAround = 20;

/// The bar's width in this terminal. What leaves the line cannot be drawn over.
int barWidth() {
  winsize terminal{};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &terminal) != 0 || terminal.ws_col == 0) return kWidest;
  return std::clamp(terminal.ws_col - kTextAround, 0, kWidest);
}

}  // namespace

ProgressBar::ProgressBar(bool enabled, Clock::time_point (*now)())
    : enabled_(enabled && ::isatty(STDERR_FILENO) == 1), now_(now) {}

void ProgressBar::progressParsingProjectStarted() {
  nextDrawing_ = now_() + kPatience;
}

void ProgressBar::progressParsingProject(double fraction) {
  if (!enabled_ || std::isnan(fraction)) return;
  const Clock::time_point now = now_();
  if (now < nextDrawing_) return;
  nextDrawing_ = now + kInterval;
  shown_ = true;
  const int width = barWidth();
  const int filled = clampedToInt32(fraction * width);
  const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                          std::string(static_cast<std::size_t>(width - filled), '.');
  std::fprintf(stderr, "\rMeasuring [%s] %3d %%", bar.c_str(), clampedToInt32(fraction * 100.0));
}

void ProgressBar::progressParsingProjectEnded() {
  // Return to the line's start and erase to its end.
  if (shown_) std::fputs("\r\033[K", stderr);
  shown_ = false;
}

}  // namespace quillmeter
