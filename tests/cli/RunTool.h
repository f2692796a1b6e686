#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/close_range.h>
#include <poll.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>
#include <vector>

namespace quillmeter::testing {

struct ToolResult {
  int status = -1;  ///< the exit status; -1 when a signal ended the tool
  std::string output;
  std::string errors;
  long peakMemory = 0;  ///< KiB of resident memory
};

/// Where a tool is run.
struct ToolSurroundings {
  std::string folder = "/";                 ///< the working folder
  std::string standardOutput = {};          ///< a file to open as standard output instead of collecting it
  std::vector<std::string> variables = {};  ///< "NAME=value" on top of the test's own environment
  rlim_t addressSpace = RLIM_INFINITY;      ///< bytes
  rlim_t data = RLIM_INFINITY;              ///< bytes of memory that can be written to and is not shared
  rlim_t stack = 0;                         ///< bytes of the stack of each thread; 0 for the usual ones
  rlim_t openFiles = RLIM_INFINITY;         ///< at a time, the three standard streams included
  bool terminal = false;                    ///< standard error is a terminal
  unsigned patience = 0;                    ///< seconds after which a signal ends the tool; 0 for never
};

/// Runs the built quillmeter-cli with `arguments` and waits for its end.
inline ToolResult runTool(std::vector<std::string> arguments, const ToolSurroundings& surroundings = {}) {
  std::array<int, 2> out{};
  std::array<int, 2> err{};
  EXPECT_EQ(::pipe2(out.data(), O_CLOEXEC), 0);
  if (surroundings.terminal) {
    EXPECT_EQ(::openpty(&err[0], &err[1], nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(::fcntl(err[0], F_SETFD, FD_CLOEXEC), 0);
  } else {
    EXPECT_EQ(::pipe2(err.data(), O_CLOEXEC), 0);
  }
  const std::string tool = QUILLMETER_BINARY_DIR "/bin/quillmeter-cli";
  arguments.insert(arguments.begin(), tool);
  const pid_t child = ::fork();
  if (child == 0) {
    std::vector<char*> argv;
    for (std::string& argument : arguments)
      argv.push_back(argument.data());
    argv.push_back(nullptr);
    for (const std::string& variable : surroundings.variables)
      ::putenv(const_cast<char*>(variable.c_str()));
    const rlimit space{surroundings.addressSpace, surroundings.addressSpace};
    if (::setrlimit(RLIMIT_AS, &space) != 0) ::_exit(126);
    const rlimit data{surroundings.data, surroundings.data};
    if (::setrlimit(RLIMIT_DATA, &data) != 0) ::_exit(126);
    const rlimit stack{surroundings.stack, RLIM_INFINITY};
    if (surroundings.stack != 0 && ::setrlimit(RLIMIT_STACK, &stack) != 0) ::_exit(126);
    ::alarm(surroundings.patience);
    if (::chdir(surroundings.folder.c_str()) != 0) ::_exit(126);
    int standardOutput = out[1];
    if (!surroundings.standardOutput.empty())
      standardOutput = ::open(surroundings.standardOutput.c_str(), O_WRONLY);
    ::dup2(standardOutput, STDOUT_FILENO);
    ::dup2(err[1], STDERR_FILENO);
    // What this process inherited is none of the tool's.
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    const rlimit files{surroundings.openFiles, surroundings.openFiles};
    if (surroundings.openFiles != RLIM_INFINITY && ::setrlimit(RLIMIT_NOFILE, &files) != 0) ::_exit(126);
    if (surroundings.terminal) ::close(err[1]);
    ::execv(tool.c_str(), argv.data());
    ::_exit(127);
  }
  ::close(out[1]);
  ::close(err[1]);
  ToolResult result;
  std::array<pollfd, 2> streams{{{out[0], POLLIN, 0}, {err[0], POLLIN, 0}}};
  std::array<std::string*, 2> texts{&result.output, &result.errors};
  for (int open = 2; open > 0;) {
    ::poll(streams.data(), streams.size(), -1);
    for (std::size_t i = 0; i < streams.size(); ++i) {
      if (streams[i].revents == 0) continue;
      std::array<char, 4096> buffer{};
      const ssize_t count = ::read(streams[i].fd, buffer.data(), buffer.size());
      if (count > 0) {
        texts[i]->append(buffer.data(), static_cast<std::size_t>(count));
      } else {
        ::close(streams[i].fd);
        streams[i].fd = -1;
        --open;
      }
    }
  }
  int status = 0;
  rusage usage{};
  ::wait4(child, &status, 0, &usage);
  result.peakMemory = usage.ru_maxrss;
  if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
  return result;
}

}  // namespace quillmeter::testing
