#include "export/ReportDate.h"

#include <gtest/gtest.h>

namespace quillmeter {
namespace {

constexpr std::chrono::system_clock::time_point at(std::int64_t secondsSince1970) {
  return std::chrono::system_clock::time_point(std::chrono::seconds(secondsSince1970));
}

TEST(ReportDate, IsWrittenInTheWordsOfTheLocale) {
  EXPECT_EQ(reportDate(at(1795260547), "en_US", "UTC"), "Nov 21, 2026 11:29 AM");
  EXPECT_EQ(reportDate(at(1795260547), "de_DE", "UTC"), "Nov. 21, 2026 11:29 AM");
}

TEST(ReportDate, GoesByTheClockOfTheTimeZone) {
  EXPECT_EQ(reportDate(at(1795260547), "en_US", "Asia/Tokyo"), "Nov 21, 2026 08:29 PM");
  EXPECT_EQ(reportDate(at(0), "en_US", "America/New_York"), "Dec 31, 1969 07:00 PM");
}

TEST(ReportDate, IsNeverEmpty) {
  EXPECT_FALSE(reportDate(at(0), "", "").empty());
  EXPECT_FALSE(reportDate(at(0), "no such locale", "No/Zone").empty());
}

}  // namespace
}  // namespace quillmeter
