#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "RecordsInput.h"
#include "Require.h"
#include "export/PDFExporter.h"

/// The report of a project with names and numbers of all sorts (`RecordsProject`) is made, and has as many
/// pages as its rows take, which no name changes.

namespace {

using namespace quillmeter;

/// How many pages the rows take: a group's two rows before its first file and at the top of each page.
std::int32_t plainPages(const PDFExporter& exporter) {
  std::int32_t pages = 1;
  std::int32_t used = 640;
  std::string_view label;
  std::string last;
  const ReportGroups groups(classicKinds());
  for (const auto& file : exporter.files()) {
    const bool isNewPage = used >= 1246;
    if (isNewPage) {
      ++pages;
      used = 100;
    }
    const std::string extension = file->getFileExtension().value_or("");
    if (isNewPage || groups.labelOf(extension) != label) used += 2 * 40;
    label = groups.labelOf(extension);
    used += 40;
  }
  return pages;
}

std::size_t timesIn(std::string_view text, std::string_view piece) {
  std::size_t times = 0;
  for (std::size_t at = text.find(piece); at != std::string_view::npos; at = text.find(piece, at + 1))
    ++times;
  return times;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto project = std::make_shared<const fuzzing::RecordsProject>(
      std::string_view(reinterpret_cast<const char*>(data), size));
  if (project->rules() != ProjectRules::classic) return 0;
  ReportSource source;
  source.project = project;
  source.overviewTexts = {project->projectTitle(), std::to_string(project->getNumberImageFiles()), ""};
  source.time = std::chrono::system_clock::time_point(std::chrono::seconds(1700000000));
  source.locale = "en";
  source.timeZone = "UTC";
  PDFExporter exporter(source);
  const auto& files = project->files();
  const std::string document = exporter.renderForFiles({files.begin(), files.end()});
  require(document.starts_with("%PDF-") && document.find("%%EOF") != std::string::npos);
  require(exporter.currentPageNo() == plainPages(exporter));
  require(timesIn(document, "/Type /Page\n") == static_cast<std::size_t>(exporter.currentPageNo()));
  // A page takes some ten kilobytes of drawing at most, beside the names.
  require(document.size() < 20000 + 20000 * static_cast<std::size_t>(exporter.currentPageNo()) + 4 * size);
  return 0;
}
