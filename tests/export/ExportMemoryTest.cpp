#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>
#include <string>

#include "cli/ForkedTool.h"
#include "export/Export.h"
#include "helpers/FailingMalloc.h"
#include "helpers/ProjectFixture.h"
#include "support/MemoryGuard.h"

/// Exports out of the application's windows, which go on when memory was refused, once at each request in
/// turn.
namespace quillmeter {
namespace {

using testing::readFile;
using testing::record;
using testing::Refusal;
using testing::TemporaryFolder;

constexpr long kNoRefusal = 1'000'000'000;
constexpr int kFailed = 1;

/// A small picture, so that thousands of reports can be made.
class SmallChart final : public ReportChart {
 public:
  [[nodiscard]] ReportPicture picture(const ReportChartRequest& /*request*/) const override {
    return {20, 10, std::vector<std::uint8_t>(std::size_t{20} * 10 * 4, 99)};
  }
};

class ExportMemory : public ::testing::TestWithParam<Refusal> {
 protected:
  ExportMemory() {
    FileList files;
    for (int number = 0; number < 30; ++number)
      files.push_back(
          record({.name = "Ünicode" + std::to_string(number) + ".c", .size = 1024, .lines = number}));
    project = testing::projectWith(files);
  }

  [[nodiscard]] std::optional<std::string> exportTo(const std::string& path) const {
    if (path.ends_with(".csv")) return exportCsv(*project, project->kinds().allGroups(), path);
    ReportSource source;
    source.project = project;
    source.overviewTexts = {"30", "0", "0"};
    source.chart = std::make_shared<SmallChart>();
    source.time = std::chrono::system_clock::time_point(std::chrono::seconds(1767225600));
    source.locale = "de_DE";
    source.timeZone = "Europe/Berlin";
    return exportPdf(source, project->kinds().allGroups(), path);
  }

  /// Exports in a process of its own, as the first that its libraries are used for. Gives its exit status.
  testing::ForkedRun exportRefused(const std::string& path, long granted) {
    return testing::runForked([&] {
      endWhenUnicodeLibraryLacksMemory([] { ::_exit(kFailed); });
      testing::refuseMemoryAfter(granted, GetParam());
      int status = kFailed;
      try {
        status = exportTo(path) ? kFailed : 0;
      } catch (const std::bad_alloc&) {
      }
      *requests = testing::memoryRequests();
      return status;
    });
  }

  void expectWholeFilesAlone(const std::string& name) {
    const std::string path = folder / name;
    ASSERT_EQ(exportRefused(path, kNoRefusal).status, 0);
    const std::string whole = readFile(path);
    const long most = *requests;
    int failures = 0;
    for (long granted = 0; granted < most; ++granted) {
      folder.file(name, "old");
      const testing::ForkedRun run = exportRefused(path, granted);
      const std::string now = readFile(path);
      const std::filesystem::directory_iterator entries(folder.path());
      EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << granted;
      if (run.status == 0) {
        EXPECT_EQ(now, whole) << granted << " of " << most << ": a success is complete";
        continue;
      }
      ++failures;
      EXPECT_EQ(run.status, kFailed) << granted << " of " << most << ": " << run.errors;
      EXPECT_TRUE(now == "old" || now == whole) << granted << " of " << most;
    }
    EXPECT_GT(failures, 0);
    std::printf("[ REFUSALS ] %ld runs, %d of them without what they needed\n", most, failures);
  }

  TemporaryFolder folder{std::filesystem::exists("/dev/shm") ? std::filesystem::path("/dev/shm")
                                                             : std::filesystem::temp_directory_path()};
  std::shared_ptr<const MeasuredProject> project;
  testing::Shared<long> requests;
};

TEST_P(ExportMemory, ThatIsRefusedLeavesNoShortReport) {
  expectWholeFilesAlone("out.pdf");
}

TEST_P(ExportMemory, ThatIsRefusedLeavesNoShortTable) {
  expectWholeFilesAlone("out.csv");
}

INSTANTIATE_TEST_SUITE_P(Refusals, ExportMemory, ::testing::Values(Refusal::one, Refusal::andLater),
                         [](const auto& given) { return given.param == Refusal::one ? "one" : "andLater"; });

}  // namespace
}  // namespace quillmeter
