#include "cli/ReportProcess.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "cli/ExitStatus.h"
#include "cli/Measurement.h"

namespace quillmeter {
namespace {

int failed(const std::string& message) {
  complain("cannot make the PDF report: " + message);
  return kOutputFailed;
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

  pid_t child = 0;
  const int reason = ::posix_spawn(&child, application.c_str(), nullptr, nullptr, argv.data(), environ);
  if (reason == ENOENT) return failed("the application is missing, it belongs at " + application);
  if (reason != 0) return failed(application + ": " + std::generic_category().message(reason));
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (!WIFEXITED(status)) return failed("the application was ended by a signal");
  const int ended = WEXITSTATUS(status);
  // Any other status is not the application's own: it could not even start.
  if (ended == kSuccess || ended == kNothingMeasured || ended == kOutputFailed) return ended;
  return failed("the application ended with status " + std::to_string(ended));
}

}  // namespace quillmeter
