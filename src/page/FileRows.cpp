#include "page/FileRows.h"

#include <array>
#include <set>
#include <string_view>

#include "analysis/MeasuredProject.h"
#include "measuring/FileCounters.h"
#include "overview/OverviewFigures.h"
#include "page/HtmlText.h"
#include "support/NumberFormat.h"
#include "support/Paths.h"
#include "support/Text.h"

namespace quillmeter {
namespace {

/// In the order of the counters.
constexpr std::array<std::string_view, kFileCounters> kHeaders = {
    "Size", "Lines", "Comments", "Non-empty", "Words", "Characters without spaces", "Characters"};

std::string_view kindOf(const MeasuredProject& project, const FileObject& file) {
  if (project.isSourceFileType(file)) return "Code";
  return project.isXIBFileType(file) ? "Interface" : "Image";
}

std::string cell(std::size_t counter, const FileObject& file, const DecimalFormatter& formatter) {
  const std::optional<Number>& number = (file.*kFileCounterFields[counter].value)();
  if (!number) return "<td>\u2013</td>";
  const std::int64_t value = integerValue(number);
  const bool isSize = kFileCounterFields[counter].name == "fileSize";
  return "<td data-v=\"" + number->stringValue() + "\">" +
         htmlText(isSize ? sizeText(value, formatter) : formatter.format(value)) + "</td>";
}

}  // namespace

std::string fileTableHtml(const MeasuredProject& project, const DecimalFormatter& formatter) {
  std::string html = "<table>\n<colgroup><col><col class=\"kind\"><col class=\"count\" span=\"" +
                     std::to_string(kFileCounters) +
                     "\"></colgroup>\n<thead><tr><th scope=\"col\">File</th>" + "<th scope=\"col\">Kind</th>";
  for (const std::string_view header : kHeaders)
    html.append("<th scope=\"col\">").append(header).append("</th>");
  html += "</tr></thead>\n<tbody>\n";
  const std::string_view folder = parentFolder(project.initialPath());
  for (const auto& file : project.files()) {
    html += "<tr><td>" + htmlText(relativePath(file->filePath().value_or(""), folder)) + "</td><td>";
    html.append(kindOf(project, *file)).append("</td>");
    for (std::size_t i = 0; i < kFileCounters; ++i)
      html += cell(i, *file, formatter);
    html += "</tr>\n";
  }
  return html + "</tbody>\n</table>\n";
}

std::string kindChoiceHtml(const MeasuredProject& project) {
  std::set<std::string> extensions;
  for (const auto& file : project.files())
    extensions.insert(lowerCased(textAfterLastDot(file->fileName().value_or(""))));
  std::string html =
      "<select aria-label=\"Kind of files\"><option value=\"\">All kinds</option><option>Code</option>"
      "<option>Interface</option><option>Image</option>";
  if (!extensions.empty()) html += "<optgroup label=\"By extension\">";
  for (const std::string& extension : extensions)
    html += "<option>." + htmlText(extension) + "</option>";
  if (!extensions.empty()) html += "</optgroup>";
  return html + "</select>\n";
}

}  // namespace quillmeter
