#include "files/FileSystem.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "helpers/PlayedFileSystem.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using Kind = DiskError::Kind;
using testing::PlayedFileSystem;
using testing::TemporaryFolder;

TEST(FileSystem, TellsItsErrorsApart) {
  const TemporaryFolder folder;
  const std::string file = folder.file("a.m");
  ASSERT_EQ(::symlink("nowhere", (folder / "link").c_str()), 0);
  const FileSystem& disk = FileSystem::real();
  EXPECT_EQ(disk.open(folder / "missing").error().kind(), Kind::missing);
  EXPECT_EQ(disk.status(folder / "link").error().kind(), Kind::missing);
  EXPECT_EQ(disk.status(file + "/inside").error().kind(), Kind::missing);
  EXPECT_EQ(disk.openListing(file, FileSystem::Links::follow).error().kind(), Kind::missing);
  EXPECT_EQ(disk.status(folder / std::string(300, 'x')).error().kind(), Kind::missing);
  EXPECT_EQ((DiskError{EACCES}).kind(), Kind::noPermission);
  EXPECT_EQ((DiskError{EMFILE}).kind(), Kind::fewDescriptors);
  EXPECT_EQ((DiskError{ENFILE}).kind(), Kind::fewDescriptors);
  EXPECT_EQ((DiskError{EIO}).kind(), Kind::other);
  EXPECT_EQ(disk.status(file).error().kind(), Kind::none);
}

TEST(FileSystem, OpensNoLinkToAFolderWhereLinksAreRefused) {
  const TemporaryFolder folder;
  folder.file("real/a.m");
  ASSERT_EQ(::symlink("real", (folder / "link").c_str()), 0);
  const FileSystem& disk = FileSystem::real();
  const auto parent = disk.openListing(folder.path(), FileSystem::Links::follow);
  ASSERT_TRUE(parent);
  EXPECT_TRUE(disk.openListing(folder / "link", FileSystem::Links::follow));
  EXPECT_FALSE(disk.openListing(folder / "link", FileSystem::Links::refuse));
  EXPECT_FALSE(disk.openListingIn(*parent, "link"));
  EXPECT_TRUE(disk.openListingIn(*parent, "real"));
}

TEST(FileSystem, HasNothingAtAPathThatHoldsAZeroByteNotWhatLiesInFrontOfIt) {
  const TemporaryFolder folder;
  const std::string file = folder.file("a.m") + std::string("\0.m", 3);
  const std::string inner = folder.path() + std::string("\0b", 2);
  const FileSystem& disk = FileSystem::real();
  const auto here = disk.openFolder(folder.path());
  ASSERT_TRUE(here);
  EXPECT_EQ(disk.status(file).error().kind(), Kind::missing);
  EXPECT_EQ(disk.statusInFolder(*here, std::string("a.m\0", 4)).error().kind(), Kind::missing);
  EXPECT_EQ(disk.open(file).error().kind(), Kind::missing);
  EXPECT_EQ(disk.openFolder(inner).error().kind(), Kind::missing);
  EXPECT_EQ(disk.openListing(inner, FileSystem::Links::follow).error().kind(), Kind::missing);
  EXPECT_EQ(disk.realPath(inner).error().kind(), Kind::missing);
}

TEST(FileSystem, KnowsTheFilesThatTheKernelMakesUp) {
  const TemporaryFolder folder;
  const FileSystem& disk = FileSystem::real();
  EXPECT_EQ(*disk.isMadeByKernel(*disk.open("/proc/self/status")), true);
  EXPECT_EQ(*disk.isMadeByKernel(*disk.open(folder.file("a.m"))), false);
}

TEST(FileSystem, MakesEveryInterruptedCallAgain) {
  const TemporaryFolder folder;
  const std::string path = folder.file("in/a.c", "text");
  int calls = 0;
  const PlayedFileSystem disk([&calls](std::string_view /*call*/, const std::string& /*item*/) {
    return ++calls % 3 == 0 ? DiskError{} : DiskError{EINTR};
  });
  const auto file = disk.open(path);
  ASSERT_TRUE(file);
  const auto toAsk = disk.openFolder(folder.path());
  ASSERT_TRUE(toAsk);
  const auto listed = disk.openListing(folder.path(), FileSystem::Links::follow);
  ASSERT_TRUE(listed);
  FolderListing listing;
  std::array<char, 8> buffer{};
  EXPECT_EQ(disk.status(path)->size, 4U);
  EXPECT_EQ(disk.statusInFolder(*toAsk, "in")->type, FileStatus::Type::folder);
  EXPECT_EQ(disk.statusOfOpen(*file)->size, 4U);
  EXPECT_TRUE(disk.openListingIn(*listed, "in"));
  EXPECT_TRUE(*disk.listSome(*listed, listing));
  EXPECT_EQ(listing.entries().size(), 1U);
  EXPECT_EQ(*disk.entryType(*listed, "in"), EntryType::folder);
  EXPECT_EQ(*disk.read(file->value(), buffer), 4U);
  EXPECT_EQ(*disk.isMadeByKernel(*file), false);
}

}  // namespace
}  // namespace quillmeter
