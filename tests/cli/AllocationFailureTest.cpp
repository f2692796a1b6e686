#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "cli/ForkedTool.h"
#include "export/Export.h"
#include "export/PDFExporter.h"
#include "helpers/FailingMalloc.h"
#include "helpers/ProjectFixture.h"
#include "support/MemoryGuard.h"
#include "xcode/ProjectReaders.h"

namespace quillmeter {
namespace {

using testing::readFile;
using testing::Refusal;
using testing::TemporaryFolder;

struct ToolRun : testing::ForkedRun {
  long requests = 0;  ///< for memory, of a run that came to its own end
};

constexpr std::string_view kMessage = "quillmeter-cli: Not enough memory to do this\n";

constexpr long kNoRefusal = 1'000'000'000;

[[noreturn]] void endForWantOfMemory() {
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, kMessage.data(), kMessage.size());
  ::_exit(3);
}

/// The application's part of `export --pdf`, without the toolkit's windows and the chart that they draw.
int exportPdfHere(const std::string& path) try {
  endWhenMemoryRunsOut(endForWantOfMemory);
  const std::shared_ptr<ProjectReader> project = projectReader(ProjectRules::classic);
  project->parseFileAtPathAndDelegate("./App.xcodeproj", nullptr);
  ReportSource source;
  source.project = project;
  source.time = {};
  source.locale = "en";
  source.timeZone = "UTC";
  const auto files = reportFiles(*project, {FileGroup::c, FileGroup::headers, FileGroup::objectiveC});
  const auto exporter = PDFExporter::create(source);
  exporter->renderForFilesAtPath(files, path);
  if (exporter->error()) std::fprintf(stderr, "quillmeter-cli: %s\n", exporter->error()->c_str());
  return exporter->error() ? 4 : 0;
} catch (const std::bad_alloc&) {
  endForWantOfMemory();
}

/// Runs the tool in a process of its own, which is refused memory after a number of requests; as the whole of
/// it, what libraries do when first used included, since this process has used none of it.
ToolRun runRefused(const std::vector<std::string>& arguments, long granted, Refusal refusal) {
  const testing::Shared<long> requests;
  const std::vector<const char*> argv = testing::commandLine(arguments);
  ToolRun result;
  static_cast<testing::ForkedRun&>(result) = testing::runForked([&] {
    testing::refuseMemoryAfter(granted, refusal);
    const int status =
        arguments.front() == "pdf" ? exportPdfHere(arguments.back()) : testing::runToolHere(argv);
    *requests = testing::memoryRequests();
    return status;
  });
  result.requests = *requests;
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
    const testing::ForkedRun before = testing::runForked([] {
      return testing::runToolHere(testing::commandLine({"measure", "--format", "json", "."}));
    });
    project.file("before.json", before.output);
  }

  /// Runs the command with each request from `first` on refused in turn.
  void expectTruthAfterEachRefusal(Refusal refusal, long first) {
    project.file("out", "old");
    const ToolRun whole = runRefused(GetParam(), kNoRefusal, refusal);
    ASSERT_EQ(whole.status, 0) << whole.errors;
    const std::string written = readFile(project / "out");
    int told = 0;
    int runs = 0;
    for (long granted = first; granted < whole.requests; granted += step()) {
      if (readFile(project / "out") != "old") project.file("out", "old");
      const ToolRun result = runRefused(GetParam(), granted, refusal);
      ++runs;
      const std::string output = readFile(project / "out");
      if (result.status == 0) {
        // What could not be had was not needed.
        EXPECT_EQ(result.output, whole.output) << granted;
        EXPECT_EQ(output, written) << granted;
        continue;
      }
      ++told;
      EXPECT_TRUE(result.status == 3 || result.status == 4) << granted << ": status " << result.status;
      EXPECT_EQ(result.errors, kMessage) << granted;
      EXPECT_TRUE(output == "old" || output == written) << granted;
    }
    EXPECT_GT(told, 0);
    std::printf("[ REFUSALS ] %d runs, %d of them without what they needed\n", runs, told);
  }

  /// The patterns of `methods` take ten thousand requests to get ready, all by one way.
  [[nodiscard]] static long step() { return GetParam().front() == "methods" ? 37 : 1; }

  // Outputs are synced, thousands of them: in memory, where there is a file system for it.
  TemporaryFolder project{std::filesystem::exists("/dev/shm") ? std::filesystem::path("/dev/shm")
                                                              : std::filesystem::temp_directory_path()};
};

/// The requests that any command of the tool makes before it knows what to do.
long setUp(const std::vector<std::string>& arguments) {
  if (arguments.front() == "pdf") return 0;
  return runRefused({"--version"}, kNoRefusal, Refusal::one).requests * 9 / 10;
}

TEST_P(AllocationFailure, OfOneRequestIsToldOrDoesNoHarm) {
  expectTruthAfterEachRefusal(Refusal::one, GetParam().front() == "--help" ? 0 : setUp(GetParam()));
}

TEST_P(AllocationFailure, OfAllRequestsFromOneOnIsToldOrDoesNoHarm) {
  expectTruthAfterEachRefusal(Refusal::andLater, setUp(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    Commands, AllocationFailure,
    ::testing::Values(
        std::vector<std::string>{"measure", "."},
        std::vector<std::string>{"measure", "--format", "csv", "-o", "out", "."},
        std::vector<std::string>{"measure", "--format", "json", "."},
        std::vector<std::string>{"cleanup", "."}, std::vector<std::string>{"export", "--csv", "out", "."},
        std::vector<std::string>{"compare", ".", "."},
        std::vector<std::string>{"compare", "--format", "json", "-o", "out", "before.json", "."},
        std::vector<std::string>{"report", "--html", "out", "."}, std::vector<std::string>{"references", "."},
        std::vector<std::string>{"pdf", "out"}, std::vector<std::string>{"methods", "a.m", "Other/left.c"},
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
