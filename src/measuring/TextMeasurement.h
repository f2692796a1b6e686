#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "measuring/TextScan.h"

namespace quillmeter {

/// What one text measures. Lengths are in UTF-16 code units.
struct TextCounts {
  std::uint64_t noLinesTotal = 0;
  std::uint64_t noLinesWithoutSpaces = 0;
  std::uint64_t noLinesComments = 0;
  std::uint64_t noWords = 0;
  std::uint64_t noCharactersWithoutSpaces = 0;
  std::uint64_t noCharactersTotal = 0;

  bool operator==(const TextCounts&) const = default;
};

/// Measures a text that arrives in blocks of any size, in one pass over its bytes and in constant memory.
/// Blocks may be cut anywhere, also inside a character. A byte-order mark at the very start is not text and
/// counts nowhere. A plain value of some hundred bytes: cheap enough to make one for each small file.
class TextMeasurement {
 public:
  /// On the machine's best instruction set, or on one of its others.
  explicit TextMeasurement(const TextScanTarget& target = textScanTargets().front());

  void add(std::span<const char> block);

  /// The counts of everything added; absent when it is not valid UTF-8. Nothing may be added afterwards.
  [[nodiscard]] std::optional<TextCounts> finish();

 private:
  [[nodiscard]] std::span<const char> completeHeld(std::span<const char> block);
  void addWholeCharacters(std::span<const char> text);

  TextScanFunction scanOn_;
  TextScan scan_;
  std::array<char, 4> held_{};  ///< the bytes so far of a character that goes on in the next block
  std::size_t heldSize_ = 0;
  bool atStart_ = true;
  bool valid_ = true;
};

/// The same for a text that is there as a whole.
[[nodiscard]] std::optional<TextCounts> measuredText(std::span<const char> text);

}  // namespace quillmeter
