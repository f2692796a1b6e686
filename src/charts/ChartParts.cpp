#include "charts/ChartParts.h"

#include "charts/ChartAdvice.h"
#include "charts/ChartGeometry.h"

namespace quillmeter {

std::vector<ChartPart> chartParts(const ChartContents& contents) {
  std::vector<ChartPart> parts;
  if (isPieChart(contents.kind)) {
    for (const ChartLegendRow& row : pieChartDrawing(contents, {kCanvasWidth, kCanvasHeight}).legend)
      parts.push_back({row.label.text, {}});
    return parts;
  }
  for (const auto& file : contents.arrayValues.value_or(FileList()))
    parts.push_back({file->fileName().value_or(std::string()), barValueText(contents.kind, *file)});
  return parts;
}

}  // namespace quillmeter
