#include <algorithm>
#include <new>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "export/PDFExporter.h"
#include "export/ReportDate.h"
#include "export/ReportText.h"
#include "measuring/FileKinds.h"
#include "measuring/FileObject.h"
#include "support/Addresses.h"

/// The report's pages: where everything stands and how it looks.
namespace quillmeter {
namespace {

constexpr double kPageWidth = 1344;
constexpr double kPageHeight = 1454;
constexpr double kLeft = 75;
constexpr double kRight = 1269;
constexpr double kBlockWidth = kRight - kLeft;

constexpr std::int32_t kTopMargin = 75;
constexpr std::int32_t kTitleHeight = 70;
constexpr std::int32_t kTitleToChart = 100;
constexpr std::int32_t kChartHeight = 370;
constexpr std::int32_t kChartToTable = 25;
constexpr std::int32_t kRowHeight = 40;
constexpr std::int32_t kPageFull = 1246;
constexpr std::int32_t kContinuationTop = 100;
constexpr int kFirstColumnWidth = 570;
constexpr int kOtherColumnsWidth = 624;

constexpr std::int32_t kLetterSpacing = 1;
constexpr const char* kPlain = "Helvetica";
constexpr const char* kBold = "Helvetica-Bold";

constexpr std::int32_t kCentred = 0;
constexpr std::int32_t kLeftMiddle = 1;
constexpr std::int32_t kTopCentre = 3;
constexpr std::int32_t kTopLeft = 6;
constexpr std::int32_t kBottomLeft = 7;
constexpr std::int32_t kTopRight = 8;
constexpr std::int32_t kBottomRight = 9;

constexpr PdfColor kBlack{0.0, 0.0, 0.0, 1.0};
constexpr PdfColor kWhite{1.0, 1.0, 1.0, 1.0};
constexpr PdfColor kBlue{0.0, 0.0, 1.0, 1.0};
constexpr PdfColor kFrame{0.2, 0.2, 0.2, 0.5};
constexpr PdfColor kColumnTitleFill{247.0 / 255, 250.0 / 255, 1.0, 1.0};
constexpr PdfColor kRule{230.0 / 255, 235.0 / 255, 239.0 / 255, 1.0};
constexpr PdfColor kFooterRule{0.8, 0.8, 0.8, 1.0};

constexpr int kPieRadius = 150;
constexpr int kPieCanvasWidth = 800;

}  // namespace

std::string PDFExporter::drawnDocument() {
  const bool isByCurrentRules = source_.project->rules() == ProjectRules::current;
  pdfContext_ = std::make_unique<PdfContext>(
      PdfInformation{.title = "Statistics Report",
                     .creator = "Quillmeter",
                     .author = "Quillmeter",
                     .subject = isByCurrentRules ? "Measured by the current rules" : "Statistics Report",
                     .language = "en",
                     .created = source_.time});
  pageDictionary_.mediaBox = {0, 0, kPageWidth, kPageHeight};
  performDraw();
  auto document = pdfContext_->document();
  pdfContext_.reset();
  // Memory is all that can fail: what is drawn here is sound, whatever the files are called.
  if (!document) throw std::bad_alloc();
  return *std::move(document);
}

void PDFExporter::performDraw() {
  pdfContext_->beginPage(pageDictionary_);
  contentSize_ += kTopMargin;
  drawTitleHeader();
  contentSize_ += kTitleToChart;
  drawChartArea();
  contentSize_ += kChartToTable;

  std::string previous;
  for (const auto& file : files_) {
    const bool newPage = contentSize_ >= kPageFull;
    if (newPage) {
      contentSize_ = kContinuationTop;
      endPageWithFooter();
      pdfContext_->beginPage(pageDictionary_);
    }
    const std::string extension = file->getFileExtension().value_or("");
    const auto group = getArrayRangeBasedOnExtension(previous);
    if (newPage || !group || !isOneOf(extension, *group)) {
      drawHeaderWithValues(extension, cellValuesForFileType(extension));
      previous = extension;
    }
    drawRowType1(cellValuesForFile(*file));
  }
  endPageWithFooter();
}

void PDFExporter::drawTitleHeader() {
  contentSize_ += kTitleHeight;
  const PdfRect rect{kLeft, kPageHeight - contentSize_, kBlockWidth, kTitleHeight};
  pdfContext_->setFillColor(kBlack);
  drawText("Project statistics report", rect, kTopLeft, kBold, 36);
  drawText(reportDate(source_.time, source_.locale, source_.timeZone), rect, kBottomLeft, kPlain, 20);
  drawText(source_.project->projectTitle(), rect, kTopRight, kBold, 36);
}

void PDFExporter::drawChartArea() {
  contentSize_ += kChartHeight;
  const double y = kPageHeight - contentSize_;
  pdfContext_->saveState();
  pdfContext_->setLineWidth(1);
  pdfContext_->setStrokeColor(kFrame);
  pdfContext_->strokeRect({kLeft, y, kBlockWidth, kChartHeight});
  pdfContext_->restoreState();

  const OverviewTexts& totals = source_.overviewTexts;
  drawTotal("TOTAL NUMBER OF CODE FILES", totals.codeFiles, y);
  drawTotal("TOTAL NUMBER OF IMAGE FILES", totals.imageFiles, y - 90);
  drawTotal("TOTAL NUMBER OF XIB FILES", totals.xibFiles, y - 180);
  drawPieChartGraph({kLeft, y, kRight, kChartHeight});
}

void PDFExporter::drawTotal(std::string_view label, std::string_view value, double labelY) {
  constexpr double kTotalWidth = 597;
  constexpr double kTotalHeight = 295;
  drawText(label, {-5, labelY, kTotalWidth, kTotalHeight}, kTopCentre, kPlain, 18);
  drawText(value, {-15, labelY - 30, kTotalWidth, kTotalHeight}, kTopCentre, kBold, 30);
}

void PDFExporter::drawPieChartGraph(const PdfRect& rect) {
  if (!source_.chart) return;
  const PdfRect target{(rect.x + rect.width) * 0.5 - 50, rect.y - 10, kPieCanvasWidth, rect.height};
  const auto allFiles = static_cast<double>(source_.project->files().size());
  ReportChartRequest request;
  request.circleRadius = kPieRadius;
  request.pieChart2Perc1 = static_cast<double>(source_.project->getNumberCodeFiles()) / allFiles;
  request.pieChart2Perc2 = static_cast<double>(source_.project->getNumberXIBFiles()) / allFiles;
  request.width = kPieCanvasWidth;
  request.height = kChartHeight;
  pdfContext_->drawPicture(source_.chart->picture(request), target);
}

void PDFExporter::drawTableColumnsHeader(std::span<const std::string> texts) {
  drawRow(texts, {kColumnTitleFill, kPlain, 18, 20, 3});
}

void PDFExporter::drawHeaderWithValues(std::string_view extension, const std::array<std::string, 3>& values) {
  drawTableColumnsHeader(columnTitles_);
  const std::array<std::string, 4> cells = {std::string(groups_.labelOf(extension)), values[0], values[1],
                                            values[2]};
  drawRow(cells, {kWhite, kBold, 20, 20, 3});
}

void PDFExporter::drawRowType1(std::span<const std::string> texts) {
  drawRow(texts, {kWhite, kPlain, 18, 40, 2});
}

void PDFExporter::drawRow(std::span<const std::string> texts, const RowStyle& style) {
  contentSize_ += kRowHeight;
  const double y = kPageHeight - contentSize_;
  const int others = std::max(1, static_cast<int>(texts.size()) - 1);
  const int otherWidth = kOtherColumnsWidth / others;
  pdfContext_->saveState();
  double x = kLeft;
  for (std::size_t column = 0; column < texts.size(); ++column) {
    const double width = column == 0 ? kFirstColumnWidth : otherWidth;
    pdfContext_->setFillColor(style.fill);
    pdfContext_->fillRect({x, y, width, kRowHeight});
    pdfContext_->setFillColor(kBlack);
    drawText(texts[column], {x + style.indent, y, width - 2 * style.indent, kRowHeight},
             column == 0 ? kLeftMiddle : kCentred, style.fontName, style.fontSize);
    x += width;
  }
  pdfContext_->setStrokeColor(kRule);
  pdfContext_->setLineWidth(style.ruleWidth);
  pdfContext_->strokeLine({kLeft, y}, {kRight, y});
  pdfContext_->restoreState();
}

void PDFExporter::endPageWithFooter() {
  constexpr double kFooterTextHeight = 44;
  currentPageNo_ += 1;
  pdfContext_->setFillColor(kBlack);
  drawText("Created with Quillmeter", {115, 50, kBlockWidth, kFooterTextHeight}, kTopRight, kPlain, 18);
  pdfContext_->setFillColor(kBlue);
  drawText(kProductUrl, {162, 50, kBlockWidth, kFooterTextHeight}, kBottomRight, kPlain, 18);

  pdfContext_->setFillColor(kFooterRule);
  pdfContext_->setStrokeColor(kFooterRule);
  pdfContext_->setLineWidth(1);
  pdfContext_->strokeLine({kLeft, 99}, {kRight, 99});

  pdfContext_->setFillColor(kBlack);
  drawText("Page " + std::to_string(currentPageNo_), {kLeft, 55, kBlockWidth, kFooterTextHeight}, kLeftMiddle,
           kPlain, 18);
  pdfContext_->addLink(kProductUrl, {847, 45, 440, 54});
  pdfContext_->setStrokeColor(kBlue);
  pdfContext_->setLineWidth(1);
  pdfContext_->strokeLine({857, 49}, {kRight, 49});
  pdfContext_->endPage();
}

void PDFExporter::drawText(std::string_view text, const PdfRect& rect, std::int32_t alignment,
                           const char* fontName, double fontSize) {
  drawInRectWithContextAndAlignmentAndFontNameAndFontSizeAndLeterSpacing(text, rect, *pdfContext_, alignment,
                                                                         fontName, fontSize, kLetterSpacing);
}

}  // namespace quillmeter
