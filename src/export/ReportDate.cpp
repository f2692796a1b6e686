#include "export/ReportDate.h"

#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace quillmeter {

std::string reportDate(std::chrono::system_clock::time_point time, const std::string& locale,
                       const std::string& timeZone) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Locale chosen = locale.empty() ? icu::Locale::getDefault() : icu::Locale(locale.c_str());
  icu::SimpleDateFormat format(icu::UnicodeString::fromUTF8("MMM dd, yyyy hh:mm a"), chosen, status);
  if (U_FAILURE(status)) return {};
  if (!timeZone.empty()) {
    format.adoptTimeZone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone)));
  }
  const std::chrono::duration<double, std::milli> sinceEpoch = time.time_since_epoch();
  icu::UnicodeString text;
  format.format(sinceEpoch.count(), text);
  std::string result;
  return text.toUTF8String(result);
}

}  // namespace quillmeter
