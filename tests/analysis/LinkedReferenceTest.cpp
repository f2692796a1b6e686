#include "analysis/LinkedReference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "analysis/LinearRule.h"
#include "analysis/ParseProject.h"
#include "helpers/ProjectFixture.h"
#include "support/Paths.h"

namespace quillmeter {
namespace {

using testing::linkedLinearly;
using testing::TemporaryFolder;

std::string climbing(int times) {
  std::string result;
  for (int i = 0; i < times; ++i)
    result += "../";
  return result;
}

/// A disk of paths without links that counts how often it is asked.
class CountingDisk {
 public:
  void add(const std::string& path) { paths_.insert(resolved(path)); }

  [[nodiscard]] bool exists(const std::string& path) const {
    ++looks_;
    return paths_.contains(resolved(path));
  }
  [[nodiscard]] int looks() const { return looks_; }

  [[nodiscard]] LinkedReferences referencesFrom(const std::string& folder) const {
    return {folder, folder, [this](const std::string& path) { return exists(path); }};
  }

 private:
  static std::string resolved(const std::string& path) {
    std::vector<std::string_view> folders;
    for (const std::string_view piece : pathComponents(path)) {
      if (piece == ".." && !folders.empty()) folders.pop_back();
      if (!piece.empty() && piece != "..") folders.push_back(piece);
    }
    std::string result;
    for (const std::string_view folder : folders)
      result.append("/").append(folder);
    return result;
  }

  std::set<std::string> paths_;
  mutable int looks_ = 0;
};

TEST(LinkedReference, LeadsToTheFirstThatExistsOnTheWayUp) {
  CountingDisk disk;
  disk.add("/w/App/Shared/Util.m");
  EXPECT_EQ(disk.referencesFrom("/w/App").follow("../Shared/Util.m")->path, "/w/App/Shared/Util.m");
  disk.add("/w/Shared/Util.m");
  EXPECT_EQ(disk.referencesFrom("/w/App").follow("../Shared/Util.m")->path, "/w/Shared/Util.m");
}

TEST(LinkedReference, IsNotFoldedWhenItClimbsPastTheRoot) {
  CountingDisk disk;
  disk.add("/x.m");
  LinkedReferences references = disk.referencesFrom("/w/App");
  const auto toRoot = references.follow("../../x.m");
  EXPECT_EQ(toRoot->path, "/x.m");
  EXPECT_FALSE(toRoot->foldsPastRoot);
  const auto oneMore = references.follow("../../../x.m");
  EXPECT_EQ(oneMore->path, "/w/App/../../../x.m");
  EXPECT_TRUE(oneMore->foldsPastRoot);
  EXPECT_FALSE(oneMore->isMissing);
}

TEST(LinkedReference, ClimbsFiftyTimesAtMost) {
  CountingDisk disk;
  disk.add("/w/App/x.m");
  LinkedReferences references = disk.referencesFrom("/w/App");
  EXPECT_EQ(references.follow(climbing(49) + "x.m")->path, "/w/App/x.m");
  EXPECT_FALSE(references.follow(climbing(49) + "x.m")->isMissing);
  const auto tooMany = references.follow(climbing(50) + "x.m");
  EXPECT_EQ(tooMany->path, "/w/x.m");
  EXPECT_TRUE(tooMany->isMissing);
}

TEST(LinkedReference, LooksForTheSameMissingPathOnce) {
  const CountingDisk disk;
  LinkedReferences references = disk.referencesFrom("/a/b/c");
  for (int i = 0; i < 1000; ++i)
    EXPECT_TRUE(references.follow(climbing(50) + "missing.m")->isMissing);
  EXPECT_LE(disk.looks(), 5);
}

TEST(LinkedReference, LooksForEachMissingFileOnceInEachFolderAbove) {
  const CountingDisk disk;
  LinkedReferences references = disk.referencesFrom("/a/b/c");
  constexpr int kFiles = 5000;
  for (int i = 0; i < kFiles; ++i)
    EXPECT_TRUE(references.follow(climbing(48) + std::to_string(i) + ".m")->isMissing);
  EXPECT_LE(disk.looks(), 5 * kFiles);
}

TEST(LinkedReference, OfALengthThatNoProgramCanBeGivenLeadsNowhere) {
  const CountingDisk disk;
  LinkedReferences references = disk.referencesFrom("/w/App");
  EXPECT_FALSE(references.follow(climbing(50'000'000 / 3) + "x.m"));
  const std::string longest = "../" + std::string((128 << 10) - 5, 'x') + ".m";
  EXPECT_FALSE(references.follow(longest + "m"));
  EXPECT_EQ(disk.looks(), 0);
  EXPECT_TRUE(references.follow(longest));
}

TEST(LinkedReference, FollowsTheLinksOnTheWayToTheProject) {
  const TemporaryFolder folder;
  folder.file("real/deep/App/a.m");
  folder.file("real/deep/x.m");
  folder.file("y.m");
  std::filesystem::create_directory_symlink("real/deep/App", folder / "linked");
  const std::string bundle = testing::writeProject(folder, {"a.m"}, "linked/App");
  ParseProject project;
  project.parseFileAtPathAndDelegate(bundle, nullptr);
  const std::vector<std::string> paths = project.getAllFilesFromInitialPath(bundle);
  for (const std::string reference : {"../x.m", "../y.m", "../../y.m", "../../../y.m", "../../../../y.m"}) {
    const auto file = project.getFileInfoAtInitialPath(reference, bundle);
    EXPECT_EQ(file ? file->filePath() : std::nullopt,
              testing::resolvedLinearly(paths, folder / "linked", reference))
        << reference;
  }
  EXPECT_EQ(project.getFileInfoAtInitialPath("../../../y.m", bundle), nullptr);
}

/// Folders, files and references from few names, so that much is found at every height.
class LinkGenerator {
 public:
  explicit LinkGenerator(unsigned seed) : random_(seed) {}

  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  std::string path(int pieces) {
    std::string result;
    for (int i = 0; i < pieces; ++i)
      result += std::string("/") + "abc"[below(3)];
    return result;
  }

  std::string reference() {
    static constexpr std::array kCounts = {1, 2, 3, 4, 5, 6, 8, 49, 50, 51, 53, 60};
    std::string result = climbing(kCounts[static_cast<std::size_t>(below(kCounts.size()))]);
    switch (below(6)) {
      case 0:
        return result + "a/../" + path(1 + below(2)).substr(1);
      case 1:
        return result + path(1 + below(3));
      case 2:
        return result + "a/" + climbing(1 + below(4)) + "b";
      default:
        return result + path(1 + below(3)).substr(1);
    }
  }

 private:
  std::mt19937 random_;
};

TEST(LinkedReference, LeadsWhereThePlainRuleDoes) {
  int found = 0;
  int pastRoot = 0;
  for (unsigned seed = 0; seed < 1000; ++seed) {
    LinkGenerator generator(seed);
    CountingDisk disk;
    for (int i = generator.below(6); i > 0; --i)
      disk.add(generator.path(1 + generator.below(5)));
    const std::string folder = generator.path(1 + generator.below(4));
    LinkedReferences references = disk.referencesFrom(folder);
    for (int i = 0; i < 12; ++i) {
      const std::string reference = generator.reference();
      const auto exists = [&](const std::string& path) { return disk.exists(path); };
      const auto expected = linkedLinearly(folder, reference, exists);
      const auto linked = references.follow(reference);
      ASSERT_TRUE(linked);
      ASSERT_EQ(linked->path, expected.path) << "seed " << seed << ", reference " << reference;
      ASSERT_EQ(linked->foldsPastRoot, expected.foldsPastRoot) << "seed " << seed << ", " << reference;
      ASSERT_FALSE(linked->isMissing && disk.exists(linked->path)) << "seed " << seed << ", " << reference;
      found += linked->isMissing ? 0 : 1;
      pastRoot += linked->foldsPastRoot ? 1 : 0;
    }
  }
  EXPECT_GT(found, 1000);
  EXPECT_GT(pastRoot, 1000);
}

}  // namespace
}  // namespace quillmeter
