#include "support/NumberFormat.h"

#include <unicode/numberformatter.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace quillmeter {

struct DecimalFormatter::Implementation {
  icu::number::LocalizedNumberFormatter formatter;
};

namespace {

/// The locale that numbers go by: the first of the process's variables that is set, as the C library chooses.
std::string localeOfEnvironment() {
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

icu::Locale localeNamed(std::string name) {
  if (name.empty()) name = localeOfEnvironment();
  // The POSIX locale knows no grouping; the program's texts are English, so its numbers are then too.
  const bool posix = name == "C" || name == "POSIX" || name.starts_with("C.");
  return posix ? icu::Locale::getUS() : icu::Locale::createCanonical(name.c_str());
}

}  // namespace

DecimalFormatter::DecimalFormatter(int minimumFractionDigits, int maximumFractionDigits,
                                   const std::string& locale)
    : implementation_(new Implementation{
          icu::number::NumberFormatter::withLocale(localeNamed(locale))
              .precision(icu::number::Precision::minMaxFraction(minimumFractionDigits, maximumFractionDigits))
              .roundingMode(UNUM_ROUND_HALFEVEN)}) {}

DecimalFormatter::~DecimalFormatter() = default;
DecimalFormatter::DecimalFormatter(DecimalFormatter&&) noexcept = default;
DecimalFormatter& DecimalFormatter::operator=(DecimalFormatter&&) noexcept = default;

std::string DecimalFormatter::format(std::int64_t value) const {
  UErrorCode status = U_ZERO_ERROR;
  std::string result;
  implementation_->formatter.formatInt(value, status).toString(status).toUTF8String(result);
  return result;
}

std::string DecimalFormatter::format(std::uint64_t value) const {
  UErrorCode status = U_ZERO_ERROR;
  std::string result;
  std::array<char, 24> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  const icu::StringPiece decimal(digits.data(), static_cast<std::int32_t>(end - digits.data()));
  implementation_->formatter.formatDecimal(decimal, status).toString(status).toUTF8String(result);
  return result;
}

std::string DecimalFormatter::format(double value) const {
  UErrorCode status = U_ZERO_ERROR;
  std::string result;
  implementation_->formatter.formatDouble(value, status).toString(status).toUTF8String(result);
  return result;
}

std::string DecimalFormatter::inLocalDigits(std::string_view plain) const {
  UErrorCode status = U_ZERO_ERROR;
  const UChar32 zero = implementation_->formatter.formatInt(0, status).toString(status).char32At(0);
  icu::UnicodeString text;
  for (const char character : plain) {
    const bool isDigit = character >= '0' && character <= '9';
    text.append(isDigit ? zero + (character - '0') : UChar32{character});
  }
  std::string result;
  return text.toUTF8String(result);
}

std::string fixed(double value, int decimals) {
  if (std::isnan(value)) return "nan";
  // The longest double has 309 digits before the point.
  std::array<char, 400> text{};
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
  return {text.data(), result.ptr};
}

std::string sizeInKilobytes(double bytes) {
  constexpr double unit = 1024.0;
  const double kilobytes = bytes / unit;
  return kilobytes >= unit ? fixed(kilobytes / unit, 1) + " MB" : fixed(kilobytes, 1) + " KB";
}

}  // namespace quillmeter
