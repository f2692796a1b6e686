#include "support/NumberFormat.h"

#include <unicode/numberformatter.h>

#include <array>
#include <charconv>

namespace quillmeter {

struct DecimalFormatter::Implementation {
  icu::number::LocalizedNumberFormatter formatter;
};

DecimalFormatter::DecimalFormatter(int minimumFractionDigits, int maximumFractionDigits,
                                   const std::string& locale)
    : implementation_(new Implementation{
          icu::number::NumberFormatter::withLocale(locale.empty() ? icu::Locale::getDefault()
                                                                  : icu::Locale(locale.c_str()))
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

std::string fixed(double value, int decimals) {
  // The longest double has 309 digits before the point.
  std::array<char, 400> text{};
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
  return {text.data(), result.ptr};
}

}  // namespace quillmeter
