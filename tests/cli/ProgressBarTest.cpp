#include "cli/ProgressBar.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <string>

namespace quillmeter {
namespace {

/// Makes standard error a terminal of a number of columns for as long as it lives.
class TerminalAsStandardError {
 public:
  explicit TerminalAsStandardError(unsigned short columns) : before_(::dup(STDERR_FILENO)) {
    const winsize size{.ws_row = 24, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
    int terminal = -1;
    EXPECT_EQ(::openpty(&screen_, &terminal, nullptr, nullptr, &size), 0);
    ::dup2(terminal, STDERR_FILENO);
    ::close(terminal);
  }
  ~TerminalAsStandardError() {
    ::dup2(before_, STDERR_FILENO);
    ::close(before_);
    ::close(screen_);
  }
  TerminalAsStandardError(const TerminalAsStandardError&) = delete;
  TerminalAsStandardError& operator=(const TerminalAsStandardError&) = delete;

  /// What has been written since the last call. It comes in pieces, so it is read up to a mark behind it.
  [[nodiscard]] std::string written() const {
    constexpr char mark = '\x01';
    EXPECT_EQ(::write(STDERR_FILENO, &mark, 1), 1);
    std::string text;
    char byte = 0;
    while (::read(screen_, &byte, 1) == 1 && byte != mark)
      text += byte;
    return text;
  }

 private:
  int before_;
  int screen_ = -1;
};

/// A clock that goes when it is told to.
class Clock {
 public:
  using Time = std::chrono::steady_clock::time_point;
  Clock() { time() = Time(); }
  static Time now() { return time(); }
  static void pass(std::chrono::milliseconds duration) { time() += duration; }

 private:
  static Time& time() {
    static Time now;
    return now;
  }
};

using std::chrono_literals::operator""ms;

TEST(ProgressBar, AppearsInALongReadAndGoesAtItsEnd) {
  const TerminalAsStandardError terminal(80);
  const Clock clock;
  ProgressBar bar(true, Clock::now);
  bar.progressParsingProjectStarted();
  clock.pass(300ms);
  bar.progressParsingProject(std::nan(""));
  bar.progressParsingProject(0.25);
  EXPECT_EQ(terminal.written(), "\rMeasuring [" + std::string(10, '#') + std::string(30, '.') + "]  25 %");
  bar.progressParsingProjectEnded();
  EXPECT_EQ(terminal.written(), "\r\033[K");
}

TEST(ProgressBar, StaysOnOneLineOfANarrowTerminal) {
  const TerminalAsStandardError terminal(30);
  const Clock clock;
  ProgressBar bar(true, Clock::now);
  bar.progressParsingProjectStarted();
  clock.pass(300ms);
  bar.progressParsingProject(1.0);
  EXPECT_EQ(terminal.written(), "\rMeasuring [##########] 100 %");
}

TEST(ProgressBar, DoesNotFlashInAShortRead) {
  const TerminalAsStandardError terminal(80);
  const Clock clock;
  ProgressBar bar(true, Clock::now);
  bar.progressParsingProjectStarted();
  bar.progressParsingProject(0.0);
  clock.pass(299ms);
  bar.progressParsingProject(0.9);
  bar.progressParsingProjectEnded();
  EXPECT_EQ(terminal.written(), "");
}

TEST(ProgressBar, IsDrawnAtMostTwentyTimesASecond) {
  const TerminalAsStandardError terminal(22);
  const Clock clock;
  ProgressBar bar(true, Clock::now);
  bar.progressParsingProjectStarted();
  clock.pass(300ms);
  bar.progressParsingProject(0.1);
  clock.pass(49ms);
  bar.progressParsingProject(0.2);
  clock.pass(1ms);
  bar.progressParsingProject(0.3);
  EXPECT_EQ(terminal.written(), "\rMeasuring [..]  10 %\rMeasuring [..]  30 %");
}

TEST(ProgressBar, IsNotShownWhereItIsNotWanted) {
  const TerminalAsStandardError terminal(80);
  const Clock clock;
  ProgressBar bar(false, Clock::now);
  bar.progressParsingProjectStarted();
  clock.pass(300ms);
  bar.progressParsingProject(0.5);
  bar.progressParsingProjectEnded();
  EXPECT_EQ(terminal.written(), "");
}

}  // namespace
}  // namespace quillmeter
