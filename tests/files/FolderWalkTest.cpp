#include "files/FolderWalk.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "helpers/DeepTree.h"
#include "helpers/TemporaryFolder.h"
#include "helpers/Unprivileged.h"

namespace quillmeter {
namespace {

using testing::DeepTree;
using testing::TemporaryFolder;

std::vector<std::string> relativePaths(const TemporaryFolder& folder) {
  const FolderWalk walk(folder.path());
  std::vector<std::string> paths;
  for (FolderWalk::Index i = 0; i < walk.size(); ++i)
    paths.push_back(walk.path(i).substr(folder.path().size() + 1));
  return paths;
}

std::size_t openDescriptors() {
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    ++count;
  return count;
}

TEST(FolderWalk, ListsEntriesInByteOrderEachFolderFollowedByItsContents) {
  const TemporaryFolder folder;
  for (const char* file : {"b.m", "a/z.m", "a/B/c.m", "a.m", "Z.m", ".hidden/x", "ä.m"})
    folder.file(file);
  EXPECT_EQ(relativePaths(folder), (std::vector<std::string>{".hidden", ".hidden/x", "Z.m", "a", "a/B",
                                                             "a/B/c.m", "a/z.m", "a.m", "b.m", "ä.m"}));
}

/// The walk's order in its plain form.
void listPlainly(const std::filesystem::path& folder, std::vector<std::string>& paths) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) {
    paths.push_back(folder / name);
    if (std::filesystem::is_directory(folder / name)) listPlainly(folder / name, paths);
  }
}

TEST(FolderWalk, GivesTheSameOrderHoweverManyFoldersAreWalkedAtOnce) {
  const TemporaryFolder folder;
  for (int i = 0; i < 400; ++i) {
    const std::string top = "top" + std::to_string(i * 7 % 23);
    folder.file(top + "/inner" + std::to_string(i % 5) + "/file" + std::to_string(i) + ".m");
    folder.file("file" + std::to_string(i % 11) + ".m");
  }
  std::vector<std::string> expected;
  listPlainly(folder.path(), expected);
  for (int repeat = 0; repeat < 20; ++repeat) {
    const FolderWalk walk(folder.path());
    std::vector<std::string> paths;
    for (FolderWalk::Index i = 0; i < walk.size(); ++i)
      paths.push_back(walk.path(i));
    ASSERT_EQ(paths, expected);
  }
}

TEST(FolderWalk, LeavesTrailingSlashesOutOfThePaths) {
  const TemporaryFolder folder;
  folder.file("x.m");
  EXPECT_EQ(FolderWalk(folder.path() + "//").path(0), folder / "x.m");
}

TEST(FolderWalk, ListsALinkToAFolderWithoutEnteringIt) {
  const TemporaryFolder folder;
  folder.file("real/x.m");
  ASSERT_EQ(::symlink("real", (folder / "link").c_str()), 0);
  ASSERT_EQ(::symlink(".", (folder / "loop").c_str()), 0);
  EXPECT_EQ(relativePaths(folder), (std::vector<std::string>{"link", "loop", "real", "real/x.m"}));
}

TEST(FolderWalk, KnowsWhatKindOfEntryEachIs) {
  const TemporaryFolder folder;
  folder.folder("a");
  folder.file("b");
  ASSERT_EQ(::symlink("b", (folder / "c").c_str()), 0);
  ASSERT_EQ(::mkfifo((folder / "d").c_str(), 0600), 0);
  const FolderWalk walk(folder.path());
  EXPECT_EQ(walk.type(0), FolderWalk::Type::folder);
  EXPECT_EQ(walk.type(1), FolderWalk::Type::regular);
  EXPECT_EQ(walk.type(2), FolderWalk::Type::link);
  EXPECT_EQ(walk.type(3), FolderWalk::Type::other);
}

TEST(FolderWalk, HasNoEntriesForAMissingFolderOrAFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(FolderWalk(folder / "missing").size(), 0U);
  EXPECT_EQ(FolderWalk(folder.file("x.m")).size(), 0U);
}

TEST(FolderWalk, PassesOverAnUnreadableFolderInTheMiddle) {
  const TemporaryFolder folder;
  for (const char* file : {"a/x.m", "b/hidden.m", "c/y.m"})
    folder.file(file);
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod((folder / "b").c_str(), 0), 0);
  std::vector<std::string> paths;
  {
    const testing::Unprivileged unprivileged;
    paths = relativePaths(folder);
  }
  ASSERT_EQ(::chmod((folder / "b").c_str(), 0755), 0);
  EXPECT_EQ(paths, (std::vector<std::string>{"a", "a/x.m", "b", "c", "c/y.m"}));
}

TEST(FolderWalk, KeepsNamesThatAreNotUtf8) {
  const TemporaryFolder folder;
  folder.file("\xff\xfe.m");
  EXPECT_EQ(relativePaths(folder), (std::vector<std::string>{"\xff\xfe.m"}));
}

TEST(FolderWalk, EntersTheFoldersBesideADeepOneOnItsWayBack) {
  const TemporaryFolder folder;
  constexpr int kLevels = 200;
  std::string path = "top";
  for (int level = 0; level < kLevels; ++level) {
    folder.file(path + "/e/x.m");
    path += "/d";
  }
  std::vector<std::string> expected;
  listPlainly(folder.path(), expected);
  for (std::string& entry : expected)
    entry.erase(0, folder.path().size() + 1);
  EXPECT_EQ(expected.size(), 3U * kLevels);
  EXPECT_EQ(relativePaths(folder), expected);
}

TEST(FolderWalk, WalksFoldersNestedDeeperThanAPathMayBeLong) {
  const TemporaryFolder folder;
  constexpr int kLevels = 5000;
  const DeepTree tree(folder.path(), kLevels);
  const std::size_t open = openDescriptors();
  const FolderWalk walk(folder.path());
  EXPECT_EQ(openDescriptors(), open);
  ASSERT_EQ(walk.size(), 2U * kLevels);
  EXPECT_EQ(walk.path(kLevels - 1).size(), folder.path().size() + 2 * kLevels);
  EXPECT_EQ(walk.name(kLevels), "z.m");
}

}  // namespace
}  // namespace quillmeter
