#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "files/FileSystem.h"

namespace quillmeter {

/// Hands out an open file line by line as the standard library's fgets does with a buffer of 128 bytes: a
/// piece has at most 127 bytes and ends behind a line feed, so a longer line comes in several pieces. Reads
/// in large blocks; does not own the descriptor.
class LinePieces {
 public:
  LinePieces(const FileSystem& fileSystem, int descriptor);

  /// The next piece, with its line feed if it has one; valid until the next call. Nothing at the end of the
  /// file. A read that fails ends the file, and a piece that is not whole at that moment is lost.
  [[nodiscard]] std::optional<std::string_view> next();

 private:
  void fill();
  [[nodiscard]] std::string_view rest() const;

  const FileSystem& fileSystem_;
  int descriptor_;
  std::string buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool atEnd_ = false;
  bool failed_ = false;
};

}  // namespace quillmeter
