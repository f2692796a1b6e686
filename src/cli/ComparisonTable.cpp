#include "cli/ComparisonTexts.h"
#include "cli/Output.h"
#include "cli/TextColumns.h"
#include "overview/OverviewFigures.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

using Rows = std::vector<std::vector<std::string>>;

void writeTotalColumns(const Comparison& comparison, const DecimalFormatter& formatter, Output& output) {
  Rows rows{{"", "Before", "After", "Change", ""}};
  for (const TotalRow& row : totalRows(comparison, formatter))
    rows.emplace_back(row.begin(), row.end());
  writeTextColumns(rows, {0}, output);
}

/// Paths come last, so that long ones break no column.
void writeFileColumns(const Comparison& comparison, const DecimalFormatter& formatter, Output& output) {
  const std::size_t count = listedFiles(comparison);
  if (count == 0) return;
  Rows rows{{"Change", "Lines", "Size", "File"}};
  for (std::size_t i = 0; i < count; ++i) {
    const FileChange& file = comparison.differences.files[i];
    const std::string from = file.kind == ChangeKind::moved ? onOneLine(file.earlierPath) + " -> " : "";
    rows.push_back({std::string(changeName(file.kind)),
                    signedCount(file.difference(kLinesCounter), formatter),
                    signedSize(file.difference(kSizeCounter), formatter), from + onOneLine(file.path)});
  }
  output.write("\n");
  writeTextColumns(rows, {0, 3}, output);
}

}  // namespace

void writeComparisonTable(const Comparison& comparison, Output& output) {
  const DecimalFormatter formatter = overviewFormatter();
  output.write(onOneLine(comparison.after.projectTitle) + "\n");
  output.write("before: " + onOneLine(comparison.before.initialPath) + "\n");
  output.write("after:  " + onOneLine(comparison.after.initialPath) + "\n" + rulesLine(comparison) + "\n");
  writeTotalColumns(comparison, formatter, output);
  output.write("\n" + changesSentence(comparison.differences, formatter) + "\n");
  writeFileColumns(comparison, formatter, output);
  const std::string omission = omissionSentence(comparison, formatter);
  if (!omission.empty()) output.write(omission + " (--top all lists them)\n");
}

}  // namespace quillmeter
