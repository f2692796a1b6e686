#include "page/MeasurementPage.h"

#include <array>
#include <string_view>

#include "analysis/MeasuredProject.h"
#include "overview/OverviewCaptions.h"
#include "overview/OverviewFigures.h"
#include "page/FileRows.h"
#include "page/HtmlText.h"
#include "page/PageCharts.h"
#include "page/PageParts.h"
#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

/// No browser may fetch anything for this page, whatever a name in it managed to smuggle in.
constexpr std::string_view kPolicy =
    "default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'; base-uri 'none'; "
    "form-action 'none'";

/// The figures without grouping and units, in the order of their captions.
std::array<std::string, kOverviewMetrics> exactFigures(const OverviewFigures& figures) {
  return {std::to_string(figures.size),
          std::to_string(figures.totalNumberLines),
          fixed(static_cast<double>(figures.totalNumberLines) / 1000.0, 2),
          std::to_string(figures.nonEmptyLines),
          std::to_string(figures.totalNumberLinesWithComments),
          std::to_string(figures.averageNonEmptyLines()),
          std::to_string(figures.codeFiles),
          std::to_string(figures.imageFiles),
          std::to_string(figures.xibFiles),
          std::to_string(figures.averageCommentLines())};
}

std::string head(const std::string& title) {
  return std::string("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n") +
         "<meta http-equiv=\"Content-Security-Policy\" content=\"" + std::string(kPolicy) + "\">\n" +
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" + title +
         " \u2013 Quillmeter</title>\n<style>\n" + std::string(kPageStyle) + "</style>\n</head>\n";
}

std::string totals(const OverviewFigures& figures, const OverviewCaptions& captions,
                   const DecimalFormatter& formatter) {
  const OverviewFigureTexts texts = overviewFigureTexts(figures, formatter);
  const auto exact = exactFigures(figures);
  std::string html = "<dl class=\"totals\">\n";
  for (std::size_t i = 0; i < kOverviewMetrics; ++i) {
    const OverviewCaption& caption = captions[i];
    html += "<div title=\"" + htmlText(caption.definition) + "\"><dt>" + htmlText(caption.caption) +
            "</dt><dd><data id=\"" + std::string(caption.key) + "\" value=\"" + exact[i] + "\">" +
            htmlText(texts.lblSizeMetrics[i]) + "</data></dd></div>\n";
  }
  return html + "</dl>\n";
}

/// Stays hidden where no script makes it work.
std::string finding(const MeasuredProject& project) {
  return "<div class=\"finding\" role=\"search\" hidden>\n"
         "<input type=\"search\" placeholder=\"Find a file\" aria-label=\"Find a file by its path\" "
         "autocomplete=\"off\" spellcheck=\"false\">\n" +
         kindChoiceHtml(project) + "<output aria-live=\"polite\"></output>\n</div>\n";
}

/// The classic rules go without saying, as everywhere.
std::string_view rulesNote(const MeasuredProject& project) {
  return project.rules() == ProjectRules::current ? "<p class=\"path\">Measured by the current rules</p>\n"
                                                  : "";
}

}  // namespace

std::string measurementPage(const MeasuredProject& project) {
  const DecimalFormatter formatter = overviewFormatter();
  const OverviewFigures figures = overviewFigures(project);
  const std::string title = htmlText(project.projectTitle());
  std::string html = head(title);
  html += "<body>\n<header>\n<h1>" + title + "</h1>\n<p class=\"path\">" + htmlText(project.initialPath()) +
          "</p>\n" + std::string(rulesNote(project)) +
          totals(figures, overviewCaptions(project.kinds()), formatter) +
          "</header>\n<main>\n<h2>Charts</h2>\n<div class=\"charts\">\n" + pageCharts(project, figures) +
          "</div>\n<h2>Files</h2>\n";
  html += finding(project);
  html.append("<div class=\"files\" tabindex=\"0\" role=\"region\" aria-label=\"Files\">\n");
  html += fileTableHtml(project, formatter);
  html += "</div>\n</main>\n<footer>Measured by Quillmeter.</footer>\n<script>\n";
  return html.append(kPageScript).append("</script>\n</body>\n</html>\n");
}

}  // namespace quillmeter
