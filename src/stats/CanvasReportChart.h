#pragma once

#include "export/ReportChart.h"

namespace quillmeter {

/// Paints a report's graph with the very canvas of the Charts tab, so that both look the same. Needs the
/// application object, but no window and no screen. Main thread only.
class CanvasReportChart final : public ReportChart {
 public:
  [[nodiscard]] ReportPicture picture(const ReportChartRequest& request) const override;
};

}  // namespace quillmeter
