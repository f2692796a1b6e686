#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;
using testing::writeProject;

/// The peak of the tool's resident memory, in bytes, while it measures a project.
long peakMemory(const std::string& bundle) {
  const pid_t child = ::fork();
  if (child == 0) {
    const std::string tool = QUILLMETER_BINARY_DIR "/bin/quillmeter-cli";
    ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
    ::execl(tool.c_str(), tool.c_str(), "measure", bundle.c_str(), nullptr);
    ::_exit(127);
  }
  int status = 0;
  rusage usage{};
  EXPECT_EQ(::wait4(child, &status, 0, &usage), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  return usage.ru_maxrss * 1024;
}

TEST(LargeFile, IsMeasuredInTheMemoryOfASmallOne) {
  const TemporaryFolder folder;
  const std::string source = folder.file("a.m", "int a;");
  const std::string bundle = writeProject(folder, {"a.m"});
  const long small = peakMemory(bundle);
  // A file with a hole: a little over four gibibytes of zero bytes, which are text like any other.
  ASSERT_EQ(::truncate(source.c_str(), (off_t{1} << 32) + 1), 0);
  const long large = peakMemory(bundle);
  EXPECT_LT(large - small, 16L << 20);
}

}  // namespace
}  // namespace quillmeter
