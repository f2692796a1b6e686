#include "cli/ReportProcess.h"

#include <gmock/gmock.h>
#include <sys/time.h>

#include <csignal>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::readFile;
using ::testing::StartsWith;
using testing::TemporaryFolder;
using testing::writeProject;

/// Signals that interrupt the calls of this process, fifty thousand a second, until it goes.
class Interruptions {
 public:
  Interruptions() {
    struct sigaction action {};
    action.sa_handler = [](int /*signal*/) {};
    ::sigaction(SIGALRM, &action, &before_);
    const timeval often{.tv_sec = 0, .tv_usec = 20};
    const itimerval timer{.it_interval = often, .it_value = often};
    ::setitimer(ITIMER_REAL, &timer, nullptr);
  }
  ~Interruptions() {
    const itimerval never{};
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &before_, nullptr);
  }
  Interruptions(const Interruptions&) = delete;
  Interruptions& operator=(const Interruptions&) = delete;

 private:
  struct sigaction before_ {};
};

#ifdef QUILLMETER_HAS_APPLICATION
TEST(ReportProcess, WaitsForTheReportWhateverInterruptsIt) {
  const TemporaryFolder folder;
  folder.file("a.m", "int a;\n");
  const std::string bundle = writeProject(folder, {"a.m"});
  ReportProcess process({"--report", folder / "out.pdf", "objc", "classic"});
  const Interruptions interruptions;
  EXPECT_EQ(process.finishWith(bundle), 0);
  EXPECT_THAT(readFile(folder / "out.pdf"), StartsWith("%PDF-"));
}
#endif

}  // namespace
}  // namespace quillmeter
