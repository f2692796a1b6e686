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
#include <utility>

#include "cli/Measurement.h"
#include "files/ReadingFiles.h"
#include "support/ExitStatus.h"
#include "support/Uninterrupted.h"
#include "support/WriteAll.h"

namespace quillmeter {
namespace {

int failed(const std::string& message) {
  complain("cannot make the PDF report: " + message);
  return kOutputFailed;
}

/// The whole of what comes through a pipe until its other end is closed.
std::string readToEnd(int descriptor) {
  std::string text;
  std::array<char, 4096> block{};
  for (;;) {
    const auto count = readBlock(FileSystem::real(), descriptor, block);
    if (!count || *count == 0) return text;
    text.append(block.data(), *count);
  }
}

/// The child's part: becomes the program, or leaves the reason why not in the pipe.
[[noreturn]] void becomeProgram(std::vector<std::string> arguments, pid_t tool, int fromTool, int toTool) {
  // A report that nobody waits for any more is given up. The tool may have gone before this was asked for.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  arguments.push_back(readToEnd(fromTool));
  if (arguments.back().empty() || ::getppid() != tool) ::_exit(kOutputFailed);
  std::vector<char*> argv;
  argv.reserve(arguments.size() + 1);
  for (std::string& argument : arguments)
    argv.push_back(argument.data());
  argv.push_back(nullptr);
  ::execv(argv.front(), argv.data());
  const int reason = errno;
  [[maybe_unused]] const ssize_t written = ::write(toTool, &reason, sizeof(reason));
  ::_exit(kOutputFailed);
}

struct Pipe {
  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
    readEnd = Descriptor(ends[0]);
    writeEnd = Descriptor(ends[1]);
  }
  Descriptor readEnd;
  Descriptor writeEnd;
};

}  // namespace

ReportProcess::ReportProcess(std::vector<std::string> arguments) {
  std::error_code error;
  const auto tool = std::filesystem::read_symlink("/proc/self/exe", error);
  application_ = (tool.parent_path() / "quillmeter").string();
  arguments.insert(arguments.begin(), application_);
  Pipe there;
  Pipe back;
  const pid_t self = ::getpid();
  if (there.readEnd && back.readEnd) child_ = ::fork();
  if (child_ < 0) reason_ = errno;
  if (child_ == 0) {
    there.writeEnd.reset();
    becomeProgram(std::move(arguments), self, there.readEnd.value(), back.writeEnd.value());
  }
  toChild_ = std::move(there.writeEnd);
  fromChild_ = std::move(back.readEnd);
}

ReportProcess::~ReportProcess() {
  toChild_.reset();
  if (child_ > 0) uninterrupted([this] { return ::waitpid(child_, nullptr, 0); });
}

int ReportProcess::finishWith(const std::string& lastArgument) {
  if (reason_ == 0) {
    // A process that has gone tells why by its end.
    [[maybe_unused]] const auto error = writeAll(toChild_.value(), lastArgument);
    toChild_.reset();
    uninterrupted([this] { return ::read(fromChild_.value(), &reason_, sizeof(reason_)); });
  }
  if (reason_ == ENOENT) return failed("the application is missing, it belongs at " + application_);
  if (reason_ != 0) return failed(application_ + ": " + std::generic_category().message(reason_));
  return wait();
}

int ReportProcess::wait() {
  int status = 0;
  uninterrupted([&] { return ::waitpid(child_, &status, 0); });
  child_ = -1;
  if (!WIFEXITED(status)) return failed("the application was ended by a signal");
  const int ended = WEXITSTATUS(status);
  // Any other status is not the application's own: it could not even start.
  if (ended == kSuccess || ended == kNothingMeasured || ended == kOutputFailed) return ended;
  return failed("the application ended with status " + std::to_string(ended));
}

}  // namespace quillmeter
