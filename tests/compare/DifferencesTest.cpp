#include "compare/Differences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "compare/SnapshotFixture.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::snapshotFile;
using testing::snapshotWith;

/// "grown a.m", "moved old/a.m > new/a.m"; unchanged files are left out.
std::vector<std::string> changesOf(const Differences& differences) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < differences.changes(); ++i) {
    const FileChange& file = differences.files[i];
    lines.push_back(std::string(changeName(file.kind)) + " " +
                    (file.earlierPath == file.path ? "" : file.earlierPath + " > ") + file.path);
  }
  return lines;
}

std::vector<std::string> changes(std::vector<SnapshotFile> before, std::vector<SnapshotFile> after) {
  return changesOf(differencesBetween(snapshotWith(std::move(before)), snapshotWith(std::move(after))));
}

TEST(Differences, SaysWhatBecameOfEachFile) {
  const Differences differences =
      differencesBetween(snapshotWith({snapshotFile("same.m", 5, 50), snapshotFile("less.m", 90, 900),
                                       snapshotFile("more.m", 10, 100), snapshotFile("gone.m", 30, 300),
                                       snapshotFile("old/here.m", 77, 770)}),
                         snapshotWith({snapshotFile("same.m", 5, 50), snapshotFile("less.m", 50, 500),
                                       snapshotFile("more.m", 30, 300), snapshotFile("new.m", 31, 310),
                                       snapshotFile("new/here.m", 77, 770)}));
  EXPECT_THAT(changesOf(differences), ElementsAre("shrunk less.m", "added new.m", "removed gone.m",
                                                  "grown more.m", "moved old/here.m > new/here.m"));
  EXPECT_EQ(differences.number(ChangeKind::unchanged), 1U);
  EXPECT_EQ(differences.number(ChangeKind::added), 1U);
  EXPECT_EQ(differences.files.back().path, "same.m");
}

TEST(Differences, BytesDecideWhereLinesAreAsBefore) {
  EXPECT_THAT(changes({snapshotFile("a.png", 0, 10), snapshotFile("b.png", 0, 10)},
                      {snapshotFile("a.png", 0, 30), snapshotFile("b.png", 0, 5)}),
              ElementsAre("grown a.png", "shrunk b.png"));
}

TEST(Differences, OtherCountersAloneMakeAFileChanged) {
  SnapshotFile after = snapshotFile("a.m", 10, 100);
  after.counters[2] = 9;
  EXPECT_THAT(changes({snapshotFile("a.m", 10, 100)}, {after}), ElementsAre("changed a.m"));
}

TEST(Differences, AFileWithAnotherNameOrOtherFiguresHasNotMoved) {
  EXPECT_THAT(changes({snapshotFile("old/a.m", 10, 100)}, {snapshotFile("new/b.m", 10, 100)}),
              ElementsAre("added new/b.m", "removed old/a.m"));
  EXPECT_THAT(changes({snapshotFile("old/a.m", 10, 100)}, {snapshotFile("new/a.m", 10, 101)}),
              ElementsAre("added new/a.m", "removed old/a.m"));
}

TEST(Differences, OfManyFilesThatMayHaveMovedTheFirstPathsBelongTogether) {
  EXPECT_THAT(changes({snapshotFile("2/a.m", 1, 1), snapshotFile("1/a.m", 1, 1), snapshotFile("3/a.m", 1, 1)},
                      {snapshotFile("5/a.m", 1, 1), snapshotFile("4/a.m", 1, 1)}),
              ElementsAre("removed 3/a.m", "moved 1/a.m > 4/a.m", "moved 2/a.m > 5/a.m"));
}

TEST(Differences, EachReferenceToAFileHasItsPartner) {
  const SnapshotFile file = snapshotFile("a.m", 10, 100);
  EXPECT_THAT(changes({file, file}, {file, file}), IsEmpty());
  EXPECT_THAT(changes({file}, {file, file}), ElementsAre("added a.m"));
  EXPECT_THAT(changes({file, file, file}, {file}), ElementsAre("removed a.m", "removed a.m"));
  const SnapshotFile grown = snapshotFile("a.m", 12, 120);
  EXPECT_THAT(changes({file, file}, {grown, grown}), ElementsAre("grown a.m", "grown a.m"));
}

TEST(Differences, TotalsAreThoseOfTheSnapshots) {
  const Differences differences = differencesBetween(snapshotWith({snapshotFile("a.m", 10, 100)}),
                                                     snapshotWith({snapshotFile("a.m", 12, 130)}));
  EXPECT_EQ(differences.before[kLinesCounter], 10);
  EXPECT_EQ(differences.after[kLinesCounter], 12);
  EXPECT_EQ(differences.after[kSizeCounter], 130);
}

TEST(Differences, TheOrderOfTheFilesDoesNotMatter) {
  std::vector<SnapshotFile> before;
  std::vector<SnapshotFile> after;
  for (int i = 0; i < 60; ++i) {
    before.push_back(
        snapshotFile(std::to_string(i % 7) + "/f" + std::to_string(i % 11) + ".m", i % 5, i % 3));
    after.push_back(snapshotFile(std::to_string(i % 6) + "/f" + std::to_string(i % 13) + ".m", i % 4, i % 3));
  }
  const auto expected = changes(before, after);
  std::mt19937 random(7);  // NOLINT: the same shuffles every time
  for (int round = 0; round < 20; ++round) {
    std::shuffle(before.begin(), before.end(), random);
    std::shuffle(after.begin(), after.end(), random);
    ASSERT_EQ(changes(before, after), expected);
  }
}

TEST(Differences, EveryFileIsAccountedForOnce) {
  std::mt19937 random(11);  // NOLINT
  for (int round = 0; round < 200; ++round) {
    std::vector<SnapshotFile> before(random() % 12);
    std::vector<SnapshotFile> after(random() % 12);
    for (auto* files : {&before, &after}) {
      for (SnapshotFile& file : *files) {
        file = snapshotFile(std::to_string(random() % 4) + "/" + std::to_string(random() % 3) + ".m",
                            static_cast<std::int64_t>(random() % 3), 1);
      }
    }
    const Differences differences = differencesBetween(snapshotWith(before), snapshotWith(after));
    std::size_t earlier = 0;
    std::size_t later = 0;
    std::int64_t grown = 0;
    for (const FileChange& file : differences.files) {
      earlier += file.before ? 1U : 0U;
      later += file.after ? 1U : 0U;
      grown += file.difference(kLinesCounter);
    }
    ASSERT_EQ(earlier, before.size());
    ASSERT_EQ(later, after.size());
    ASSERT_EQ(grown, differences.after[kLinesCounter] - differences.before[kLinesCounter]);
  }
}

}  // namespace
}  // namespace quillmeter
