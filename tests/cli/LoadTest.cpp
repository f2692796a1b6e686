#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "cli/RunTool.h"
#include "export/PdfReading.h"
#include "helpers/ProjectFixture.h"
#include "xcode/ProjectReaders.h"

/// What only shows after thousands of times. QUILLMETER_LOAD_OPENS and QUILLMETER_LOAD_KILLS say how many.
namespace quillmeter {
namespace {

using testing::TemporaryFolder;

int timesFrom(const char* variable, int usual) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? usual : std::atoi(text);
}

std::size_t openDescriptors() {
  const std::filesystem::directory_iterator entries("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

long residentKiB() {
  long pages = 0;
  std::ifstream("/proc/self/statm") >> pages >> pages;
  return pages * ::sysconf(_SC_PAGESIZE) / 1024;
}

TEST(Load, ProjectsOpenedAndClosedLeaveMemoryAndDescriptorsAsTheyWere) {
  const int times = timesFrom("QUILLMETER_LOAD_OPENS", 300);
  const std::array<std::string, 2> bundles = {QUILLMETER_SOURCE_DIR "/samples/Notebook/Notebook.xcodeproj",
                                              QUILLMETER_SOURCE_DIR "/samples/Weather/Weather.xcodeproj"};
  const auto openAll = [&](int count) {
    for (int time = 0; time < count; ++time) {
      const bool isCurrent = time % 2 == 1;
      const auto project = projectReader(isCurrent ? ProjectRules::current : ProjectRules::classic);
      project->parseFileAtPathAndDelegate(bundles[isCurrent ? 1 : 0], nullptr);
      ASSERT_FALSE(project->files().empty());
      static_cast<void>(project->unreferencedFiles());
    }
  };
  openAll(100);  // what the libraries and the threads' heaps keep
  const std::size_t descriptors = openDescriptors();
  const long memory = residentKiB();
  openAll(times);
  std::printf("[   LOAD   ] %d opens, %ld KiB more than the %ld KiB after the first 100\n", times,
              residentKiB() - memory, memory);
  EXPECT_EQ(openDescriptors(), descriptors);
  constexpr long most = 4096;  // heaps of threads come and go; 10,000 times half a kilobyte would be more
  EXPECT_LT(residentKiB() - memory, most);
}

/// Whether a process lives, other than this one, that was started for `output`.
bool isAnyoneAtWorkOn(const std::string& output) {
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const std::string process = entry.path().filename().string();
    if (process.find_first_not_of("0123456789") != std::string::npos) continue;
    std::string command;  // nothing for a process that has just gone
    std::getline(std::ifstream(entry.path() / "cmdline"), command, '\n');
    if (command.find(output) != std::string::npos) return true;
  }
  return false;
}

/// Exports that are killed, of a project that takes a while.
class KilledExports : public ::testing::TestWithParam<std::string> {
 protected:
  KilledExports() {
    std::vector<std::string> names;
    for (int number = 0; number < 400; ++number) {
      names.push_back(std::string(100, 'x') + std::to_string(number) + ".m");
      project.file(names.back(), "int a;\n");
    }
    bundle = testing::writeProject(project, names);
    ::setenv("LC_ALL", "C.UTF-8", 1);
  }

  [[nodiscard]] int exportWhole() const {
    return testing::runTool({"export", "--quiet", "--" + GetParam(), output, bundle}).status;
  }

  /// Kills the tool `after` its start. Gives whether it was killed.
  [[nodiscard]] bool exportAndKill(std::chrono::duration<double, std::micro> after) const {
    const std::string tool = QUILLMETER_BINARY_DIR "/bin/quillmeter-cli";
    const std::string form = "--" + GetParam();
    const pid_t child = ::fork();
    if (child == 0) {
      ::execl(tool.c_str(), tool.c_str(), "export", "--quiet", form.c_str(), output.c_str(), bundle.c_str(),
              nullptr);
      ::_exit(127);
    }
    std::this_thread::sleep_for(after);
    ::kill(child, SIGKILL);
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    return WIFSIGNALED(status);
  }

  /// What of the output two whole runs have in common.
  [[nodiscard]] std::string written() const {
    const std::string text = testing::readFile(output);
    return text != "old" && GetParam() == "pdf" ? testing::pdfObjectsWithoutTime(output) : text;
  }

  [[nodiscard]] int entries() const {
    const std::filesystem::directory_iterator all(outputs.path());
    return static_cast<int>(std::distance(begin(all), end(all)));
  }

  TemporaryFolder project;
  TemporaryFolder outputs;
  std::string bundle;
  std::string output = outputs / "out";
};

TEST_P(KilledExports, LeaveTheOldFileOrTheNewOneAndNothingElse) {
  const int times = timesFrom("QUILLMETER_LOAD_KILLS", 40);
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(exportWhole(), 0);
  // As long as the machine takes at present, and a third more: shorter after each run that came to its end,
  // longer after each that did not.
  std::chrono::duration<double, std::micro> longest = std::chrono::steady_clock::now() - start;
  const std::string right = written();
  constexpr unsigned seed = 1;
  std::mt19937 chance(seed);  // NOLINT(cert-msc51-cpp): the same chances in each run
  std::uniform_real_distribution<double> moment(0, 1);
  int killed = 0;
  int replaced = 0;
  int leftovers = 0;
  for (int time = 0; time < times; ++time) {
    outputs.file("out", "old");
    const bool wasKilled = exportAndKill(longest * moment(chance));
    killed += wasKilled ? 1 : 0;
    longest *= wasKilled ? 1.1 : 0.75;
    for (int wait = 0; wait < 1000 && isAnyoneAtWorkOn(output); ++wait)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    ASSERT_FALSE(isAnyoneAtWorkOn(output)) << "a process outlives the tool";
    const std::string now = written();
    EXPECT_TRUE(now == "old" || now == right) << now.size() << " bytes";
    replaced += now == right ? 1 : 0;
    leftovers += entries() - 1;
  }
  std::printf("[   LOAD   ] %d exports, %d of them killed, %d came to the new file, %d leftovers met\n",
              times, killed, replaced, leftovers);
  EXPECT_GT(killed, times / 4);
  // Killed between giving the file a name and putting it in place, a run leaves one, which the next one
  // removes.
  EXPECT_LE(leftovers, times / 10);
  ASSERT_EQ(exportWhole(), 0);
  EXPECT_EQ(entries(), 1);
}

#ifdef QUILLMETER_HAS_APPLICATION
INSTANTIATE_TEST_SUITE_P(Load, KilledExports, ::testing::Values("csv", "pdf"),
                         [](const auto& form) { return form.param; });
#else
INSTANTIATE_TEST_SUITE_P(Load, KilledExports, ::testing::Values("csv"),
                         [](const auto& form) { return form.param; });
#endif

}  // namespace
}  // namespace quillmeter
