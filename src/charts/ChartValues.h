#pragma once

#include <cstdint>

#include "charts/ChartKind.h"
#include "charts/ChartsHost.h"
#include "measuring/FileObject.h"

/// The numbers behind the charts, computed from a project without any drawing.
namespace quillmeter {

class MeasuredProject;

/// The shares of the pies, between 0 and 1. Where there is nothing to share out (no source lines, no files,
/// no methods) a share is not a number.
struct PieFractions {
  double pieChart1Perc1 = 0;  ///< code lines, of all source lines
  double pieChart1Perc2 = 0;  ///< comment lines
  double pieChart1Perc3 = 0;  ///< empty lines
  double pieChart2Perc1 = 0;  ///< source files, of all files
  double pieChart2Perc2 = 0;  ///< XIB files
  double pieChart2Perc3 = 0;  ///< every other file
  double pieChart3Perc1 = 0;  ///< instance methods, of all methods
};

[[nodiscard]] PieFractions pieFractions(const MeasuredProject& project, const SourceTotals& totals);

/// What a bar chart is made of.
struct BarChartValues {
  FileList files;  ///< every file of the chart's kind, largest measure first; equals keep their order
  double averageNumberOfLines = 0;    ///< over all `files`; 0 when there are none
  std::int64_t maxNumberOfLines = 0;  ///< the first file's measure; 0 when there are none
};

/// The values of a bar chart. A pie has no files. An absent measure counts as 0,
/// and a sum beyond the range of 64 bits stays at its end.
[[nodiscard]] BarChartValues barChartValues(ChartKind kind, const MeasuredProject& project);

/// Copies of the first `kMostBars` of `files` for one frame of the grow-in: name, lines and size, the chart's
/// own measure multiplied by `factor`. That product is made in single precision, so large measures are
/// rounded to 24 bits even when `factor` is 1.
[[nodiscard]] FileList grownBars(ChartKind kind, const FileList& files, float factor);

}  // namespace quillmeter
