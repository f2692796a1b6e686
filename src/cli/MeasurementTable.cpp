#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "cli/MeasurementFormats.h"
#include "cli/Output.h"
#include "measuring/FileKinds.h"
#include "overview/OverviewCaptions.h"
#include "overview/OverviewFigures.h"
#include "support/NumberFormat.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

struct KindRow {
  std::string_view name;
  FileKind kind;
  bool isText;  ///< images have no lines to show
};

/// Interface files have the name that the overview gives them.
std::array<KindRow, 3> kindRows(const OverviewCaptions& captions) {
  return {{
      {"Code", FileKind::code, true},
      {captions[kInterfaceFilesMetric].caption, FileKind::interface, true},
      {"Images", FileKind::image, false},
  }};
}

using Row = std::vector<std::string>;

/// Sums over the files of one kind.
struct KindSums {
  std::int64_t files = 0;
  std::int64_t lines = 0;
  std::int64_t nonEmptyLines = 0;
  std::int64_t commentLines = 0;
  std::int64_t words = 0;
  std::int64_t characters = 0;
  std::int64_t size = 0;
};

void add(std::int64_t& sum, const std::optional<Number>& number) {
  sum = wrappingSum(sum, integerValue(number));
}

KindSums sumsOf(const MeasuredProject& project, FileKind kind) {
  KindSums sums;
  for (const auto& file : project.files()) {
    if (project.kinds().kind(*file) != kind) continue;
    ++sums.files;
    add(sums.lines, file->noLinesTotal());
    add(sums.nonEmptyLines, file->noLinesWithoutSpaces());
    add(sums.commentLines, file->noLinesComments());
    add(sums.words, file->noWords());
    add(sums.characters, file->noCharactersTotal());
    add(sums.size, file->fileSize());
  }
  return sums;
}

Row rowOf(const KindRow& kind, const MeasuredProject& project, const DecimalFormatter& formatter) {
  const KindSums sums = sumsOf(project, kind.kind);
  Row row{std::string(kind.name), formatter.format(sums.files)};
  for (const std::int64_t count :
       {sums.lines, sums.nonEmptyLines, sums.commentLines, sums.words, sums.characters}) {
    row.push_back(kind.isText ? formatter.format(count) : "-");
  }
  row.push_back(sizeText(sums.size, formatter));
  return row;
}

std::string padding(std::size_t width, std::string_view text) {
  const std::size_t length = utf16Length(text);
  return std::string(width > length ? width - length : 0, ' ');
}

/// Writes rows in columns: the first one to the left, the others to the right.
void writeColumns(const std::vector<Row>& rows, Output& output) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], utf16Length(row[i]));
  }
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) output.write("  ");
      if (i == 0) output.write(row[i] + padding(widths[i], row[i]));
      if (i > 0) output.write(padding(widths[i], row[i]) + row[i]);
    }
    output.write("\n");
  }
}

}  // namespace

void writeTable(const MeasuredProject& project, std::optional<Grouping> grouping, Output& output) {
  const DecimalFormatter formatter = overviewFormatter();
  const OverviewFigureTexts texts = overviewFigureTexts(overviewFigures(project), formatter);
  output.write(onOneLine(project.projectTitle()) + "\n" + onOneLine(project.initialPath()) + "\n");
  if (project.rules() == ProjectRules::current) output.write("Measured by the current rules\n");
  output.write("\n");

  const OverviewCaptions captions = overviewCaptions(project.kinds());
  std::vector<Row> overview;
  for (std::size_t i = 0; i < kOverviewMetrics; ++i) {
    overview.push_back({std::string(captions[i].caption), texts.lblSizeMetrics[i]});
  }
  writeColumns(overview, output);
  output.write("\n");

  if (grouping) return writeGroups(groupedTotals(project, *grouping), *grouping, output);
  std::vector<Row> kinds{{"Kind", "Files", "Lines", "Non-empty", "Comments", "Words", "Characters", "Size"}};
  for (const KindRow& kind : kindRows(captions))
    kinds.push_back(rowOf(kind, project, formatter));
  writeColumns(kinds, output);
}

}  // namespace quillmeter
