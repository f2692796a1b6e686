#include "overview/OverviewFigures.h"

#include <gtest/gtest.h>

#include <limits>

#include "helpers/ProjectFixture.h"
#include "support/NumberFormat.h"

namespace quillmeter {
namespace {

using testing::projectWith;
using testing::record;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

OverviewFigureTexts textsOf(FileList files, const std::string& locale = "en_US") {
  return overviewFigureTexts(overviewFigures(*projectWith(std::move(files))), overviewFormatter(locale));
}

/// The text of `lblSizeMetrics` `number`.
std::string metric(const OverviewFigureTexts& texts, std::size_t number) {
  return texts.lblSizeMetrics.at(number - 1);
}

std::string sizeShown(std::int64_t bytes, const std::string& locale = "en_US") {
  return metric(textsOf({record({.name = "icon.png", .size = bytes})}, locale), 1);
}

TEST(OverviewFigures, SizesBelowOneKilobyteAreShownInBytes) {
  EXPECT_EQ(sizeShown(0), "0 B");
  EXPECT_EQ(sizeShown(1), "1 B");
  EXPECT_EQ(sizeShown(1023), "1,023 B");
}

TEST(OverviewFigures, SizesAreShownInUnitsOf1024WithAtMostOneDecimal) {
  EXPECT_EQ(sizeShown(1024), "1 KB");
  EXPECT_EQ(sizeShown(1536), "1.5 KB");
  EXPECT_EQ(sizeShown(1048575), "1,024 KB");
  EXPECT_EQ(sizeShown(1048576), "1 MB");
  EXPECT_EQ(sizeShown(1572864), "1.5 MB");
}

TEST(OverviewFigures, MegabytesAreTheLargestUnit) {
  EXPECT_EQ(sizeShown(std::int64_t{1} << 40), "1,048,576 MB");
  EXPECT_EQ(sizeShown(kMost), "8,796,093,022,208 MB");
}

TEST(OverviewFigures, SizesAreRoundedHalfToEven) {
  EXPECT_EQ(sizeShown(1024 + 256), "1.2 KB");      // 1.25
  EXPECT_EQ(sizeShown(1024 + 768), "1.8 KB");      // 1.75
  EXPECT_EQ(sizeShown(2 * 1024 + 256), "2.2 KB");  // 2.25
}

TEST(OverviewFigures, SizesFollowTheUsersGroupingAndDecimalSign) {
  EXPECT_EQ(sizeShown(1023, "de_DE"), "1.023 B");
  EXPECT_EQ(sizeShown(1536, "de_DE"), "1,5 KB");
}

TEST(OverviewFigures, LinesOfSourceFilesAreAddedUp) {
  const auto texts = textsOf({
      record({.name = "a.m", .lines = 12000, .linesWithoutSpaces = 9000, .comments = 1500}),
      record({.name = "a.h", .lines = 345, .linesWithoutSpaces = 300, .comments = 50}),
  });
  EXPECT_EQ(texts.lblTotalNumberLines, "12,345");
  EXPECT_EQ(metric(texts, 2), "12,345");
  EXPECT_EQ(metric(texts, 3), "12.35");
  EXPECT_EQ(metric(texts, 4), "9,300");
  EXPECT_EQ(metric(texts, 5), "1,550");
  EXPECT_EQ(metric(texts, 6), "4,650");
  EXPECT_EQ(metric(texts, 7), "2");
  EXPECT_EQ(metric(texts, 10), "775");
}

TEST(OverviewFigures, GermanUsersSeePointsBetweenThousandsButKlocKeepsItsPlainPoint) {
  const auto texts = textsOf({record({.name = "a.m", .lines = 1234567})}, "de_DE");
  EXPECT_EQ(texts.lblTotalNumberLines, "1.234.567");
  EXPECT_EQ(metric(texts, 2), "1.234.567");
  EXPECT_EQ(metric(texts, 3), "1234.57");
}

TEST(OverviewFigures, EmptyLinesAreAllLinesLessTheNonEmptyOnes) {
  const auto figures = overviewFigures(*projectWith({
      record({.name = "a.c", .lines = 10, .linesWithoutSpaces = 7, .comments = 2}),
      record({.name = "b.cpp", .lines = 5, .linesWithoutSpaces = 5}),
  }));
  EXPECT_EQ(figures.totalNumberLines, 15U);
  EXPECT_EQ(figures.totalNumberLinesWithSpaces, 3U);
  EXPECT_EQ(figures.totalNumberLinesWithComments, 2U);
}

TEST(OverviewFigures, AveragesAreTruncated) {
  const auto texts = textsOf({
      record({.name = "a.m", .linesWithoutSpaces = 4, .comments = 5}),
      record({.name = "b.m", .linesWithoutSpaces = 3, .comments = 0}),
      record({.name = "c.m", .linesWithoutSpaces = 3, .comments = 0}),
  });
  EXPECT_EQ(metric(texts, 6), "3");
  EXPECT_EQ(metric(texts, 10), "1");
}

TEST(OverviewFigures, ProjectOfImagesHasASizeButNoLines) {
  const auto texts = textsOf({
      record({.name = "a.png", .size = 600, .lines = 7, .linesWithoutSpaces = 7, .comments = 7}),
      record({.name = "b.ICNS", .size = 600}),
  });
  EXPECT_EQ(metric(texts, 1), "1.2 KB");
  EXPECT_EQ(texts.lblTotalNumberLines, "0");
  for (const std::size_t number : {2U, 4U, 5U, 6U, 7U, 9U, 10U})
    EXPECT_EQ(metric(texts, number), "0");
  EXPECT_EQ(metric(texts, 3), "0.00");
  EXPECT_EQ(metric(texts, 8), "2");
}

TEST(OverviewFigures, InterfaceFilesAddTheirSizeButNotTheirLines) {
  const auto texts = textsOf({
      record({.name = "Main.xib", .size = 100, .lines = 400, .linesWithoutSpaces = 390, .comments = 3}),
      record({.name = "a.h", .size = 10, .lines = 4, .linesWithoutSpaces = 3}),
  });
  EXPECT_EQ(metric(texts, 1), "110 B");
  EXPECT_EQ(metric(texts, 2), "4");
  EXPECT_EQ(metric(texts, 4), "3");
  EXPECT_EQ(metric(texts, 9), "1");
}

TEST(OverviewFigures, FilesReferencedTwiceCountTwice) {
  const auto file = record({.name = "a.m", .size = 10, .lines = 4});
  const auto texts = textsOf({file, file});
  EXPECT_EQ(metric(texts, 1), "20 B");
  EXPECT_EQ(metric(texts, 2), "8");
  EXPECT_EQ(metric(texts, 7), "2");
}

TEST(OverviewFigures, EmptyProjectShowsZerosAndNoAverageFaults) {
  const auto texts = textsOf({});
  EXPECT_EQ(texts.lblTotalNumberLines, "0");
  EXPECT_EQ(metric(texts, 1), "0 B");
  EXPECT_EQ(metric(texts, 3), "0.00");
  for (const std::size_t number : {2U, 4U, 5U, 6U, 7U, 8U, 9U, 10U})
    EXPECT_EQ(metric(texts, number), "0");
}

TEST(OverviewFigures, ProjectThatWasNeverReadShowsZeros) {
  const auto figures = overviewFigures(ParseProject());
  EXPECT_EQ(figures.size, 0);
  EXPECT_EQ(figures.totalNumberLines, 0U);
  EXPECT_EQ(figures.codeFiles, 0U);
  EXPECT_EQ(figures.averageNonEmptyLines(), 0U);
  EXPECT_EQ(figures.averageCommentLines(), 0U);
}

TEST(OverviewFigures, AbsentCountersCountAsNothing) {
  auto bare = std::make_shared<FileObject>();
  bare->setFileName("bare.m");
  const auto texts = textsOf({bare, std::make_shared<FileObject>(),
                              record({.name = "a.m", .size = 5, .lines = 2, .linesWithoutSpaces = 2})});
  EXPECT_EQ(metric(texts, 1), "5 B");
  EXPECT_EQ(metric(texts, 2), "2");
  EXPECT_EQ(metric(texts, 6), "1");
  EXPECT_EQ(metric(texts, 7), "2");
}

TEST(OverviewFigures, HugeSumsStayExactAndWrapInsteadOfOverflowing) {
  const auto two =
      textsOf({record({.name = "a.m", .lines = kMost}), record({.name = "b.m", .lines = kMost})});
  EXPECT_EQ(metric(two, 2), "18,446,744,073,709,551,614");
  EXPECT_EQ(metric(two, 3), "18446744073709552.00");
  const auto figures = overviewFigures(*projectWith({
      record({.name = "a.m", .size = kMost, .lines = kMost}),
      record({.name = "b.m", .size = 1, .lines = kMost}),
      record({.name = "c.m", .lines = 5}),
  }));
  EXPECT_EQ(figures.totalNumberLines, 3U);
  EXPECT_EQ(figures.size, std::numeric_limits<std::int64_t>::min());
}

TEST(OverviewFigures, MoreNonEmptyLinesThanLinesWrapInTheEmptyLines) {
  const auto figures =
      overviewFigures(*projectWith({record({.name = "a.m", .lines = 1, .linesWithoutSpaces = 2})}));
  EXPECT_EQ(figures.totalNumberLinesWithSpaces, std::numeric_limits<std::uint64_t>::max());
}

}  // namespace
}  // namespace quillmeter
