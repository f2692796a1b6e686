#include "files/ReadingFiles.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>

#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

TEST(ReadWholeFile, GivesTheContent) {
  const TemporaryFolder folder;
  EXPECT_EQ(*readWholeFile(FileSystem::real(), folder.file("a", "text")), "text");
  EXPECT_EQ(*readWholeFile(FileSystem::real(), folder.file("empty", "")), "");
  const std::string large(3'000'000, 'x');
  EXPECT_EQ(*readWholeFile(FileSystem::real(), folder.file("large", large)), large);
}

TEST(ReadWholeFile, SaysWhyItCannot) {
  const TemporaryFolder folder;
  const std::string file = folder.file("a", "text");
  ASSERT_EQ(::symlink("/proc/self/status", (folder / "endless").c_str()), 0);
  const FileSystem& disk = FileSystem::real();
  EXPECT_EQ(readWholeFile(disk, folder / "missing").error().number, ENOENT);
  EXPECT_EQ(readWholeFile(disk, folder.path()).error().number, EISDIR);
  EXPECT_EQ(readWholeFile(disk, "/dev/null").error().number, EINVAL);
  EXPECT_EQ(readWholeFile(disk, file, 3).error().number, EFBIG);
  EXPECT_EQ(readWholeFile(disk, folder / "endless").error().number, EPERM);
}

TEST(ReadWholeFile, ReadsNothingOfAFileThatIsTooLarge) {
  const TemporaryFolder folder;
  const std::string path = folder.file("huge", "");
  ASSERT_EQ(::truncate(path.c_str(), (off_t{1} << 30) + 1), 0);
  EXPECT_EQ(readWholeFile(FileSystem::real(), path, std::uint64_t{1} << 30).error().number, EFBIG);
}

/// A disk whose files grow for as long as they are read; it knows their sizes or says 0.
class GrowingFileSystem final : public FileSystem {
 public:
  explicit GrowingFileSystem(std::uint64_t size) : size_(size) {}
  mutable std::uint64_t given = 0;

 private:
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& /*file*/) const override {
    return FileStatus{FileStatus::Type::regular, size_};
  }
  [[nodiscard]] Result<std::size_t> doRead(int /*descriptor*/, std::span<char> buffer) const override {
    given += buffer.size();
    return buffer.size();
  }
  std::uint64_t size_;
};

TEST(ReadWholeFile, ReadsAGrowingFileUpToTheSizeThatItHadWhenItWasOpened) {
  const TemporaryFolder folder;
  const GrowingFileSystem disk(5'000'000);
  EXPECT_EQ(readWholeFile(disk, folder.file("a"))->size(), 5'000'000U);
  EXPECT_EQ(disk.given, 5'000'000U);
}

TEST(ReadWholeFile, GivesUpAGrowingFileOfUnknownSize) {
  const TemporaryFolder folder;
  const GrowingFileSystem disk(0);
  EXPECT_EQ(readWholeFile(disk, folder.file("a"), 5'000'000).error().number, EFBIG);
  EXPECT_LT(disk.given, 10'000'000U);
}

/// The disk, which says of every file that it is empty.
class SizelessFileSystem final : public FileSystem {
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& /*file*/) const override {
    return FileStatus{FileStatus::Type::regular, 0};
  }
};

TEST(ReadWholeFile, ReadsAFileThatIsAsLargeAsIsAllowed) {
  const TemporaryFolder folder;
  const std::string file = folder.file("a", "text");
  const SizelessFileSystem sizeless;
  for (const FileSystem* const disk : {&FileSystem::real(), static_cast<const FileSystem*>(&sizeless)}) {
    const auto content = readWholeFile(*disk, file, 4);
    ASSERT_TRUE(content);
    EXPECT_EQ(*content, "text");
  }
  EXPECT_EQ(readWholeFile(sizeless, file, 3).error().number, EFBIG);
}

TEST(ListFolder, GivesTheNamesInByteOrder) {
  const TemporaryFolder folder;
  for (const char* name : {"b", "a", "B", ".c"})
    folder.file(name);
  EXPECT_EQ(*listFolder(FileSystem::real(), folder.path()), (std::vector<std::string>{".c", "B", "a", "b"}));
  EXPECT_EQ(listFolder(FileSystem::real(), folder / "a").error().number, ENOTDIR);
}

}  // namespace
}  // namespace quillmeter
