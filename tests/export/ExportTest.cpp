#include "export/Export.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "export/FakeReportChart.h"
#include "export/PdfReading.h"
#include "helpers/ProjectFixture.h"

/// Both forms of the export written to all sorts of places.
namespace quillmeter {
namespace {

using testing::readFile;
using testing::record;
using ::testing::StartsWith;

enum class Form { csv, pdf };

class Export : public ::testing::TestWithParam<Form> {
 protected:
  std::optional<std::string> exportTo(const std::string& path) {
    if (GetParam() == Form::csv) return exportCsv(*project, classicKinds().allGroups(), path);
    ReportSource source;
    source.project = project;
    source.chart = std::make_shared<testing::FakeReportChart>();
    return exportPdf(source, classicKinds().allGroups(), path);
  }

  [[nodiscard]] static std::string beginning() {
    return GetParam() == Form::csv ? "\"Type\",\"Filename\"" : "%PDF-1.";
  }

  /// The names in the folder, hidden ones included.
  [[nodiscard]] std::vector<std::string> entries() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
      names.push_back(entry.path().filename().string());
    return names;
  }

  testing::TemporaryFolder folder;
  std::shared_ptr<ParseProject> project =
      testing::projectWith({record({.name = "a.c", .size = 10, .lines = 1})});
};

TEST_P(Export, NewFileIsWhole) {
  EXPECT_EQ(exportTo(folder / "out"), std::nullopt);
  EXPECT_THAT(readFile(folder / "out"), StartsWith(beginning()));
  EXPECT_THAT(entries(), ::testing::ElementsAre("out"));
}

TEST_P(Export, OldFileIsReplacedAndKeepsItsPermissions) {
  folder.file("out", std::string(1000000, 'x'));
  ASSERT_EQ(::chmod((folder / "out").c_str(), 0640), 0);
  EXPECT_EQ(exportTo(folder / "out"), std::nullopt);
  EXPECT_THAT(readFile(folder / "out"), StartsWith(beginning()));
  struct stat status {};
  ASSERT_EQ(::stat((folder / "out").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST_P(Export, MissingFolderIsReported) {
  EXPECT_NE(exportTo(folder / "missing/out"), std::nullopt);
  EXPECT_THAT(entries(), ::testing::IsEmpty());
}

TEST_P(Export, FolderCannotBeReplaced) {
  folder.folder("out");
  folder.file("out/kept", "kept");
  EXPECT_NE(exportTo(folder / "out"), std::nullopt);
  EXPECT_EQ(readFile(folder / "out/kept"), "kept");
}

TEST_P(Export, PlaceWhereNobodyMayWriteIsReported) {
  // Not even the superuser makes files there.
  EXPECT_NE(exportTo("/proc/out"), std::nullopt);
}

TEST_P(Export, DeviceIsNotReplaced) {
  ASSERT_EQ(::symlink("/dev/full", (folder / "out").c_str()), 0);
  EXPECT_NE(exportTo(folder / "out"), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_character_file(folder / "out"));
}

TEST_P(Export, LinkIsFollowed) {
  folder.file("target", "old");
  ASSERT_EQ(::symlink("target", (folder / "out").c_str()), 0);
  EXPECT_EQ(exportTo(folder / "out"), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "out"));
  EXPECT_THAT(readFile(folder / "target"), StartsWith(beginning()));
}

TEST_P(Export, LinkToNothingMakesItsTarget) {
  ASSERT_EQ(::symlink("target", (folder / "out").c_str()), 0);
  EXPECT_EQ(exportTo(folder / "out"), std::nullopt);
  EXPECT_THAT(readFile(folder / "target"), StartsWith(beginning()));
}

TEST_P(Export, LinkIntoAMissingFolderIsReported) {
  ASSERT_EQ(::symlink("missing/target", (folder / "out").c_str()), 0);
  EXPECT_NE(exportTo(folder / "out"), std::nullopt);
}

TEST_P(Export, NameNeedNotBeUtf8) {
  EXPECT_EQ(exportTo(folder / "out\xFF"), std::nullopt);
  EXPECT_THAT(readFile(folder / "out\xFF"), StartsWith(beginning()));
}

TEST_P(Export, NameThatIsTooLongIsReported) {
  EXPECT_NE(exportTo(folder / std::string(300, 'x')), std::nullopt);
  EXPECT_NE(exportTo(""), std::nullopt);
}

TEST_P(Export, OldFileSurvivesAFullDisk) {
  folder.file("out", "old");
  // A limit on file sizes fails as a full disk does, in a process of its own.
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{64, 64};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::_exit(exportTo(folder / "out") ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(readFile(folder / "out"), "old");
  EXPECT_THAT(entries(), ::testing::ElementsAre("out"));
}

INSTANTIATE_TEST_SUITE_P(BothForms, Export, ::testing::Values(Form::csv, Form::pdf),
                         [](const auto& parameter) { return parameter.param == Form::csv ? "Csv" : "Pdf"; });

TEST(ReportExport, RendersTheReportTwice) {
  const testing::TemporaryFolder folder;
  const auto chart = std::make_shared<testing::FakeReportChart>();
  ReportSource source;
  source.project = testing::projectWith({record({.name = "a.c"})});
  source.chart = chart;
  EXPECT_EQ(exportPdf(source, classicKinds().allGroups(), folder / "out.pdf"), std::nullopt);
  EXPECT_EQ(chart->requests.size(), 2U);
  EXPECT_EQ(testing::lineAt(testing::pdfWords(folder / "out.pdf"), 1, 71), "Page 1");
}

TEST(ReportExport, HoldsTheChosenKindsButTheChartAndTotalsShowTheProject) {
  const testing::TemporaryFolder folder;
  const auto chart = std::make_shared<testing::FakeReportChart>();
  ReportSource source;
  source.project =
      testing::projectWith({record({.name = "b.c"}), record({.name = "A.c"}), record({.name = "a.png"})});
  source.overviewTexts = {"2", "1", "0"};
  source.chart = chart;
  EXPECT_EQ(exportPdf(source, {FileGroup::c}, folder / "out.pdf"), std::nullopt);
  const auto words = testing::pdfWords(folder / "out.pdf");
  EXPECT_EQ(testing::lineAt(words, 1, 708), "A.c 0 0 0.0 KB");
  EXPECT_EQ(testing::lineAt(words, 1, 668), "b.c 0 0 0.0 KB");
  EXPECT_EQ(testing::lineAt(words, 1, 628), "");
  EXPECT_EQ(testing::lineAt(words, 1, 987), "1");
  EXPECT_DOUBLE_EQ(chart->requests.at(0).pieChart2Perc1, 2.0 / 3.0);
}

}  // namespace
}  // namespace quillmeter
