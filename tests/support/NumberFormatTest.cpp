#include "support/NumberFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillmeter {
namespace {

TEST(DecimalFormatter, GroupsAsTheLocaleDoes) {
  EXPECT_EQ(DecimalFormatter(0, 1, "en_US").format(std::int64_t{1234567}), "1,234,567");
  EXPECT_EQ(DecimalFormatter(0, 1, "de_DE").format(1234.5), "1.234,5");
}

TEST(DecimalFormatter, RoundsHalfToEven) {
  const DecimalFormatter formatter(0, 1, "en_US");
  EXPECT_EQ(formatter.format(0.25), "0.2");
  EXPECT_EQ(formatter.format(0.75), "0.8");
  EXPECT_EQ(formatter.format(1.0), "1");
}

TEST(DecimalFormatter, ShowsTheLargestUnsignedNumberExactly) {
  EXPECT_EQ(DecimalFormatter(0, 1, "en_US").format(std::numeric_limits<std::uint64_t>::max()),
            "18,446,744,073,709,551,615");
}

TEST(DecimalFormatter, ReadsEnglishForThePosixLocale) {
  EXPECT_EQ(DecimalFormatter(0, 1, "C").format(std::int64_t{12345}), "12,345");
  EXPECT_EQ(DecimalFormatter(0, 1, "C.UTF-8").format(std::int64_t{12345}), "12,345");
}

TEST(SizeInKilobytes, TurnsIntoMegabytesAt1024OfThem) {
  EXPECT_EQ(sizeInKilobytes(0), "0.0 KB");
  EXPECT_EQ(sizeInKilobytes(1536), "1.5 KB");
  EXPECT_EQ(sizeInKilobytes(1024.0 * 1024 - 1), "1024.0 KB");
  EXPECT_EQ(sizeInKilobytes(1024.0 * 1024), "1.0 MB");
}

TEST(Fixed, AlwaysHasItsDecimalsAndAPoint) {
  EXPECT_EQ(fixed(12.345, 2), "12.35");
  EXPECT_EQ(fixed(0, 2), "0.00");
  EXPECT_EQ(fixed(1536.0 / 1024, 2), "1.50");
  EXPECT_EQ(fixed(std::numeric_limits<double>::quiet_NaN(), 2), "nan");
  // What processors make of 0 / 0 has its sign set.
  EXPECT_EQ(fixed(std::copysign(std::numeric_limits<double>::quiet_NaN(), -1.0), 2), "nan");
  EXPECT_EQ(fixed(std::numeric_limits<double>::max(), 1).size(), 311U);
}

TEST(DecimalFormatter, WritesPlainNumbersInTheDigitsOfItsLocale) {
  EXPECT_EQ(DecimalFormatter(0, 2, "en_US").inLocalDigits("-12034"), "-12034");
  EXPECT_EQ(DecimalFormatter(0, 2, "ar_EG").inLocalDigits("12034"), "١٢٠٣٤");
  EXPECT_EQ(DecimalFormatter(0, 2, "de_DE").inLocalDigits(""), "");
}

}  // namespace
}  // namespace quillmeter
