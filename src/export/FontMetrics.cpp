#include "export/FontMetrics.h"

#include <hpdf.h>

#include <cstddef>
#include <cstdlib>
#include <new>

#include "support/MemoryGuard.h"

namespace quillmeter {
namespace {

void* allocate(HPDF_UINT size) {
  return memoryOrEnd(size);
}

// No font has a character there.
constexpr char32_t kLastOfBasicPlane = 0xFFFF;

}  // namespace

struct FontMetrics::Document {
  HPDF_Doc handle = HPDF_NewEx(nullptr, allocate, std::free, 0, nullptr);
  HPDF_Font font = nullptr;

  explicit Document(const std::string& name) {
    if (handle != nullptr) font = HPDF_GetFont(handle, name.c_str(), "MacRomanEncoding");
  }
  ~Document() {
    if (handle != nullptr) HPDF_Free(handle);
  }
  [[nodiscard]] bool hasRunOutOfMemory() const {
    return handle == nullptr || HPDF_GetError(handle) == HPDF_FAILD_TO_ALLOC_MEM;
  }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
};

FontMetrics::FontMetrics(const std::string& name) : document_(std::make_unique<Document>(name)) {
  if (document_->hasRunOutOfMemory()) throw std::bad_alloc();
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
