#include "support/AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::readFile;
using testing::TemporaryFolder;

std::size_t entriesIn(const std::string& folder) {
  return static_cast<std::size_t>(
      std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

mode_t permissionsOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 0777U;
}

TEST(AtomicFile, AppearsWholeWithThePermissionsOfANewFile) {
  const TemporaryFolder folder;
  const mode_t mask = ::umask(027);
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "content"), std::nullopt);
  ::umask(mask);
  EXPECT_EQ(readFile(folder / "a.csv"), "content");
  EXPECT_EQ(permissionsOf(folder / "a.csv"), 0640U);
  EXPECT_EQ(entriesIn(folder.path()), 1U);
}

TEST(AtomicFile, KeepsThePermissionsOfAnExistingFile) {
  const TemporaryFolder folder;
  folder.file("a.csv", "old");
  ASSERT_EQ(::chmod((folder / "a.csv").c_str(), 0600), 0);
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "new"), std::nullopt);
  EXPECT_EQ(permissionsOf(folder / "a.csv"), 0600U);
}

TEST(AtomicFile, LeavesTheOldFileWholeUntilItIsCommitted) {
  const TemporaryFolder folder;
  folder.file("a.csv", "old");
  {
    AtomicFile file(folder / "a.csv");
    file.write(std::string(1 << 20, 'x'));
    EXPECT_EQ(readFile(folder / "a.csv"), "old");
  }
  EXPECT_EQ(readFile(folder / "a.csv"), "old");
  EXPECT_EQ(entriesIn(folder.path()), 1U);
}

TEST(AtomicFile, FollowsALinkAndKeepsIt) {
  const TemporaryFolder folder;
  folder.file("real/target.csv", "old");
  ASSERT_EQ(::symlink("real/target.csv", (folder / "link.csv").c_str()), 0);
  EXPECT_EQ(writeFileAtomically(folder / "link.csv", "new"), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.csv"));
  EXPECT_EQ(readFile(folder / "real/target.csv"), "new");
}

TEST(AtomicFile, MakesTheTargetOfADanglingLink) {
  const TemporaryFolder folder;
  ASSERT_EQ(::symlink("target.csv", (folder / "link.csv").c_str()), 0);
  EXPECT_EQ(writeFileAtomically(folder / "link.csv", "new"), std::nullopt);
  EXPECT_EQ(readFile(folder / "target.csv"), "new");
}

TEST(AtomicFile, SaysWhyADestinationCannotBeWritten) {
  const TemporaryFolder folder;
  EXPECT_EQ(writeFileAtomically(folder / "missing/a.csv", "x"), "No such file or directory");
  EXPECT_EQ(writeFileAtomically("", "x"), "No such file or directory");
  EXPECT_EQ(writeFileAtomically(folder.path(), "x"), "Is a directory");
  ASSERT_EQ(::symlink("loop", (folder / "loop").c_str()), 0);
  EXPECT_EQ(writeFileAtomically(folder / "loop", "x"), "Too many levels of symbolic links");
  EXPECT_EQ(writeFileAtomically("/dev/null", "x"), "Not a regular file");
}

TEST(AtomicFile, WritesToANameThatIsNotUtf8) {
  const TemporaryFolder folder;
  EXPECT_EQ(writeFileAtomically(folder / "\xff\xfe.csv", "x"), std::nullopt);
  EXPECT_EQ(readFile(folder / "\xff\xfe.csv"), "x");
}

}  // namespace
}  // namespace quillmeter
