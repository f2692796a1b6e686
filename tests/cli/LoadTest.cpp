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

/// Exports `bundle` to `output` and kills the tool `after` its start. Gives whether it was killed.
bool exportAndKill(const std::string& bundle, const std::string& output, std::chrono::microseconds after) {
  const std::string tool = QUILLMETER_BINARY_DIR "/bin/quillmeter-cli";
  const pid_t child = ::fork();
  if (child == 0) {
    ::execl(tool.c_str(), tool.c_str(), "export", "--quiet", "--csv", output.c_str(), bundle.c_str(),
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

TEST(Load, ExportsThatAreKilledLeaveTheOldFileOrTheNewOneAndNothingElse) {
  const int times = timesFrom("QUILLMETER_LOAD_KILLS", 40);
  const TemporaryFolder project;
  const TemporaryFolder outputs;
  std::vector<std::string> names;
  for (int number = 0; number < 400; ++number) {
    names.push_back(std::string(100, 'x') + std::to_string(number) + ".m");
    project.file(names.back(), "int a;\n");
  }
  const std::string bundle = testing::writeProject(project, names);
  const std::string output = outputs / "out.csv";
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(testing::runTool({"export", "--quiet", "--csv", output, bundle}).status, 0);
  const auto whole =
      std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
  const std::string right = testing::readFile(output);
  constexpr unsigned seed = 1;
  std::mt19937 chance(seed);  // NOLINT(cert-msc51-cpp): the same times in each run
  std::uniform_int_distribution<long> moment(0, whole.count() * 5 / 4);
  int killed = 0;
  int replaced = 0;
  int leftovers = 0;
  for (int time = 0; time < times; ++time) {
    outputs.file("out.csv", "old");
    killed += exportAndKill(bundle, output, std::chrono::microseconds(moment(chance))) ? 1 : 0;
    const std::string now = testing::readFile(output);
    EXPECT_TRUE(now == "old" || now == right) << now.size() << " bytes";
    replaced += now == right ? 1 : 0;
    const std::filesystem::directory_iterator entries(outputs.path());
    leftovers += static_cast<int>(std::distance(begin(entries), end(entries))) - 1;
  }
  std::printf("[   LOAD   ] %d exports, %d of them killed, %d came to the new file, %d leftovers met\n",
              times, killed, replaced, leftovers);
  EXPECT_GT(killed, times / 4);
  // Killed between giving the file a name and putting it in place, a run leaves one, which the next one
  // removes.
  EXPECT_LE(leftovers, times / 10);
  ASSERT_EQ(testing::runTool({"export", "--quiet", "--csv", output, bundle}).status, 0);
  const std::filesystem::directory_iterator entries(outputs.path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

}  // namespace
}  // namespace quillmeter
