#pragma once

#include <cstdint>
#include <vector>

namespace quillmeter {

/// A picture in RGBA bytes (red, green, blue not multiplied with alpha), rows from the top, without padding.
/// Empty when `rgba` is.
struct ReportPicture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgba;
};

/// The graph that a report asks for: the pie of the kinds of files.
struct ReportChartRequest {
  int circleRadius = 0;         ///< points
  double pieChart2Perc1 = 0.0;  ///< share of the code files; a not-a-number in a project without files
  double pieChart2Perc2 = 0.0;  ///< share of the XIB files, likewise
  int width = 0;                ///< the canvas, in points
  int height = 0;
};

/// Pixels that a report's graph has for each point, so that it is sharp in print.
inline constexpr int kReportChartScale = 3;

/// Paints the graph of a report, so that the report shows the very drawing of the Charts tab without knowing
/// it. Implemented above this folder; called on the main thread.
class ReportChart {
 public:
  virtual ~ReportChart() = default;
  /// The graph on a transparent background, `kReportChartScale` pixels a point. Throws std::bad_alloc when
  /// there is too little memory to paint it.
  [[nodiscard]] virtual ReportPicture picture(const ReportChartRequest& request) const = 0;
};

}  // namespace quillmeter
