#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "export/FontMetrics.h"
#include "export/ReportChart.h"

namespace quillmeter {

struct PdfPoint {
  double x = 0.0;
  double y = 0.0;
};

struct PdfRect {
  double x = 0.0;
  double y = 0.0;
  double width = 0.0;
  double height = 0.0;
};

/// Components from 0 to 1.
struct PdfColor {
  double red = 0.0;
  double green = 0.0;
  double blue = 0.0;
  double alpha = 1.0;
};

/// What a document says of itself. Viewers are asked to show its title in place of the file's name.
struct PdfInformation {
  std::string title;
  std::string creator;
  std::string author;
  std::string subject;
  std::string language;  ///< of its texts, as in "en"; assistive technology reads them aloud in it
  std::chrono::system_clock::time_point created{};
};

/// What a page is begun with.
struct PdfPageProperties {
  PdfRect mediaBox;  ///< the whole sheet, which begins at the origin
};

/// A PDF document while it is drawn: the pages, and what can be drawn on the current one. Points with the
/// origin at the bottom left. It holds the document in memory; nothing touches the disk.
///
/// The library below reports errors by a callback. Here the callback does nothing, the library itself lets
/// every later call fail, and `document` tells; so no operation needs a check of its own.
class PdfContext {
 public:
  /// A document without pages.
  explicit PdfContext(const PdfInformation& information);
  ~PdfContext();
  PdfContext(const PdfContext&) = delete;
  PdfContext& operator=(const PdfContext&) = delete;

  void beginPage(const PdfPageProperties& properties);
  /// Ends the page; drawing does nothing until the next one begins.
  void endPage();

  void saveState();
  void restoreState();
  void setFillColor(const PdfColor& color);  ///< alpha is not used
  void setStrokeColor(const PdfColor& color);
  void setLineWidth(double width);
  void fillRect(const PdfRect& rect);
  void strokeRect(const PdfRect& rect);
  void strokeLine(const PdfPoint& from, const PdfPoint& to);

  /// Takes a base font by name ("Helvetica", "Helvetica-Bold") with the Mac Roman encoding for text to come.
  void selectFont(const std::string& name, double size);
  /// Shows bytes in the font's encoding, the first one's origin at `point`. Nothing for no bytes.
  void showTextAtPoint(std::string_view bytes, const PdfPoint& point);
  /// The metrics of a base font; they live as long as this object.
  [[nodiscard]] const FontMetrics& fontMetrics(const std::string& name);

  /// Draws a picture into `rect`, what is transparent in it leaving the page as it was.
  void drawPicture(const ReportPicture& picture, const PdfRect& rect);
  /// Makes `rect` a link without a visible border.
  void addLink(const std::string& address, const PdfRect& rect);

  /// The finished document's bytes, or nothing when anything failed since the beginning (memory ran out).
  [[nodiscard]] std::optional<std::string> document();

 private:
  struct Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace quillmeter
