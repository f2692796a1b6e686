#pragma once

#include <memory>
#include <string>

#include "analysis/ProjectHost.h"

namespace quillmeter {

class ReportChart;

/// The overview's figures as it shows them, for the totals of the report.
struct OverviewTexts {
  std::string codeFiles;   ///< the text of lblSizeMetrics7
  std::string imageFiles;  ///< the text of lblSizeMetrics8
  std::string xibFiles;    ///< the text of lblSizeMetrics9
};

/// What the Export tab needs from the window that holds it. Main thread only; outlives the tab.
class ExportHost : public ProjectHost {
 public:
  [[nodiscard]] virtual OverviewTexts overviewTexts() const = 0;
  /// What paints the report's graph; null leaves the graph out.
  [[nodiscard]] virtual std::shared_ptr<const ReportChart> reportChart() const { return nullptr; }
};

}  // namespace quillmeter
