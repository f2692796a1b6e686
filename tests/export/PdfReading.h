#pragma once

#include <string>
#include <vector>

/// Reads finished PDF files back with other people's tools (qpdf and poppler's), so that a test sees what a
/// reader of the report sees.
namespace quillmeter::testing {

struct CommandResult {
  int status = -1;
  std::string output;  ///< standard output and standard error
};

/// Runs a command of the shell.
[[nodiscard]] CommandResult run(const std::string& command);

/// `text` as one word of the shell.
[[nodiscard]] std::string quoted(const std::string& text);

/// A word as a reader sees it: where it begins on its base line, in points from the page's bottom left.
struct PdfWord {
  int page = 0;
  double x = 0.0;
  double baseline = 0.0;
  double right = 0.0;
  double size = 0.0;
  std::string text;
};

/// Every word of the file, page by page.
[[nodiscard]] std::vector<PdfWord> pdfWords(const std::string& path);

/// The words of a page (counted from 1) on the base line `y`, joined with spaces, from left to right.
[[nodiscard]] std::string lineAt(const std::vector<PdfWord>& words, int page, double baseline);

/// The value behind a label of pdfinfo; empty when it has none of that name.
[[nodiscard]] std::string pdfInfo(const std::string& path, const std::string& label);

/// The drawing operators of each page.
[[nodiscard]] std::vector<std::string> pdfContents(const std::string& path);

/// All objects of the file as text, streams uncompressed.
[[nodiscard]] std::string pdfObjects(const std::string& path);

/// The same of a report, without the time at which it was made: what two reports of a project have in common.
[[nodiscard]] std::string pdfObjectsWithoutTime(const std::string& path);

}  // namespace quillmeter::testing
