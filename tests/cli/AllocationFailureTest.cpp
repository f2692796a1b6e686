#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/Tool.h"
#include "helpers/FailingMalloc.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::readFile;
using testing::Refusal;
using testing::TemporaryFolder;

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

struct ToolRun {
  int status = -1;  ///< the exit status, or minus the signal that ended the run
  bool refused = false;
  long requests = 0;  ///< for memory, of a run that came to its own end
  std::string output;
  std::string errors;
};

constexpr unsigned kPatience = 20;  ///< seconds until a run that hangs is ended
constexpr long kNoRefusal = 1'000'000'000;
constexpr int kRefused =
    64;  ///< added to the status of a run that was refused memory and came to its own end

/// Runs the tool in a process of its own, which is refused memory after a number of requests; as the whole of
/// it, what libraries do when first used included, since this process has used none of it.
ToolRun runRefused(const std::vector<std::string>& arguments, long granted, Refusal refusal) {
  const Collector output;
  const Collector errors;
  std::vector<const char*> argv{"quillmeter-cli"};
  for (const std::string& argument : arguments)
    argv.push_back(argument.c_str());
  argv.push_back(nullptr);
  auto* const requests = static_cast<long*>(
      ::mmap(nullptr, sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(output.descriptor(), STDOUT_FILENO);
    ::dup2(errors.descriptor(), STDERR_FILENO);
    ::alarm(kPatience);
    testing::refuseMemoryAfter(granted, refusal);
    int status = runTool(static_cast<int>(argv.size()) - 1, argv.data());
    if (testing::wasMemoryRefused()) status += kRefused;
    *requests = testing::memoryRequests();
    ::_exit(status);
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  ToolRun result{.output = output.text(), .errors = errors.text()};
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) % kRefused : -WTERMSIG(status);
  // Only a run that had all it asked for ends with 0 here.
  result.refused = !WIFEXITED(status) || WEXITSTATUS(status) != 0;
  result.requests = *requests;
  ::munmap(requests, sizeof(long));
  return result;
}

/// A project with everything in it that the tool looks at, and what else a command is given.
class AllocationFailure : public ::testing::TestWithParam<std::vector<std::string>> {
 protected:
  AllocationFailure() {
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    project.file("a.m", "// one\nint  a;\n- (void)draw {\n}\nint f(int a) {\n}\n");
    project.file("Sub/b.h", std::string(1500, '\n'));
    project.file("Other/Über.png", "1234");
    project.file("Other/left.c", "int x;\n");
    testing::writeProject(project, {"a.m", "b.h", "Über.png"});
    std::filesystem::current_path(project.path());
  }

  /// Runs the command with each request from `first` on refused in turn.
  void expectTruthAfterEachRefusal(Refusal refusal, long first) {
    project.file("out", "old");
    const ToolRun whole = runRefused(GetParam(), kNoRefusal, refusal);
    ASSERT_EQ(whole.status, 0) << whole.errors;
    const std::string written = readFile(project / "out");
    int told = 0;
    for (long granted = first; granted < whole.requests; granted += step()) {
      if (readFile(project / "out") != "old") project.file("out", "old");
      const ToolRun result = runRefused(GetParam(), granted, refusal);
      const std::string output = readFile(project / "out");
      if (result.status == 0) {
        // What could not be had was not needed.
        EXPECT_EQ(result.output, whole.output) << granted;
        EXPECT_EQ(output, written) << granted;
        continue;
      }
      ++told;
      EXPECT_TRUE(result.status == 3 || result.status == 4) << granted << ": status " << result.status;
      EXPECT_EQ(result.errors, "quillmeter-cli: Not enough memory to do this\n") << granted;
      EXPECT_TRUE(output == "old" || output == written) << granted;
    }
    EXPECT_GT(told, 0);
  }

  /// The patterns of `methods` take ten thousand requests to get ready, all by one way.
  [[nodiscard]] static long step() { return GetParam().front() == "methods" ? 37 : 1; }

  // Outputs are synced, thousands of them: in memory, where there is a file system for it.
  TemporaryFolder project{std::filesystem::exists("/dev/shm") ? std::filesystem::path("/dev/shm")
                                                              : std::filesystem::temp_directory_path()};
};

/// The requests that any command makes before it knows what to do.
long setUp() {
  return runRefused({"--version"}, kNoRefusal, Refusal::one).requests * 9 / 10;
}

TEST_P(AllocationFailure, OfOneRequestIsToldOrDoesNoHarm) {
  expectTruthAfterEachRefusal(Refusal::one, GetParam().front() == "--help" ? 0 : setUp());
}

TEST_P(AllocationFailure, OfAllRequestsFromOneOnIsToldOrDoesNoHarm) {
  expectTruthAfterEachRefusal(Refusal::andLater, setUp());
}

INSTANTIATE_TEST_SUITE_P(
    Commands, AllocationFailure,
    ::testing::Values(std::vector<std::string>{"measure", "."},
                      std::vector<std::string>{"measure", "--format", "csv", "-o", "out", "."},
                      std::vector<std::string>{"measure", "--format", "json", "."},
                      std::vector<std::string>{"cleanup", "."},
                      std::vector<std::string>{"export", "--csv", "out", "."},
                      std::vector<std::string>{"methods", "a.m", "Other/left.c"},
                      std::vector<std::string>{"--help"}, std::vector<std::string>{"--version"}),
    [](const auto& given) {
      std::string name;
      for (const std::string& argument : given.param) {
        for (const char letter : argument)
          name += std::isalnum(static_cast<unsigned char>(letter)) != 0 ? std::string(1, letter) : "";
      }
      return name;
    });

}  // namespace
}  // namespace quillmeter
