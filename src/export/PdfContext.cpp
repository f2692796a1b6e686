#include "export/PdfContext.h"

#include <hpdf.h>
#include <hpdf_doc.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "export/PdfLibraryDocument.h"

namespace quillmeter {
namespace {

// Long lists of pages are cut into a tree, so that no array of the file outgrows the format's limit.
constexpr HPDF_UINT kPagesInOneNode = 1024;
constexpr std::size_t kLongestText = 32767;
constexpr HPDF_UINT kBitsPerComponent = 8;
constexpr std::size_t kColors = 3;
constexpr std::size_t kBytesPerPixel = kColors + 1;

HPDF_REAL real(double value) {
  return static_cast<HPDF_REAL>(value);
}

HPDF_Date pdfDate(std::chrono::system_clock::time_point time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{std::chrono::floor<std::chrono::seconds>(time - day)};
  HPDF_Date result{};
  result.year = static_cast<int>(date.year());
  result.month = static_cast<int>(static_cast<unsigned>(date.month()));
  result.day = static_cast<int>(static_cast<unsigned>(date.day()));
  result.hour = static_cast<int>(clock.hours().count());
  result.minutes = static_cast<int>(clock.minutes().count());
  result.seconds = static_cast<int>(clock.seconds().count());
  result.ind = 'Z';
  return result;
}

/// The library has no calls of its own for these two entries of the catalog, which came with version 1.4 of
/// the format.
void describeForReaders(HPDF_Doc document, const std::string& language) {
  document->pdf_version = std::max(document->pdf_version, HPDF_VER_14);
  HPDF_Dict const preferences = HPDF_Dict_New(document->mmgr);
  if (preferences == nullptr) return;
  HPDF_Dict_AddBoolean(preferences, "DisplayDocTitle", HPDF_TRUE);
  HPDF_Dict_Add(document->catalog, "ViewerPreferences", preferences);
  HPDF_Dict_Add(document->catalog, "Lang", HPDF_String_New(document->mmgr, language.c_str(), nullptr));
}

}  // namespace

struct PdfContext::Implementation {
  PdfLibraryDocument document = newPdfLibraryDocument();
  HPDF_Page page = nullptr;
  std::map<std::string, FontMetrics> metrics;
  std::map<double, HPDF_ExtGState> strokeAlphas;

  [[nodiscard]] HPDF_Doc doc() const { return document.get(); }
  void setStrokeAlpha(double alpha);
  [[nodiscard]] HPDF_Image image(const ReportPicture& picture) const;
};

PdfContext::PdfContext(const PdfInformation& information)
    : implementation_(std::make_unique<Implementation>()) {
  HPDF_Doc const document = implementation_->doc();
  if (document == nullptr) return;
  HPDF_SetCompressionMode(document, HPDF_COMP_ALL);
  HPDF_SetPagesConfiguration(document, kPagesInOneNode);
  HPDF_SetInfoAttr(document, HPDF_INFO_TITLE, information.title.c_str());
  HPDF_SetInfoAttr(document, HPDF_INFO_CREATOR, information.creator.c_str());
  HPDF_SetInfoAttr(document, HPDF_INFO_AUTHOR, information.author.c_str());
  HPDF_SetInfoAttr(document, HPDF_INFO_SUBJECT, information.subject.c_str());
  HPDF_SetInfoDateAttr(document, HPDF_INFO_CREATION_DATE, pdfDate(information.created));
  describeForReaders(document, information.language);
}

PdfContext::~PdfContext() = default;

void PdfContext::beginPage(const PdfPageProperties& properties) {
  implementation_->page = HPDF_AddPage(implementation_->doc());
  if (implementation_->page == nullptr) return;
  const PdfRect& box = properties.mediaBox;
  HPDF_Page_SetWidth(implementation_->page, real(box.width));
  HPDF_Page_SetHeight(implementation_->page, real(box.height));
}

void PdfContext::endPage() {
  implementation_->page = nullptr;
}

void PdfContext::saveState() {
  HPDF_Page_GSave(implementation_->page);
}

void PdfContext::restoreState() {
  HPDF_Page_GRestore(implementation_->page);
}

void PdfContext::setFillColor(const PdfColor& color) {
  HPDF_Page_SetRGBFill(implementation_->page, real(color.red), real(color.green), real(color.blue));
}

void PdfContext::setStrokeColor(const PdfColor& color) {
  HPDF_Page_SetRGBStroke(implementation_->page, real(color.red), real(color.green), real(color.blue));
  if (color.alpha < 1.0) implementation_->setStrokeAlpha(color.alpha);
}

void PdfContext::Implementation::setStrokeAlpha(double alpha) {
  HPDF_ExtGState& state = strokeAlphas[alpha];
  if (state == nullptr) {
    state = HPDF_CreateExtGState(doc());
    if (state == nullptr) return;
    HPDF_ExtGState_SetAlphaStroke(state, real(alpha));
  }
  HPDF_Page_SetExtGState(page, state);
}

void PdfContext::setLineWidth(double width) {
  HPDF_Page_SetLineWidth(implementation_->page, real(width));
}

void PdfContext::fillRect(const PdfRect& rect) {
  HPDF_Page_Rectangle(implementation_->page, real(rect.x), real(rect.y), real(rect.width), real(rect.height));
  HPDF_Page_Fill(implementation_->page);
}

void PdfContext::strokeRect(const PdfRect& rect) {
  HPDF_Page_Rectangle(implementation_->page, real(rect.x), real(rect.y), real(rect.width), real(rect.height));
  HPDF_Page_Stroke(implementation_->page);
}

void PdfContext::strokeLine(const PdfPoint& from, const PdfPoint& to) {
  HPDF_Page_MoveTo(implementation_->page, real(from.x), real(from.y));
  HPDF_Page_LineTo(implementation_->page, real(to.x), real(to.y));
  HPDF_Page_Stroke(implementation_->page);
}

void PdfContext::selectFont(const std::string& name, double size) {
  HPDF_Font const font = HPDF_GetFont(implementation_->doc(), name.c_str(), "MacRomanEncoding");
  HPDF_Page_SetFontAndSize(implementation_->page, font, real(size));
}

void PdfContext::showTextAtPoint(std::string_view bytes, const PdfPoint& point) {
  if (bytes.empty()) return;
  const std::string text(bytes.substr(0, kLongestText));
  HPDF_Page_BeginText(implementation_->page);
  HPDF_Page_MoveTextPos(implementation_->page, real(point.x), real(point.y));
  HPDF_Page_ShowText(implementation_->page, text.c_str());
  HPDF_Page_EndText(implementation_->page);
}

const FontMetrics& PdfContext::fontMetrics(const std::string& name) {
  return implementation_->metrics.try_emplace(name, name).first->second;
}

void PdfContext::drawPicture(const ReportPicture& picture, const PdfRect& rect) {
  if (implementation_->page == nullptr || picture.width <= 0 || picture.height <= 0) return;
  HPDF_Image const image = implementation_->image(picture);
  if (image == nullptr) return;
  HPDF_Page_DrawImage(implementation_->page, image, real(rect.x), real(rect.y), real(rect.width),
                      real(rect.height));
}

/// The picture as an image of the document with its alpha as a soft mask; null when the bytes do not fit the
/// size.
HPDF_Image PdfContext::Implementation::image(const ReportPicture& picture) const {
  const std::size_t pixels =
      static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  if (picture.rgba.size() != pixels * kBytesPerPixel) return nullptr;
  std::vector<HPDF_BYTE> colors(pixels * kColors);
  std::vector<HPDF_BYTE> alphas(pixels);
  const std::uint8_t* from = picture.rgba.data();
  for (std::size_t pixel = 0; pixel < pixels; ++pixel, from += kBytesPerPixel) {
    std::copy_n(from, kColors, &colors[pixel * kColors]);
    alphas[pixel] = from[kColors];
  }
  const auto width = static_cast<HPDF_UINT>(picture.width);
  const auto height = static_cast<HPDF_UINT>(picture.height);
  HPDF_Image const mask =
      HPDF_LoadRawImageFromMem(doc(), alphas.data(), width, height, HPDF_CS_DEVICE_GRAY, kBitsPerComponent);
  HPDF_Image const image =
      HPDF_LoadRawImageFromMem(doc(), colors.data(), width, height, HPDF_CS_DEVICE_RGB, kBitsPerComponent);
  if (image == nullptr || mask == nullptr) return nullptr;
  HPDF_Image_AddSMask(image, mask);
  return image;
}

void PdfContext::addLink(const std::string& address, const PdfRect& rect) {
  const HPDF_Rect area{real(rect.x), real(rect.y), real(rect.x + rect.width), real(rect.y + rect.height)};
  HPDF_Annotation const link = HPDF_Page_CreateURILinkAnnot(implementation_->page, area, address.c_str());
  if (link != nullptr) HPDF_LinkAnnot_SetBorderStyle(link, 0, 0, 0);
}

std::optional<std::string> PdfContext::document() {
  HPDF_Doc const document = implementation_->doc();
  if (document == nullptr || HPDF_SaveToStream(document) != HPDF_OK) return std::nullopt;
  HPDF_UINT32 size = HPDF_GetStreamSize(document);
  std::string bytes(size, '\0');
  HPDF_ResetStream(document);
  // Reading exactly to the end is reported as an error of its own kind, so the count is what tells.
  HPDF_ReadFromStream(document, reinterpret_cast<HPDF_BYTE*>(bytes.data()), &size);
  if (size != bytes.size() || bytes.empty() || HPDF_GetError(document) != HPDF_OK) return std::nullopt;
  return bytes;
}

}  // namespace quillmeter
