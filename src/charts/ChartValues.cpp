#include "charts/ChartValues.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "analysis/MeasuredProject.h"
#include "charts/ChartKind.h"
#include "charts/Ratio.h"
#include "measuring/FileKinds.h"

namespace quillmeter {
namespace {

bool isOfKind(std::int32_t graphType, const MeasuredProject& project, const FileObject& file) {
  switch (graphType) {
    case kSourceFilesBars:
      return project.isSourceFileType(file);
    case kXIBFilesBars:
      return project.isXIBFileType(file);
    case kImageFilesBars:
      return project.isImageFileTypeWithoutICNS(file);
    default:
      return false;
  }
}

/// A file with its measure at hand, so that sorting does not go back to the records for every comparison.
struct Ranked {
  Number measure;
  const std::shared_ptr<FileObject>* file;
};

float singlePrecision(double value) {
  constexpr double limit = std::numeric_limits<float>::max();
  return static_cast<float>(value > limit ? limit : value < -limit ? -limit : value);
}

}  // namespace

PieFractions pieFractions(const MeasuredProject& project, const SourceTotals& totals) {
  PieFractions fractions;
  const auto files = static_cast<double>(project.files().size());
  fractions.pieChart2Perc1 = ratio(static_cast<double>(project.getNumberCodeFiles()), files);
  fractions.pieChart2Perc2 = ratio(static_cast<double>(project.getNumberXIBFiles()), files);
  fractions.pieChart2Perc3 = 1.0 - fractions.pieChart2Perc1 - fractions.pieChart2Perc2;

  const auto lines = static_cast<double>(totals.totalNumberLines);
  fractions.pieChart1Perc3 = ratio(static_cast<double>(totals.totalNumberLinesWithSpaces), lines);
  fractions.pieChart1Perc2 = ratio(static_cast<double>(totals.totalNumberLinesWithComments), lines);
  fractions.pieChart1Perc1 = 1.0 - fractions.pieChart1Perc2 - fractions.pieChart1Perc3;

  const auto instanceMethods = static_cast<double>(project.getNumberInstanceMethods());
  const auto staticMethods = static_cast<double>(project.getNumberStaticMethods());
  fractions.pieChart3Perc1 = ratio(instanceMethods, instanceMethods + staticMethods);
  return fractions;
}

BarChartValues barChartValues(std::int32_t graphType, const MeasuredProject& project) {
  std::vector<Ranked> ranking;
  std::int64_t sum = 0;
  for (const auto& file : project.files()) {
    if (!isOfKind(graphType, project, *file)) continue;
    const Number measure = barMeasure(graphType, *file).value_or(Number());
    sum = saturatedSum(sum, measure.longValue());
    ranking.push_back({measure, &file});
  }
  if (ranking.empty()) return {};

  std::stable_sort(ranking.begin(), ranking.end(),
                   [](const Ranked& a, const Ranked& b) { return a.measure.compare(b.measure) > 0; });
  BarChartValues values;
  values.files.reserve(ranking.size());
  for (const Ranked& entry : ranking)
    values.files.push_back(*entry.file);
  values.averageNumberOfLines = static_cast<double>(sum) / static_cast<double>(ranking.size());
  values.maxNumberOfLines = ranking.front().measure.longValue();
  return values;
}

FileList grownBars(std::int32_t graphType, const FileList& files, float factor) {
  FileList bars;
  bars.reserve(std::min(files.size(), kMostBars));
  for (const auto& file : files) {
    if (bars.size() == kMostBars) break;
    const float measure = singlePrecision(doubleValue(barMeasure(graphType, *file)));
    const Number grown(static_cast<double>(measure * factor));
    auto bar = std::make_shared<FileObject>();
    bar->setFileName(file->fileName());
    bar->setNoLinesTotal(graphType == kSourceFilesBars ? std::optional(grown) : file->noLinesTotal());
    bar->setFileSize(graphType == kSourceFilesBars ? file->fileSize() : std::optional(grown));
    bars.push_back(std::move(bar));
  }
  return bars;
}

}  // namespace quillmeter
