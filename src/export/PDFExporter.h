#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/ExportHost.h"
#include "export/PdfContext.h"
#include "export/ReportGroups.h"

namespace quillmeter {

class FileObject;

/// What a report shows beside its files.
struct ReportSource {
  std::shared_ptr<const MeasuredProject> project;  ///< never null
  OverviewTexts overviewTexts;
  std::shared_ptr<const ReportChart> chart;  ///< null leaves the graph out
  /// The date and time printed under the title, as people in `locale` and `timeZone` (ICU names; empty: the
  /// user's own) read them.
  std::chrono::system_clock::time_point time = std::chrono::system_clock::now();
  std::string locale;
  std::string timeZone;
};

/// Turns files into a report in PDF: a title, totals and a graph of the whole project on the first page, then
/// a table of the files in groups over as many pages as it takes, each with a footer.
///
/// One object writes one document; a second one goes on counting pages. Positions are points from the bottom
/// left, `contentSize` counts the used space from the top. One thread at a time.
class PDFExporter {
 public:
  using ReportFiles = std::vector<std::shared_ptr<const FileObject>>;

  [[nodiscard]] static std::unique_ptr<PDFExporter> create(ReportSource source);
  explicit PDFExporter(ReportSource source);

  /// Writes the report of `files` to `path`, whole or not at all; `error` tells afterwards. Files of no
  /// report group are left out.
  void renderForFilesAtPath(const ReportFiles& files, const std::string& path);
  /// The report of `files` as bytes; nothing when memory ran out.
  [[nodiscard]] std::optional<std::string> renderForFiles(const ReportFiles& files);

  /// The files in report order: group by group, each in the order given.
  [[nodiscard]] ReportFiles sortFilesArray(const ReportFiles& files) const;
  [[nodiscard]] static ReportFiles getFilesForExtensionTypesFromArray(
      std::span<const std::string_view> extensions, const ReportFiles& files);
  /// The extensions of the group that `extension` belongs to; nothing for any other text.
  [[nodiscard]] std::optional<std::span<const std::string_view>> getArrayRangeBasedOnExtension(
      std::string_view extension) const;
  /// Lines, lines that are not empty and size of the group that `extension` belongs to, over all `files`. The
  /// sums take a file by the extension as it is written, so "A.M" is in the group but not in its sums.
  [[nodiscard]] std::array<std::string, 3> cellValuesForFileType(std::string_view extension) const;
  /// Name, lines, lines that are not empty and size.
  [[nodiscard]] std::array<std::string, 4> cellValuesForFile(const FileObject& file) const;

  [[nodiscard]] const ReportFiles& files() const { return files_; }
  [[nodiscard]] const std::array<std::string, 4>& columnTitles() const { return columnTitles_; }
  /// Pages finished so far.
  [[nodiscard]] std::int32_t currentPageNo() const { return currentPageNo_; }
  /// Points used of the current page, from its top.
  [[nodiscard]] std::int32_t contentSize() const { return contentSize_; }
  /// What every page is begun with; without a media box until a report was drawn.
  [[nodiscard]] const PdfPageProperties& pageDictionary() const { return pageDictionary_; }
  /// Why the last report could not be written, in the system's words; nothing when it was.
  [[nodiscard]] const std::optional<std::string>& error() const { return error_; }

 private:
  struct GroupSums {
    std::int64_t lines = 0;
    std::int64_t linesWithoutSpaces = 0;
    std::int64_t size = 0;
  };
  /// How the cells of a table row look.
  struct RowStyle {
    PdfColor fill;
    const char* fontName = nullptr;
    double fontSize = 0.0;
    double indent = 0.0;  ///< of the text from both sides of its cell
    double ruleWidth = 0.0;
  };

  void setFiles(ReportFiles files);
  [[nodiscard]] static GroupSums sumsOf(ReportFiles const& files, std::span<const std::string_view> group);

  void MyCreatePDFFile(const std::string& path);
  [[nodiscard]] std::optional<std::string> drawnDocument();
  void performDraw();
  void drawTitleHeader();
  void drawChartArea();
  void drawTotal(std::string_view label, std::string_view value, double labelY);
  void drawPieChartGraph(const PdfRect& rect);
  void drawTableColumnsHeader(std::span<const std::string> texts);
  void drawHeaderWithValues(std::string_view extension, const std::array<std::string, 3>& values);
  void drawRowType1(std::span<const std::string> texts);
  void drawRow(std::span<const std::string> texts, const RowStyle& style);
  void endPageWithFooter();
  void drawText(std::string_view text, const PdfRect& rect, std::int32_t alignment, const char* fontName,
                double fontSize);

  ReportSource source_;
  ReportGroups groups_;
  ReportFiles files_;
  std::vector<GroupSums> groupSums_;  ///< one for each group of the report order
  std::array<std::string, 4> columnTitles_;
  std::int32_t currentPageNo_ = 0;
  std::int32_t contentSize_ = 0;
  std::unique_ptr<PdfContext> pdfContext_;
  PdfPageProperties pageDictionary_;
  std::optional<std::string> error_;
};

}  // namespace quillmeter
