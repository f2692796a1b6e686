#include "overview/OverviewFigures.h"

#include "analysis/MeasuredProject.h"
#include "measuring/FileObject.h"
#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

constexpr std::int64_t kUnit = 1024;

/// Counters are signed in the records and a total of lines is not; both wrap at 2^64.
void addTo(std::uint64_t& total, const std::optional<Number>& number) {
  total = static_cast<std::uint64_t>(wrappingSum(static_cast<std::int64_t>(total), integerValue(number)));
}

std::uint64_t share(std::uint64_t lines, std::size_t files) {
  return files == 0 ? 0 : lines / files;
}

}  // namespace

std::uint64_t OverviewFigures::averageNonEmptyLines() const {
  return share(nonEmptyLines, codeFiles);
}

std::uint64_t OverviewFigures::averageCommentLines() const {
  return share(totalNumberLinesWithComments, codeFiles);
}

OverviewFigures overviewFigures(const MeasuredProject& project) {
  OverviewFigures figures;
  for (const auto& file : project.files()) {
    figures.size = wrappingSum(figures.size, integerValue(file->fileSize()));
    if (!project.isSourceFileType(*file)) continue;
    addTo(figures.totalNumberLines, file->noLinesTotal());
    addTo(figures.nonEmptyLines, file->noLinesWithoutSpaces());
    addTo(figures.totalNumberLinesWithComments, file->noLinesComments());
  }
  figures.totalNumberLinesWithSpaces = figures.totalNumberLines - figures.nonEmptyLines;
  figures.codeFiles = project.getNumberCodeFiles();
  figures.imageFiles = project.getNumberImageFiles();
  figures.xibFiles = project.getNumberXIBFiles();
  return figures;
}

DecimalFormatter overviewFormatter(const std::string& locale) {
  return DecimalFormatter(0, 1, locale);
}

std::string sizeText(std::int64_t bytes, const DecimalFormatter& formatter) {
  if (bytes < kUnit) return formatter.format(bytes) + " B";
  const double kilobytes = static_cast<double>(bytes) / static_cast<double>(kUnit);
  if (bytes < kUnit * kUnit) return formatter.format(kilobytes) + " KB";
  return formatter.format(kilobytes / static_cast<double>(kUnit)) + " MB";
}

OverviewFigureTexts overviewFigureTexts(const OverviewFigures& figures, const DecimalFormatter& formatter) {
  const auto count = [&formatter](std::uint64_t value) { return formatter.format(value); };
  const std::string lines = count(figures.totalNumberLines);
  return {
      .lblTotalNumberLines = lines,
      .lblSizeMetrics =
          {
              sizeText(figures.size, formatter),
              lines,
              fixed(static_cast<double>(figures.totalNumberLines) / 1000.0, 2),
              count(figures.nonEmptyLines),
              count(figures.totalNumberLinesWithComments),
              count(figures.averageNonEmptyLines()),
              count(figures.codeFiles),
              count(figures.imageFiles),
              count(figures.xibFiles),
              count(figures.averageCommentLines()),
          },
  };
}

}  // namespace quillmeter
