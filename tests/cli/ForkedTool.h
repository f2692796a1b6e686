#pragma once

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <vector>

#include "cli/Tool.h"

namespace quillmeter::testing {

/// A file in memory that a child process writes and its parent reads.
class Collector {
 public:
  Collector() : descriptor_(::memfd_create("collector", MFD_CLOEXEC)) { EXPECT_GE(descriptor_, 0); }
  ~Collector() { ::close(descriptor_); }
  Collector(const Collector&) = delete;
  Collector& operator=(const Collector&) = delete;

  [[nodiscard]] int descriptor() const { return descriptor_; }

  [[nodiscard]] std::string text() const {
    std::string text(static_cast<std::size_t>(::lseek(descriptor_, 0, SEEK_END)), '\0');
    EXPECT_EQ(::pread(descriptor_, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
    return text;
  }

 private:
  int descriptor_;
};

struct ForkedRun {
  int status = -1;  ///< the exit status, or minus the signal that ended the run
  std::string output;
  std::string errors;
};

constexpr int kUncaught = 99;  ///< the status of a run that an exception ended

/// Runs `program` in a process of its own, forked from this one, with its standard streams collected; as the
/// whole of it, what libraries do when first used included, as long as this process has used none of them. A
/// run that hangs is ended by a signal after twenty seconds.
inline ForkedRun runForked(const std::function<int()>& program) {
  const Collector output;
  const Collector errors;
  const pid_t child = ::fork();
  if (child == 0) {
    constexpr unsigned patience = 20;
    ::dup2(output.descriptor(), STDOUT_FILENO);
    ::dup2(errors.descriptor(), STDERR_FILENO);
    ::alarm(patience);
    try {
      ::_exit(program());
    } catch (...) {
      ::_exit(kUncaught);
    }
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), output.text(), errors.text()};
}

/// A command line of the tool, which lives as long as `arguments` do.
inline std::vector<const char*> commandLine(const std::vector<std::string>& arguments) {
  std::vector<const char*> argv{"quillmeter-cli"};
  for (const std::string& argument : arguments)
    argv.push_back(argument.c_str());
  argv.push_back(nullptr);
  return argv;
}

/// The tool itself, in this process.
inline int runToolHere(const std::vector<const char*>& commandLine) {
  return runTool(static_cast<int>(commandLine.size()) - 1, commandLine.data());
}

/// Something in memory that child processes share with this one.
template <class Value>
class Shared {
 public:
  Shared()
      : value_(static_cast<Value*>(
            ::mmap(nullptr, sizeof(Value), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
  ~Shared() { ::munmap(value_, sizeof(Value)); }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  [[nodiscard]] Value& operator*() const { return *value_; }
  [[nodiscard]] Value* operator->() const { return value_; }

 private:
  Value* value_;
};

}  // namespace quillmeter::testing
