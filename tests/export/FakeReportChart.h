#pragma once

#include <cmath>
#include <cstddef>
#include <functional>
#include <vector>

#include "export/ReportChart.h"

namespace quillmeter::testing {

/// Paints a filled circle in one colour and remembers what it was asked for.
class FakeReportChart final : public ReportChart {
 public:
  [[nodiscard]] ReportPicture picture(const ReportChartRequest& request) const override {
    requests.push_back(request);
    if (whilePainted) whilePainted();
    ReportPicture picture;
    picture.width = request.width * kReportChartScale;
    picture.height = request.height * kReportChartScale;
    picture.rgba.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) *
                        4);
    const int radius = request.circleRadius * kReportChartScale;
    for (int dy = -radius; dy <= radius; ++dy) {
      const int half = static_cast<int>(std::sqrt(radius * radius - dy * dy));
      for (int dx = -half; dx <= half; ++dx) {
        const int pixel = (picture.height / 2 + dy) * picture.width + picture.width / 2 + dx;
        picture.rgba[static_cast<std::size_t>(pixel) * 4] = 255;
        picture.rgba[static_cast<std::size_t>(pixel) * 4 + 3] = 255;
      }
    }
    return picture;
  }

  mutable std::vector<ReportChartRequest> requests;
  std::function<void()> whilePainted;
};

}  // namespace quillmeter::testing
