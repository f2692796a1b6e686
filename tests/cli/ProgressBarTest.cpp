#include "cli/ProgressBar.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <string>
#include <thread>

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

  /// What has been written since the last call; there must be something.
  [[nodiscard]] std::string written() const {
    std::array<char, 1024> text{};
    const ssize_t size = ::read(screen_, text.data(), text.size());
    return {text.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
  }

 private:
  int before_;
  int screen_ = -1;
};

void waitUntilTheUserWonders() {
  std::this_thread::sleep_for(std::chrono::milliseconds(350));
}

TEST(ProgressBar, AppearsInALongReadAndGoesAtItsEnd) {
  const TerminalAsStandardError terminal(80);
  ProgressBar bar(true);
  bar.progressParsingProjectStarted();
  waitUntilTheUserWonders();
  bar.progressParsingProject(std::nan(""));
  bar.progressParsingProject(0.25);
  EXPECT_EQ(terminal.written(), "\rMeasuring [" + std::string(10, '#') + std::string(30, '.') + "]  25 %");
  bar.progressParsingProjectEnded();
  EXPECT_EQ(terminal.written(), "\r\033[K");
}

TEST(ProgressBar, StaysOnOneLineOfANarrowTerminal) {
  const TerminalAsStandardError terminal(30);
  ProgressBar bar(true);
  bar.progressParsingProjectStarted();
  waitUntilTheUserWonders();
  bar.progressParsingProject(1.0);
  EXPECT_EQ(terminal.written(), "\rMeasuring [##########] 100 %");
}

TEST(ProgressBar, IsNotShownWhereItIsNotWanted) {
  const TerminalAsStandardError terminal(80);
  ProgressBar bar(false);
  bar.progressParsingProjectStarted();
  waitUntilTheUserWonders();
  bar.progressParsingProject(0.5);
  bar.progressParsingProjectEnded();
  ASSERT_EQ(::write(STDERR_FILENO, ".", 1), 1);
  EXPECT_EQ(terminal.written(), ".");
}

}  // namespace
}  // namespace quillmeter
