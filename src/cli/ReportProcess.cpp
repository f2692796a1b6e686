#include "cli/ReportProcess.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>

#include "cli/ExitStatus.h"
#include "cli/Measurement.h"
#include "files/FileSystem.h"

namespace quillmeter {
namespace {

int failed(const std::string& message) {
  complain("cannot make the PDF report: " + message);
  return kOutputFailed;
}

struct Start {
  pid_t child = -1;
  int reason = 0;  ///< why the program was not started, as an error number; 0 when it was
};

/// The child's part: becomes the program, or leaves the reason why not in the pipe.
[[noreturn]] void becomeProgram(const std::vector<char*>& argv, pid_t tool, int reasonPipe) {
  // A report that nobody waits for any more is given up. The tool may have gone before this was asked for.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() == tool) ::execv(argv.front(), argv.data());
  const int reason = errno;
  [[maybe_unused]] const ssize_t written = ::write(reasonPipe, &reason, sizeof(reason));
  ::_exit(kOutputFailed);
}

Start startProcess(const std::vector<char*>& argv) {
  std::array<int, 2> reasonPipe{};
  if (::pipe2(reasonPipe.data(), O_CLOEXEC) != 0) return {.reason = errno};
  const Descriptor readEnd(reasonPipe[0]);
  Descriptor writeEnd(reasonPipe[1]);
  const pid_t tool = ::getpid();
  Start start{.child = ::fork()};
  if (start.child == 0) becomeProgram(argv, tool, writeEnd.value());
  if (start.child < 0) start.reason = errno;
  if (start.child < 0) return start;
  writeEnd.reset();
  // The program's start closes the pipe without a word.
  while (::read(readEnd.value(), &start.reason, sizeof(start.reason)) < 0 && errno == EINTR) {
  }
  if (start.reason != 0) ::waitpid(start.child, nullptr, 0);
  return start;
}

}  // namespace

int runReportProcess(std::vector<std::string> arguments) {
  std::error_code error;
  const auto tool = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::string application = (tool.parent_path() / "quillmeter").string();
  arguments.insert(arguments.begin(), application);
  std::vector<char*> argv;
  for (std::string& argument : arguments)
    argv.push_back(argument.data());
  argv.push_back(nullptr);

  const Start start = startProcess(argv);
  if (start.reason == ENOENT) return failed("the application is missing, it belongs at " + application);
  if (start.reason != 0) return failed(application + ": " + std::generic_category().message(start.reason));
  int status = 0;
  while (::waitpid(start.child, &status, 0) < 0 && errno == EINTR) {
  }
  if (!WIFEXITED(status)) return failed("the application was ended by a signal");
  const int ended = WEXITSTATUS(status);
  // Any other status is not the application's own: it could not even start.
  if (ended == kSuccess || ended == kNothingMeasured || ended == kOutputFailed) return ended;
  return failed("the application ended with status " + std::to_string(ended));
}

}  // namespace quillmeter
