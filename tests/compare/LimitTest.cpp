#include "compare/Limit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "compare/SnapshotFixture.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::snapshotFile;
using testing::snapshotWith;

std::vector<std::string> passedBy(std::string_view text, std::vector<SnapshotFile> before,
                                  std::vector<SnapshotFile> after) {
  const LimitReading reading = readLimit(text);
  EXPECT_TRUE(reading.limit) << reading.error;
  if (!reading.limit) return {};
  return passed(*reading.limit,
                differencesBetween(snapshotWith(std::move(before)), snapshotWith(std::move(after))));
}

/// Whether a project that went from `before` to `after` lines passes a limit.
bool isPassed(std::string_view text, std::int64_t before, std::int64_t after) {
  return !passedBy(text, {snapshotFile("a.m", before, 1)}, {snapshotFile("a.m", after, 1)}).empty();
}

TEST(Limit, ComparesAValue) {
  EXPECT_TRUE(isPassed("noLinesTotal>100", 0, 101));
  EXPECT_FALSE(isPassed("noLinesTotal>100", 0, 100));
  EXPECT_TRUE(isPassed("noLinesTotal>=100", 0, 100));
  EXPECT_TRUE(isPassed("noLinesTotal<100", 500, 99));
  EXPECT_FALSE(isPassed("noLinesTotal<100", 500, 100));
  EXPECT_TRUE(isPassed("noLinesTotal<=100", 500, 100));
}

TEST(Limit, ANumberWithASignIsADifference) {
  EXPECT_TRUE(isPassed("noLinesTotal>+5", 100, 106));
  EXPECT_FALSE(isPassed("noLinesTotal>+5", 100, 105));
  EXPECT_TRUE(isPassed("noLinesTotal<-5", 100, 94));
  EXPECT_FALSE(isPassed("noLinesTotal<-5", 100, 95));
  EXPECT_TRUE(isPassed("noLinesTotal>=+0", 100, 100));
}

TEST(Limit, PerCentAreOfTheEarlierValueAndExact) {
  EXPECT_FALSE(isPassed("noLinesTotal>+5%", 100, 105));
  EXPECT_TRUE(isPassed("noLinesTotal>+5%", 100, 106));
  EXPECT_FALSE(isPassed("noLinesTotal>+0.1%", 1000, 1001));
  EXPECT_TRUE(isPassed("noLinesTotal>+0.099999%", 1000, 1001));
  EXPECT_TRUE(isPassed("noLinesTotal<-50%", 100, 49));
  EXPECT_FALSE(isPassed("noLinesTotal<-50%", 100, 50));
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  EXPECT_FALSE(isPassed("fileSize>+1000000000%", 0, 0));
  EXPECT_TRUE(
      passedBy("fileSize>+100%", {snapshotFile("a.m", 1, most / 2)}, {snapshotFile("a.m", 1, most - 1)})
          .empty());
  EXPECT_FALSE(
      passedBy("fileSize>+99%", {snapshotFile("a.m", 1, most / 2)}, {snapshotFile("a.m", 1, most - 1)})
          .empty());
}

TEST(Limit, WhatGrowsFromNothingPassesAnyNumberOfPerCent) {
  EXPECT_TRUE(isPassed("noLinesTotal>+1000000000%", 0, 1));
  EXPECT_FALSE(isPassed("noLinesTotal<+5%", 0, 1));
  EXPECT_FALSE(isPassed("noLinesTotal>+0%", 0, 0));
  EXPECT_TRUE(isPassed("noLinesTotal>=+0%", 0, 0));
}

TEST(Limit, KnowsEveryTotal) {
  for (const std::string_view name : totalNames()) {
    EXPECT_TRUE(readLimit(std::string(name) + ">1").limit) << name;
  }
  EXPECT_THAT(passedBy("fileSize >= 10", {}, {snapshotFile("a.png", 0, 10)}), ElementsAre("fileSize is 10"));
  EXPECT_THAT(passedBy("noWords>+0", {}, {snapshotFile("a.m", 10, 10)}),
              ElementsAre("noWords is 30, was 0 (+30)"));
}

TEST(Limit, SaysByWhatItWasPassed) {
  EXPECT_THAT(passedBy("noLinesTotal>+5%", {snapshotFile("a.m", 2299, 1)}, {snapshotFile("a.m", 2420, 1)}),
              ElementsAre("noLinesTotal is 2420, was 2299 (+121, +5.26 %)"));
  EXPECT_THAT(passedBy("noLinesTotal<-10%", {snapshotFile("a.m", 10, 1)}, {}),
              ElementsAre("noLinesTotal is 0, was 10 (-10, -100.00 %)"));
  EXPECT_THAT(passedBy("noLinesTotal>+10%", {}, {snapshotFile("a.m", 10, 1)}),
              ElementsAre("noLinesTotal is 10, was 0 (+10, from nothing)"));
}

TEST(Limit, LooksAtAnyOneFile) {
  const std::vector<SnapshotFile> before{snapshotFile("a.m", 700, 1), snapshotFile("gone.m", 900, 1)};
  const std::vector<SnapshotFile> after{snapshotFile("a.m", 801, 1), snapshotFile("b.m", 800, 1),
                                        snapshotFile("new.m", 950, 1)};
  EXPECT_THAT(passedBy("file:noLinesTotal>800", before, after),
              ElementsAre("noLinesTotal of new.m is 950", "noLinesTotal of a.m is 801"));
  EXPECT_THAT(passedBy("file:noLinesTotal>+900", before, after),
              ElementsAre("noLinesTotal of new.m is 950, was 0 (+950)"));
  EXPECT_THAT(passedBy("file:noLinesTotal<-1", before, after),
              ElementsAre("noLinesTotal of gone.m is 0, was 900 (-900)"));
  EXPECT_THAT(passedBy("file:noLinesTotal>+10%", before, after),
              ElementsAre("noLinesTotal of a.m is 801, was 700 (+101, +14.43 %)"));
  EXPECT_THAT(passedBy("file:noLinesTotal<1", before, after), IsEmpty());
}

TEST(Limit, NamesTenFilesAndCountsTheOthers) {
  std::vector<SnapshotFile> files;
  for (int i = 0; i < 35; ++i)
    files.push_back(snapshotFile(std::to_string(i) + ".m", 900, 1));
  const auto lines = passedBy("file:noLinesTotal>800", {}, files);
  ASSERT_EQ(lines.size(), 11U);
  EXPECT_EQ(lines.back(), "and 25 more");
}

TEST(Limit, OnlyValuesDoWithoutABaseline) {
  EXPECT_FALSE(readLimit("noLinesTotal>5").limit->needsBaseline());
  EXPECT_TRUE(readLimit("noLinesTotal>+5").limit->needsBaseline());
  EXPECT_TRUE(readLimit("file:noLinesTotal<-5%").limit->needsBaseline());
}

TEST(Limit, RefusesWhatItDoesNotUnderstandAndSaysWhy) {
  const auto refusal = [](std::string_view text) {
    const LimitReading reading = readLimit(text);
    EXPECT_FALSE(reading.limit) << text;
    EXPECT_THAT(reading.error, HasSubstr("is no limit")) << text;
    EXPECT_THAT(reading.error, HasSubstr("written like noLinesTotal>2000")) << text;
    return reading.error;
  };
  EXPECT_THAT(refusal(""), HasSubstr("none of > >= < <="));
  EXPECT_THAT(refusal("noLinesTotal=5"), HasSubstr("none of > >= < <="));
  EXPECT_THAT(refusal("noLineTotal>5"), HasSubstr("did you mean noLinesTotal?"));
  EXPECT_THAT(refusal("nolinestotal>5"), HasSubstr("did you mean noLinesTotal?"));
  EXPECT_THAT(refusal("zebra>5"), HasSubstr("getNumberXIBFiles"));
  EXPECT_THAT(refusal("zebra>5"), HasSubstr(", getNumberStaticMethods;"));
  EXPECT_THAT(refusal("file:getNumberCodeFiles>5"), HasSubstr("of a file"));
  EXPECT_THAT(refusal("file:zebra>5"), HasSubstr(", noCharactersTotal;"));
  EXPECT_THAT(refusal("noLinesTotal>5%"), HasSubstr("need a sign"));
  EXPECT_THAT(refusal("noLinesTotal>"), HasSubstr("'' is no whole number"));
  EXPECT_THAT(refusal("noLinesTotal>1.5"), HasSubstr("whole number"));
  EXPECT_THAT(refusal("noLinesTotal>five"), HasSubstr("'five'"));
  EXPECT_THAT(refusal("noLinesTotal>--5"), HasSubstr("'--5'"));
  EXPECT_THAT(refusal("noLinesTotal>5>6"), HasSubstr("'5>6'"));
  EXPECT_THAT(refusal("noLinesTotal>99999999999999999999"), HasSubstr("whole number"));
  EXPECT_THAT(refusal("noLinesTotal>+1.1234567%"), HasSubstr("six decimals"));
  EXPECT_THAT(refusal("noLinesTotal>+1.%"), HasSubstr("per cent"));
  EXPECT_THAT(refusal("noLinesTotal>+1.-5%"), HasSubstr("per cent"));
  EXPECT_THAT(refusal("noLinesTotal>+1000000001%"), HasSubstr("per cent"));
  EXPECT_THAT(refusal("noLinesTotal>+%"), HasSubstr("per cent"));
}

}  // namespace
}  // namespace quillmeter
