#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "parsers/BaseParser.h"

namespace quillmeter {

/// Counts the functions that a C or C++ file defines: everything in it that looks like the head of one up to
/// its "{". It reads the whole file at once and may be used for any number of files.
class CPlusPlusParser final : public BaseParser {
 public:
  using BaseParser::BaseParser;

  [[nodiscard]] static std::unique_ptr<CPlusPlusParser> create(
      const FileSystem& fileSystem = FileSystem::real());

  /// `text` with every line trimmed, a line feed before each, and " |_|" behind each line that begins with
  /// "//", which marks it as a comment.
  [[nodiscard]] static std::string convertFileComments(std::string_view text);

  /// Counts the file at `path`. All counts are 0 when it cannot be read or is not UTF-8. Never null.
  std::shared_ptr<FMethodStats> execute(const std::string& path) override;

 private:
  [[nodiscard]] std::optional<std::string> convertedFile(const std::string& path) const;
  void countFunctions(std::string_view convertedText);
  void countFunction(std::string_view match);
};

}  // namespace quillmeter
