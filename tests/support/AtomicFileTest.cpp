#include "support/AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "helpers/TemporaryFolder.h"
#include "helpers/Unprivileged.h"

namespace quillmeter {
namespace {

using testing::readFile;
using testing::TemporaryFolder;

std::size_t entriesIn(const std::string& folder) {
  return static_cast<std::size_t>(
      std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

mode_t modeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777U;
}

TEST(AtomicFile, AppearsWholeWithThePermissionsOfANewFile) {
  const TemporaryFolder folder;
  const mode_t mask = ::umask(027);
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "content"), std::nullopt);
  ::umask(mask);
  EXPECT_EQ(readFile(folder / "a.csv"), "content");
  EXPECT_EQ(modeOf(folder / "a.csv"), 0640U);
  EXPECT_EQ(entriesIn(folder.path()), 1U);
}

TEST(AtomicFile, KeepsThePermissionsOfAnExistingFile) {
  const TemporaryFolder folder;
  folder.file("a.csv", "old");
  ASSERT_EQ(::chmod((folder / "a.csv").c_str(), 0600), 0);
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "new"), std::nullopt);
  EXPECT_EQ(modeOf(folder / "a.csv"), 0600U);
}

TEST(AtomicFile, DropsTheBitsThatLetAFileRunAsItsOwner) {
  const TemporaryFolder folder;
  folder.file("a.csv", "old");
  ASSERT_EQ(::chmod((folder / "a.csv").c_str(), 06755), 0);
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "new"), std::nullopt);
  EXPECT_EQ(modeOf(folder / "a.csv"), 0755U);
}

TEST(AtomicFile, KeepsOwnerAndGroupOfAnExistingFile) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
  const TemporaryFolder folder;
  folder.file("a.csv", "old");
  ASSERT_EQ(::chown((folder / "a.csv").c_str(), 1234, 5678), 0);
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "new"), std::nullopt);
  struct stat status {};
  ASSERT_EQ(::stat((folder / "a.csv").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 1234U);
  EXPECT_EQ(status.st_gid, 5678U);
}

TEST(AtomicFile, ReplacesAFileWhoseOwnerItCannotKeep) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
  const TemporaryFolder folder;
  folder.file("a.csv", "old");
  ASSERT_EQ(::chown((folder / "a.csv").c_str(), 1234, 5678), 0);
  ASSERT_EQ(::chmod((folder / "a.csv").c_str(), 0666), 0);
  ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
  const testing::Unprivileged unprivileged;
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "new"), std::nullopt);
  EXPECT_EQ(readFile(folder / "a.csv"), "new");
  EXPECT_EQ(modeOf(folder / "a.csv"), 0666U);
}

TEST(AtomicFile, RefusesAFileThatIsReadOnly) {
  const TemporaryFolder folder;
  folder.file("a.csv", "old");
  ASSERT_EQ(::chmod((folder / "a.csv").c_str(), 0444), 0);
  ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
  const testing::Unprivileged unprivileged;
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "new"), "Permission denied");
  EXPECT_EQ(readFile(folder / "a.csv"), "old");
}

TEST(AtomicFile, FollowsAChainOfLinks) {
  const TemporaryFolder folder;
  folder.file("real/target.csv", "old");
  folder.folder("second");
  ASSERT_EQ(::symlink("second/link", (folder / "first").c_str()), 0);
  ASSERT_EQ(::symlink("../third", (folder / "second/link").c_str()), 0);
  ASSERT_EQ(::symlink((folder / "real/target.csv").c_str(), (folder / "third").c_str()), 0);
  EXPECT_EQ(writeFileAtomically(folder / "first", "new"), std::nullopt);
  EXPECT_EQ(readFile(folder / "real/target.csv"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "first"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "second/link"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "third"));
}

/// A file system on which every file has a name.
class NamingSystem : public WritingSystem {
 public:
  [[nodiscard]] int doOpenUnnamed(const std::string& /*folder*/, mode_t /*mode*/) const override {
    errno = EOPNOTSUPP;
    return -1;
  }
};

TEST(AtomicFile, RemovesWhatKilledProcessesLeftAndNothingElse) {
  const TemporaryFolder folder;
  folder.file(".quillmeter-17.part", "left");
  folder.file(".quillmeter-17.part.txt", "kept");
  folder.file(".quillmeter-.part", "kept");
  folder.file(".quillmeter-mine.part", "kept");
  folder.folder(".quillmeter-18.part");
  const NamingSystem naming;
  AtomicFile other(folder / "other.csv", naming);
  EXPECT_EQ(entriesIn(folder.path()), 5U) << "four that are kept and the one in use";
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "new"), std::nullopt);
  EXPECT_EQ(entriesIn(folder.path()), 6U);
  other.write("other");
  EXPECT_EQ(other.commit(), std::nullopt);
  EXPECT_EQ(readFile(folder / "other.csv"), "other");
  EXPECT_FALSE(std::filesystem::exists(folder / ".quillmeter-17.part"));
}

TEST(AtomicFile, IsTheSameWhereEveryFileHasAName) {
  const TemporaryFolder folder;
  const NamingSystem naming;
  const mode_t mask = ::umask(027);
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "old", naming), std::nullopt);
  ::umask(mask);
  EXPECT_EQ(modeOf(folder / "a.csv"), 0640U);
  EXPECT_EQ(writeFileAtomically(folder / "a.csv", "new", naming), std::nullopt);
  EXPECT_EQ(readFile(folder / "a.csv"), "new");
  EXPECT_EQ(modeOf(folder / "a.csv"), 0640U);
  EXPECT_EQ(entriesIn(folder.path()), 1U);
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
