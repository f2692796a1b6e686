#pragma once

#include <hpdf.h>

#include <memory>
#include <type_traits>

namespace quillmeter {

/// Ends a document of the library and frees all that it holds.
struct PdfLibraryDocumentDeleter {
  void operator()(HPDF_Doc document) const { HPDF_Free(document); }
};

/// A document of the library that makes PDF files.
using PdfLibraryDocument = std::unique_ptr<std::remove_pointer_t<HPDF_Doc>, PdfLibraryDocumentDeleter>;

/// An empty one. Without an error callback the library only remembers the first error; a request for memory
/// that is refused ends as memoryOrEnd() says.
[[nodiscard]] PdfLibraryDocument newPdfLibraryDocument();

}  // namespace quillmeter
