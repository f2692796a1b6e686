#pragma once

#include <array>
#include <memory>
#include <string>

namespace quillmeter {

/// How wide and high a base font of the PDF format is, in thousandths of its size. Immutable once made.
class FontMetrics {
 public:
  /// `name` is a base font's, such as "Helvetica-Bold"; an unknown one is as wide and high as nothing. Throws
  /// std::bad_alloc when memory runs out: a text would stand in a wrong place.
  explicit FontMetrics(const std::string& name);
  ~FontMetrics();
  FontMetrics(FontMetrics&&) noexcept;
  FontMetrics& operator=(FontMetrics&&) noexcept;

  /// The advance of a character; one that the font lacks is as wide as a space.
  [[nodiscard]] int width(char32_t character) const;
  [[nodiscard]] int ascent() const { return ascent_; }
  /// Positive, below the base line.
  [[nodiscard]] int descent() const { return descent_; }
  [[nodiscard]] static int leading() { return 0; }

 private:
  struct Document;
  [[nodiscard]] int widthFromFont(char32_t character) const;

  std::unique_ptr<Document> document_;
  std::array<int, 128> asciiWidths_{};
  int ascent_ = 0;
  int descent_ = 0;
};

/// A base font at a size in points.
struct ReportFont {
  const FontMetrics* metrics;
  double size;

  [[nodiscard]] double points(int thousandths) const { return thousandths * size / 1000.0; }
};

}  // namespace quillmeter
