#include "export/FontMetrics.h"

#include <cstddef>
#include <cstdlib>

#include "export/PdfLibraryDocument.h"

namespace quillmeter {
namespace {

// No font has a character there.
constexpr char32_t kLastOfBasicPlane = 0xFFFF;

}  // namespace

struct FontMetrics::Document {
  PdfLibraryDocument handle = newPdfLibraryDocument();
  HPDF_Font font = nullptr;

  explicit Document(const std::string& name) {
    if (handle) font = HPDF_GetFont(handle.get(), name.c_str(), "MacRomanEncoding");
  }
};

FontMetrics::FontMetrics(const std::string& name) : document_(std::make_unique<Document>(name)) {
  if (document_->font == nullptr) return;
  ascent_ = HPDF_Font_GetAscent(document_->font);
  descent_ = std::abs(HPDF_Font_GetDescent(document_->font));
  for (std::size_t character = 0; character < asciiWidths_.size(); ++character) {
    asciiWidths_[character] = widthFromFont(static_cast<char32_t>(character));
  }
}

FontMetrics::~FontMetrics() = default;
FontMetrics::FontMetrics(FontMetrics&&) noexcept = default;
FontMetrics& FontMetrics::operator=(FontMetrics&&) noexcept = default;

int FontMetrics::width(char32_t character) const {
  return character < asciiWidths_.size() ? asciiWidths_[character] : widthFromFont(character);
}

int FontMetrics::widthFromFont(char32_t character) const {
  if (document_->font == nullptr) return 0;
  const char32_t known = character <= kLastOfBasicPlane ? character : kLastOfBasicPlane;
  return HPDF_Font_GetUnicodeWidth(document_->font, static_cast<HPDF_UNICODE>(known));
}

}  // namespace quillmeter
