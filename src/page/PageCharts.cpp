#include "page/PageCharts.h"

#include <algorithm>
#include <array>

#include "analysis/MeasuredProject.h"
#include "charts/ChartAdvice.h"
#include "charts/ChartKind.h"
#include "charts/ChartValues.h"
#include "overview/OverviewFigures.h"
#include "page/ChartSvg.h"
#include "page/HtmlText.h"

namespace quillmeter {
namespace {

/// What the pies have grown to on the Charts tab.
constexpr std::int32_t kPieRadius = 200;

ChartContents pieContents(ChartKind kind, const PieFractions& fractions) {
  ChartContents contents;
  contents.kind = kind;
  contents.CIRCLE_RADIUS = kPieRadius;
  contents.pieChart1Perc1 = fractions.pieChart1Perc1;
  contents.pieChart1Perc2 = fractions.pieChart1Perc2;
  contents.pieChart2Perc1 = fractions.pieChart2Perc1;
  contents.pieChart2Perc2 = fractions.pieChart2Perc2;
  return contents;
}

ChartContents barContents(ChartKind kind, const MeasuredProject& project) {
  BarChartValues values = barChartValues(kind, project);
  values.files.resize(std::min(values.files.size(), kMostBars));
  ChartContents contents;
  contents.kind = kind;
  contents.shouldDrawAverageLine = true;
  contents.maxNumberOfLines = values.maxNumberOfLines;
  contents.averageNumberOfLines = values.averageNumberOfLines;
  contents.arrayValues = std::move(values.files);
  return contents;
}

std::string barList(const ChartContents& contents) {
  std::string html = "<ol>";
  for (const auto& file : *contents.arrayValues) {
    html += "<li>" + htmlText(file->fileName().value_or("")) + ", " +
            htmlText(barValueText(contents.kind, *file)) + "</li>";
  }
  return html + "</ol>";
}

/// Says why a chart is empty in place of an empty chart.
std::string figure(const ChartContents& contents, bool isEmpty) {
  if (isEmpty) {
    return "<figure><figcaption>" + htmlText(chartTitle(contents.kind)) + ". " +
           htmlText(chartHint(contents.kind, true)) + "</figcaption></figure>\n";
  }
  const std::string words =
      contents.arrayValues ? "<figcaption>" + barList(contents) + "</figcaption>" : std::string();
  return "<figure>\n" + chartSvg(contents) + words + "</figure>\n";
}

}  // namespace

std::string pageCharts(const MeasuredProject& project, const OverviewFigures& figures) {
  const PieFractions fractions =
      pieFractions(project, {.totalNumberLines = figures.totalNumberLines,
                             .totalNumberLinesWithSpaces = figures.totalNumberLinesWithSpaces,
                             .totalNumberLinesWithComments = figures.totalNumberLinesWithComments});
  std::string html;
  for (const ChartKind kind : kAllCharts) {
    if (isPieChart(kind)) {
      const bool isEmpty =
          kind == ChartKind::codeLinesPie ? figures.totalNumberLines == 0 : project.files().empty();
      html += figure(pieContents(kind, fractions), isEmpty);
    } else {
      const ChartContents contents = barContents(kind, project);
      html += figure(contents, contents.arrayValues->empty());
    }
  }
  return html;
}

}  // namespace quillmeter
