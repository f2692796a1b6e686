#pragma once

#include <cstdint>
#include <optional>

#include "charts/ChartKind.h"
#include "measuring/FileObject.h"

namespace quillmeter {

/// Everything that decides what a canvas shows. Any value is allowed in any field: shares that are not
/// numbers, a maximum of 0 or more files than are drawn give a chart with less on it, never a failure.
struct ChartContents {
  ChartKind kind = ChartKind::codeLinesPie;
  bool shouldDrawAverageLine = false;
  std::int64_t maxNumberOfLines = 0;    ///< top of the scale: lines or bytes
  double averageNumberOfLines = 0;      ///< in the same unit
  std::optional<FileList> arrayValues;  ///< the bars in order; absent draws none
  std::int32_t CIRCLE_RADIUS = 0;       ///< of a pie, in points
  double pieChart1Perc1 = 0;            ///< code lines, of all source lines
  double pieChart1Perc2 = 0;            ///< comment lines, of all source lines
  double pieChart2Perc1 = 0;            ///< source files, of all files
  double pieChart2Perc2 = 0;            ///< XIB files, of all files
  double pieChart3Perc1 = 0;            ///< instance methods, of all methods; kept but never drawn
};

}  // namespace quillmeter
