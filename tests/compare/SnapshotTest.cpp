#include "compare/Snapshot.h"

#include <gtest/gtest.h>

#include <limits>

#include "compare/SnapshotFixture.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::projectWith;
using testing::record;
using testing::snapshotFile;
using testing::snapshotWith;

TEST(Snapshot, TakesPathsFromTheProjectsFolder) {
  const auto project = projectWith({record({.name = "b.m", .lines = 3, .folder = "/project/Classes"}),
                                    record({.name = "a.m", .lines = 4, .folder = "/elsewhere"})});
  const Snapshot snapshot = snapshotOf(*project);
  ASSERT_EQ(snapshot.files.size(), 2U);
  EXPECT_EQ(snapshot.files[0].path, "/elsewhere/a.m");
  EXPECT_EQ(snapshot.files[1].path, "Classes/b.m");
  EXPECT_EQ(snapshot.rules, "classic");
  EXPECT_EQ(snapshot.projectTitle, "Fixture");
}

TEST(Snapshot, TotalsAreThoseOfTheOverview) {
  auto image = record({.name = "c.png", .size = 7, .lines = -1, .words = -1});
  const auto project =
      projectWith({record({.name = "a.m", .size = 10, .lines = 3, .words = 5}),
                   record({.name = "v.xib", .size = 20, .lines = 100, .words = 100}), image});
  const Snapshot snapshot = snapshotOf(*project);
  EXPECT_EQ(snapshot.totals[*totalNamed("fileSize")], 37);
  EXPECT_EQ(snapshot.totals[*totalNamed("noLinesTotal")], 3);
  EXPECT_EQ(snapshot.totals[*totalNamed("noWords")], 5);
  EXPECT_EQ(snapshot.totals[*totalNamed("getNumberCodeFiles")], 1);
  EXPECT_EQ(snapshot.totals[*totalNamed("getNumberImageFiles")], 1);
  EXPECT_EQ(snapshot.totals[*totalNamed("getNumberXIBFiles")], 1);
  EXPECT_EQ(snapshot.totals[*totalNamed("getNumberStaticMethods")], 0);
}

TEST(Snapshot, SumsStayAtTheLargestNumber) {
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(snapshotWith({snapshotFile("a.m", 1, most), snapshotFile("b.m", 1, most)}).totals[kSizeCounter],
            most);
}

TEST(Snapshot, UnderTheCurrentRulesSwiftIsSourceCode) {
  Snapshot snapshot = snapshotWith({snapshotFile("a.Swift", 10, 1), snapshotFile("b.hpp", 5, 1),
                                    snapshotFile("c.storyboard", 70, 1), snapshotFile("swift", 200, 1)});
  EXPECT_EQ(snapshot.totals[kLinesCounter], 0);
  snapshot.rules = "current";
  arrange(snapshot);
  EXPECT_EQ(snapshot.totals[kLinesCounter], 15);
}

TEST(Snapshot, KnowsNoOtherNames) {
  EXPECT_FALSE(totalNamed("nolinestotal"));
  EXPECT_FALSE(totalNamed(""));
}

}  // namespace
}  // namespace quillmeter
