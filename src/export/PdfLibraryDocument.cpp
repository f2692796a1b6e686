#include "export/PdfLibraryDocument.h"

#include <cstdlib>

#include "support/MemoryGuard.h"

namespace quillmeter {
namespace {

void* allocate(HPDF_UINT size) {
  return memoryOrEnd(size);
}

}  // namespace

PdfLibraryDocument newPdfLibraryDocument() {
  return PdfLibraryDocument(HPDF_NewEx(nullptr, allocate, std::free, 0, nullptr));
}

}  // namespace quillmeter
