#include "xcode/NameFolding.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>

#include <algorithm>
#include <cstdint>

#include "support/Text.h"

namespace quillmeter {
namespace {

icu::StringPiece piece(std::string_view text) {
  return {text.data(), static_cast<std::int32_t>(text.size())};
}

}  // namespace

std::string foldedName(std::string_view name) {
  const bool ascii =
      std::all_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  // The folding of ASCII is its lower case; of such names there are many.
  if (ascii) return lowerCased(name);
  if (!isValidUtf8(name)) return std::string(name);
  UErrorCode status = U_ZERO_ERROR;
  std::string composed;
  icu::StringByteSink<std::string> composedSink(&composed);
  icu::Normalizer2::getNFCInstance(status)->normalizeUTF8(0, piece(name), composedSink, nullptr, status);
  std::string folded;
  icu::StringByteSink<std::string> foldedSink(&folded);
  icu::CaseMap::utf8Fold(0, piece(composed), foldedSink, nullptr, status);
  return U_SUCCESS(status) ? folded : std::string(name);
}

}  // namespace quillmeter
