#include "charts/ChartValues.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "analysis/MeasuredProject.h"
#include "charts/ChartKind.h"
#include "charts/Ratio.h"
#include "measuring/FileRanking.h"

namespace quillmeter {
namespace {

bool isOfKind(ChartKind kind, const MeasuredProject& project, const FileObject& file) {
  switch (kind) {
    case ChartKind::sourceFilesBars:
      return project.isSourceFileType(file);
    case ChartKind::xibFilesBars:
      return project.isXIBFileType(file);
    case ChartKind::imageFilesBars:
      return project.isImageFileTypeWithoutICNS(file);
    case ChartKind::codeLinesPie:
    case ChartKind::fileKindsPie:
      break;
  }
  return false;
}

float singlePrecision(double value) {
  constexpr double limit = static_cast<double>(std::numeric_limits<float>::max());
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

BarChartValues barChartValues(ChartKind kind, const MeasuredProject& project) {
  FileList files;
  std::copy_if(project.files().begin(), project.files().end(), std::back_inserter(files),
               [&](const auto& file) { return isOfKind(kind, project, *file); });
  if (files.empty()) return {};
  std::int64_t sum = 0;
  for (const auto& file : files)
    sum = saturatedSum(sum, integerValue(barMeasure(kind, *file)));

  BarChartValues values;
  values.files = rankedFiles(files, barMeasure(kind));
  values.averageNumberOfLines = static_cast<double>(sum) / static_cast<double>(files.size());
  values.maxNumberOfLines = integerValue(barMeasure(kind, *values.files.front()));
  return values;
}

FileList grownBars(ChartKind kind, const FileList& files, float factor) {
  FileList bars;
  bars.reserve(std::min(files.size(), kMostBars));
  for (const auto& file : files) {
    if (bars.size() == kMostBars) break;
    const float measure = singlePrecision(doubleValue(barMeasure(kind, *file)));
    const Number grown(static_cast<double>(measure * factor));
    auto bar = std::make_shared<FileObject>();
    bar->setFileName(file->fileName());
    bar->setNoLinesTotal(measuresLines(kind) ? std::optional(grown) : file->noLinesTotal());
    bar->setFileSize(measuresLines(kind) ? file->fileSize() : std::optional(grown));
    bars.push_back(std::move(bar));
  }
  return bars;
}

}  // namespace quillmeter
