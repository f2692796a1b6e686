#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "charts/ChartKind.h"
#include "charts/ChartValues.h"
#include "cli/MeasurementFormats.h"
#include "cli/Output.h"
#include "export/CsvText.h"
#include "export/Export.h"
#include "helpers/KindsWithHpp.h"
#include "helpers/ProjectFixture.h"
#include "overview/OverviewCaptions.h"
#include "overview/OverviewFigures.h"
#include "tables/CleanUpTable.h"
#include "tables/DetailsTable.h"

namespace quillmeter {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

std::vector<std::string> names(const FileList& files) {
  std::vector<std::string> result;
  for (const auto& file : files)
    result.push_back(file->fileName().value_or("?"));
  return result;
}

/// A project on disk, read with a table of kinds that has one line more than the classic one. What the
/// program says of an extension comes from that line alone, so the new one is there wherever the old ones
/// are.
class AnExtensionOfATableOfItsOwn : public ::testing::Test {
 protected:
  void SetUp() override {
    folder.file("a.hpp", "int a;\n\n// b\n");
    folder.file("b.h", "int b;\n");
    folder.file("c.hxx", "int c;\n");
    folder.file("left/over.HPP", "int d;\n");
    project = std::make_shared<ParseProject>(FileSystem::real(), testing::kindsWithHpp());
    project->parseFileAtPathAndDelegate(testing::writeProject(folder, {"a.hpp", "b.h", "c.hxx"}), nullptr);
  }

  [[nodiscard]] std::string toolTable() const {
    Output output(folder / "table.txt");
    writeTable(*project, std::nullopt, output);
    EXPECT_EQ(output.finish(), std::nullopt);
    return testing::readFile(folder / "table.txt");
  }

  [[nodiscard]] FileTable details(std::uint32_t filter) const {
    return detailsTable(project->files(), project->kinds(), detailsFilter(project->kinds(), filter), false);
  }

  testing::TemporaryFolder folder;
  std::shared_ptr<ParseProject> project;
};

TEST_F(AnExtensionOfATableOfItsOwn, IsReadAndMeasured) {
  ASSERT_THAT(names(project->files()), ElementsAre("a.hpp", "b.h"));
  EXPECT_EQ(integerValue(project->files()[0]->noLinesTotal()), 4);
  EXPECT_EQ(integerValue(project->files()[0]->noLinesComments()), 1);
}

TEST_F(AnExtensionOfATableOfItsOwn, IsSourceCodeAndCounted) {
  EXPECT_TRUE(project->isSourceFileType(*project->files()[0]));
  EXPECT_FALSE(project->isSourceFileForRegex(*project->files()[0]));
  EXPECT_THAT(project->acceptedCodeFileFormats(), Contains("hpp"));
  EXPECT_EQ(project->getNumberCodeFiles(), 2U);
  EXPECT_EQ(overviewFigures(*project).totalNumberLines, 6U);
}

TEST_F(AnExtensionOfATableOfItsOwn, IsFoundByTheCleanUp) {
  const FileTable table = cleanUpTable(unreferencedFiles(*project), project->kinds());
  ASSERT_THAT(names(table.rows()), ElementsAre("over.HPP"));
  EXPECT_EQ(table.iconName(0), "icon_extension_h");
}

TEST_F(AnExtensionOfATableOfItsOwn, IsShownByItsFiltersWithItsPicture) {
  for (const std::uint32_t filter : {0U, 2U}) {
    const FileTable table = details(filter);
    EXPECT_THAT(names(table.rows()), ElementsAre("a.hpp", "b.h")) << filter;
    EXPECT_EQ(table.iconName(0), "icon_extension_h");
  }
  for (const std::uint32_t filter : {1U, 3U, 4U, 5U})
    EXPECT_THAT(details(filter).rows(), IsEmpty()) << filter;
  EXPECT_THAT(detailsEmptyText(project->kinds(), detailsFilter(project->kinds(), 2), false),
              HasSubstr(".h, .hh, .pch or .hpp."));
}

TEST_F(AnExtensionOfATableOfItsOwn, IsNamedByTheCaptions) {
  const OverviewCaptions captions = overviewCaptions(project->kinds());
  EXPECT_THAT(captions[1].definition, HasSubstr("(.c, .cpp, .h, .hh, .m, .mm, .pch, .hpp)"));
  EXPECT_THAT(captions[6].definition, HasSubstr(".pch or .hpp, headers included"));
  EXPECT_EQ(totalLinesCaption(project->kinds()).definition, captions[1].definition);
}

TEST_F(AnExtensionOfATableOfItsOwn, IsAHeaderInTheCsvExport) {
  ASSERT_EQ(exportCsv(*project, {FileGroup::headers}, folder / "files.csv"), std::nullopt);
  EXPECT_THAT(testing::readFile(folder / "files.csv"), HasSubstr("\n\"header\",\"a.hpp\",\"4\",\"2\","));
  ASSERT_EQ(exportCsv(*project, {FileGroup::c, FileGroup::objectiveC}, folder / "files.csv"), std::nullopt);
  EXPECT_THAT(testing::readFile(folder / "files.csv"), Not(HasSubstr("hpp")));
}

TEST_F(AnExtensionOfATableOfItsOwn, IsInTheReportsGroupOfHeaders) {
  ReportSource source;
  source.project = project;
  PDFExporter exporter(source);
  ASSERT_NE(exporter.renderForFiles(reportFiles(*project, project->kinds().allGroups())), "");
  ASSERT_EQ(exporter.files().size(), 2U);
  EXPECT_THAT(exporter.cellValuesForFile(*exporter.files()[0]), ElementsAre("a.hpp", "4", "2", "0.0 KB"));
  EXPECT_THAT(exporter.cellValuesForFileType("hpp"), ElementsAre("6", "3", "0.0 KB"));
  EXPECT_THAT(*exporter.getArrayRangeBasedOnExtension("hpp"), ElementsAre("h", "hh", "pch", "hpp"));
  EXPECT_EQ(ReportGroups(project->kinds()).labelOf("hpp"), "h/hh files");
}

TEST_F(AnExtensionOfATableOfItsOwn, IsAmongTheBarsOfTheSourceFiles) {
  EXPECT_THAT(names(barChartValues(ChartKind::sourceFilesBars, *project).files), ElementsAre("a.hpp", "b.h"));
}

TEST_F(AnExtensionOfATableOfItsOwn, IsInTheToolsRowOfCode) {
  std::istringstream rows(toolTable());
  std::string row;
  while (std::getline(rows, row) && !row.starts_with("Code  ")) {
  }
  std::istringstream cells(row);
  std::string kind;
  int files = 0;
  int lines = 0;
  cells >> kind >> files >> lines;
  EXPECT_EQ(files, 2) << row;
  EXPECT_EQ(lines, 6) << row;
}

}  // namespace
}  // namespace quillmeter
