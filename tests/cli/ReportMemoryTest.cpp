#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "cli/RunTool.h"
#include "export/PdfReading.h"
#include "helpers/ProjectFixture.h"

/// `export --pdf` as the two processes that it is, the tool and the application that makes the report, with
/// less memory than they need.
namespace quillmeter {
namespace {

using testing::readFile;
using testing::TemporaryFolder;
using testing::ToolSurroundings;

constexpr rlim_t kMebibyte = rlim_t{1} << 20;

/// What limits the memory of the tool and of what it starts.
using Limit = rlim_t ToolSurroundings::*;

class ReportMemory : public ::testing::TestWithParam<Limit> {
 protected:
  ReportMemory() { surroundings.variables = {"LC_ALL=C.UTF-8", "TZ=UTC"}; }

  testing::ToolResult exportWithin(rlim_t limit) {
    outputs.file("out.csv", "old");
    outputs.file("out.pdf", "old");
    surroundings.*GetParam() = limit;
    return testing::runTool({"export", "--quiet", "--csv", outputs / "out.csv", "--pdf", outputs / "out.pdf",
                             QUILLMETER_SOURCE_DIR "/samples/Notebook"},
                            surroundings);
  }

  /// What must hold after a run in little memory. Gives whether it made both outputs.
  bool expectTruth(const testing::ToolResult& result, rlim_t limit) {
    const std::string csv = readFile(outputs / "out.csv");
    const bool isOld = readFile(outputs / "out.pdf") == "old";
    const std::string where = std::to_string(limit >> 10) + " KiB: " + result.errors;
    EXPECT_TRUE(isOld || testing::pdfObjectsWithoutTime(outputs / "out.pdf") == wholePdf) << where;
    EXPECT_TRUE(csv == "old" || csv == wholeCsv) << where;
    const std::filesystem::directory_iterator entries(outputs.path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2) << where;
    if (result.status == 0) {
      EXPECT_FALSE(isOld) << where;
      EXPECT_EQ(csv, wholeCsv) << where;
      EXPECT_EQ(result.errors, "");
      return true;
    }
    EXPECT_TRUE(result.status == 3 || result.status == 4) << result.status << " at " << where;
    const std::size_t lastLine = result.errors.find_last_of('\n', result.errors.size() - 2) + 1;
    EXPECT_EQ(result.errors.find("quillmeter", lastLine), lastLine) << "the last word is ours at " << where;
    return false;
  }

  TemporaryFolder outputs;
  ToolSurroundings surroundings{.patience = 60};
  std::string wholeCsv;
  std::string wholePdf;
};

TEST_P(ReportMemory, ThatIsScarceEndsInAMessageOrTheWholeReport) {
  ASSERT_EQ(exportWithin(RLIM_INFINITY).status, 0);
  wholeCsv = readFile(outputs / "out.csv");
  wholePdf = testing::pdfObjectsWithoutTime(outputs / "out.pdf");
  int failures = 0;
  bool isEnough = false;
  for (rlim_t limit = 4 * kMebibyte; limit <= 160 * kMebibyte; limit += 4 * kMebibyte) {
    const testing::ToolResult result = exportWithin(limit);
    if (result.status == 127) continue;  // the tool did not even start
    isEnough = expectTruth(result, limit);
    failures += isEnough ? 0 : 1;
  }
  // Machines with many processors need room for the stacks of as many threads.
  for (rlim_t limit = 320 * kMebibyte; !isEnough && limit < 20480 * kMebibyte; limit *= 2)
    isEnough = expectTruth(exportWithin(limit), limit);
  EXPECT_TRUE(isEnough) << "all of it was scarce";
  EXPECT_GT(failures, 0) << "nothing was scarce";
  std::printf("[ REFUSALS ] %d runs without what they needed\n", failures);
}

TEST(ReportMemoryOfThreads, ThatIsScarceEndsInAMessageToo) {
  // The toolkit paints with several threads and would wait for ever for one that was never started.
  if (std::thread::hardware_concurrency() < 2) GTEST_SKIP() << "one processor, so there is one thread";
  const TemporaryFolder outputs;
  const testing::ToolResult result = testing::runTool(
      {"export", "--quiet", "--pdf", outputs / "out.pdf", QUILLMETER_SOURCE_DIR "/samples/Notebook"},
      {.addressSpace = 1024 * kMebibyte, .stack = 2048 * kMebibyte, .patience = 60});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors, "quillmeter: Not enough memory to do this\n");
  EXPECT_FALSE(std::filesystem::exists(outputs / "out.pdf"));
}

INSTANTIATE_TEST_SUITE_P(Limits, ReportMemory,
                         ::testing::Values(&ToolSurroundings::addressSpace, &ToolSurroundings::data),
                         [](const auto& given) {
                           return given.param == &ToolSurroundings::data ? "Data" : "AddressSpace";
                         });

}  // namespace
}  // namespace quillmeter
