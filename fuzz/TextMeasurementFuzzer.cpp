#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <span>
#include <string_view>

#include "measuring/ReferenceMeasurement.h"
#include "measuring/TextMeasurement.h"
#include "measuring/TextScan.h"

/// The first byte picks the instruction set, the second the sizes of the blocks; the others are the text.
/// Measuring it in those blocks gives what the reference gives for the whole.

namespace {

using quillmeter::TextCounts;

/// Blocks of 1 to 256 bytes, the sizes of which follow from `seed`; in one block where it is 0.
std::optional<TextCounts> measuredInBlocks(std::string_view text, std::uint8_t seed,
                                           const quillmeter::TextScanTarget& target) {
  quillmeter::TextMeasurement measurement(target);
  for (std::uint32_t state = seed; !text.empty(); state = state * 1664525U + (seed == 0 ? 0U : 1013904223U)) {
    const std::size_t size = seed == 0 ? text.size() : 1 + ((state >> 24U) & (state >> 16U) & 0xFFU);
    measurement.add(text.substr(0, size));
    text.remove_prefix(std::min(size, text.size()));
  }
  return measurement.finish();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::span<const quillmeter::TextScanTarget> targets = quillmeter::textScanTargets();
  const std::string_view text(reinterpret_cast<const char*>(data + 2), size - 2);
  const std::optional<TextCounts> expected = quillmeter::referenceMeasurement(text);
  const std::optional<TextCounts> measured =
      measuredInBlocks(text, data[1], targets[data[0] % targets.size()]);
  if (measured == expected) return 0;
  std::cerr << "measured " << measured.has_value() << ", expected " << expected.has_value() << '\n';
  if (measured && expected) {
    quillmeter::PrintTo(*measured, &std::cerr);
    quillmeter::PrintTo(*expected, &std::cerr);
  }
  std::abort();
}
