#pragma once

#include <memory>
#include <string>

#include "parsers/BaseParser.h"

namespace quillmeter {

/// Counts the methods that an Objective-C file defines. It collects text from each line that begins with "-"
/// or "+" up to a line that ends with "{", and then asks whether that is the head of a method. A declaration,
/// which ends with ";", does not end the text, so it spoils the definition that follows it. A parser reads
/// one file; used again, it handles that file's last line once more and gives its result, or nothing when
/// that line is blank.
class ObjectiveCParser final : public BaseParser {
 public:
  using BaseParser::BaseParser;

  [[nodiscard]] static std::unique_ptr<ObjectiveCParser> create(
      const FileSystem& fileSystem = FileSystem::real());

  /// Before any line was read: counts the file at `path`, and gives null when it cannot be opened. After that
  /// it handles `currentLine`, and gives the result when a whole file has been read and that line is not
  /// blank; null otherwise.
  std::shared_ptr<FMethodStats> execute(const std::string& path) override;

  /// "-" or "+" while the head of a method is being collected, else empty.
  [[nodiscard]] const std::string& methodBeginTag() const { return methodBeginTag_; }
  /// The text collected so far, each line with a blank before it.
  [[nodiscard]] const std::string& methodCandidate() const { return methodCandidate_; }

  void setMethodBeginTag(std::string value) { methodBeginTag_ = std::move(value); }
  void setMethodCandidate(std::string value) { methodCandidate_ = std::move(value); }

 private:
  void readFile(const std::string& path);
  void handleLine(std::string_view line);
  void testCandidate();
  void countMethod();

  std::string methodBeginTag_;
  std::string methodCandidate_;
};

}  // namespace quillmeter
