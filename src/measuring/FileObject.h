#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/Number.h"

namespace quillmeter {

/// One file of a project: its name, path, size and six counters. The reader makes it, everybody else reads
/// it; it is shared by pointer, so a table or chart that still shows a record never sees it freed. Any field
/// may be absent; every consumer reads an absent counter as 0 (`integerValue` and `doubleValue` below do).
class FileObject {
 public:
  /// Last component of `filePath`, as found on disk: bytes, letter case kept.
  [[nodiscard]] const std::optional<std::string>& fileName() const { return fileName_; }
  /// Absolute path of the file on disk, bytes as the file system has them.
  [[nodiscard]] const std::optional<std::string>& filePath() const { return filePath_; }
  /// Size in bytes, from the file system's attributes; absent when they could not be read.
  [[nodiscard]] const std::optional<Number>& fileSize() const { return fileSize_; }
  /// All lines, empty ones included.
  [[nodiscard]] const std::optional<Number>& noLinesTotal() const { return noLinesTotal_; }
  /// Comment lines.
  [[nodiscard]] const std::optional<Number>& noLinesComments() const { return noLinesComments_; }
  /// Lines that are not empty after trimming white space.
  [[nodiscard]] const std::optional<Number>& noLinesWithoutSpaces() const { return noLinesWithoutSpaces_; }
  [[nodiscard]] const std::optional<Number>& noWords() const { return noWords_; }
  /// Characters of the non-empty lines in UTF-16 code units, without white space.
  [[nodiscard]] const std::optional<Number>& noCharactersWithoutSpaces() const {
    return noCharactersWithoutSpaces_;
  }
  /// The same with the white space inside a line.
  [[nodiscard]] const std::optional<Number>& noCharactersTotal() const { return noCharactersTotal_; }

  void setFileName(std::optional<std::string> value) { fileName_ = std::move(value); }
  void setFilePath(std::optional<std::string> value) { filePath_ = std::move(value); }
  void setFileSize(std::optional<Number> value) { fileSize_ = value; }
  void setNoLinesTotal(std::optional<Number> value) { noLinesTotal_ = value; }
  void setNoLinesComments(std::optional<Number> value) { noLinesComments_ = value; }
  void setNoLinesWithoutSpaces(std::optional<Number> value) { noLinesWithoutSpaces_ = value; }
  void setNoWords(std::optional<Number> value) { noWords_ = value; }
  void setNoCharactersWithoutSpaces(std::optional<Number> value) { noCharactersWithoutSpaces_ = value; }
  void setNoCharactersTotal(std::optional<Number> value) { noCharactersTotal_ = value; }

  /// The text after the last "." of the name, lower-cased; the whole name lower-cased when it has no ".".
  /// Absent when the name is.
  [[nodiscard]] std::optional<std::string> getFileExtension() const;

  /// `noLinesTotal` in decimal thousands, empty lines included; 0.0 when it is absent.
  [[nodiscard]] double kloc() const;

 private:
  std::optional<std::string> fileName_;
  std::optional<std::string> filePath_;
  std::optional<Number> fileSize_;
  std::optional<Number> noLinesTotal_;
  std::optional<Number> noLinesWithoutSpaces_;
  std::optional<Number> noLinesComments_;
  std::optional<Number> noWords_;
  std::optional<Number> noCharactersTotal_;
  std::optional<Number> noCharactersWithoutSpaces_;
};

using FileList = std::vector<std::shared_ptr<FileObject>>;

/// A counter as a signed integer or a double; an absent one is 0.
[[nodiscard]] inline std::int64_t integerValue(const std::optional<Number>& number) {
  return number ? number->longValue() : 0;
}
[[nodiscard]] inline double doubleValue(const std::optional<Number>& number) {
  return number ? number->doubleValue() : 0.0;
}

}  // namespace quillmeter
