#include "parsers/LinePieces.h"

#include <cstring>
#include <span>

namespace quillmeter {
namespace {

constexpr std::size_t kLongestPiece = 127;
constexpr std::size_t kBlock = std::size_t{1} << 16;

}  // namespace

LinePieces::LinePieces(const FileSystem& fileSystem, int descriptor)
    : fileSystem_(fileSystem), descriptor_(descriptor), buffer_(kBlock, '\0') {}

std::optional<std::string_view> LinePieces::next() {
  if (rest().size() < kLongestPiece) fill();
  std::string_view piece = rest().substr(0, kLongestPiece);
  const std::size_t lineFeed = piece.find('\n');
  if (lineFeed != std::string_view::npos) {
    piece = piece.substr(0, lineFeed + 1);
  } else if (piece.empty() || (failed_ && piece.size() < kLongestPiece)) {
    return std::nullopt;
  }
  begin_ += piece.size();
  return piece;
}

/// Reads until the longest piece is there, or the file ends.
void LinePieces::fill() {
  const std::string_view kept = rest();
  std::memmove(buffer_.data(), kept.data(), kept.size());
  end_ = kept.size();
  begin_ = 0;
  while (!atEnd_ && end_ < kLongestPiece) {
    const auto count = fileSystem_.read(descriptor_, std::span(buffer_).subspan(end_));
    failed_ = !count;
    atEnd_ = !count || *count == 0;
    if (!atEnd_) end_ += *count;
  }
}

std::string_view LinePieces::rest() const {
  return std::string_view(buffer_).substr(begin_, end_ - begin_);
}

}  // namespace quillmeter
