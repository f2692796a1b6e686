#include "cli/MethodCounts.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

constexpr const char* kSource = "int one(int a) {\n}\nint two(int a) {\n}\n- (void)three {\n}\n";

/// A disk that fails in the middle of a file, or of which a file vanishes after it was looked at.
class FailingDisk final : public FileSystem {
 public:
  int failingRead = -1;  ///< counted from 0
  int failingOpen = -1;
  bool failsStatusOfOpen = false;

 private:
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& file) const override {
    if (failsStatusOfOpen) return DiskError{EIO};
    return real().statusOfOpen(file);
  }
  [[nodiscard]] Result<Descriptor> doOpen(const std::string& path) const override {
    if (opens_++ == failingOpen) return DiskError{ENOENT};
    return real().open(path);
  }
  [[nodiscard]] Result<std::size_t> doRead(int descriptor, std::span<char> buffer) const override {
    if (reads_++ == failingRead) return DiskError{EIO};
    return real().read(descriptor, buffer.first(std::min<std::size_t>(buffer.size(), 8)));
  }

  mutable int opens_ = 0;
  mutable int reads_ = 0;
};

TEST(MethodCounts, HalfAFileIsNotCounted) {
  const TemporaryFolder folder;
  for (const char* name : {"a.c", "a.m"}) {
    const std::string path = folder.file(name, kSource);
    FailingDisk whole;
    EXPECT_EQ(countedFile(path, whole).obstacle, std::nullopt);
    EXPECT_EQ(countedFile(path, whole).counts->methods, path.ends_with('m') ? 3 : 2);
    for (int read = 0; read < 7; ++read) {
      FailingDisk disk;
      disk.failingRead = read;
      const CountedFile counted = countedFile(path, disk);
      EXPECT_EQ(counted.obstacle, "Input/output error") << name << read;
      EXPECT_FALSE(counted.counts) << name << read;
    }
  }
}

TEST(MethodCounts, FileThatVanishesIsNotCountedAsAnEmptyOne) {
  const TemporaryFolder folder;
  for (const char* name : {"a.c", "a.m"}) {
    for (int open = 0; open < 2; ++open) {
      FailingDisk disk;
      disk.failingOpen = open;
      const CountedFile counted = countedFile(folder.file(name, kSource), disk);
      EXPECT_EQ(counted.obstacle, "No such file or directory") << name << open;
      EXPECT_FALSE(counted.counts) << name << open;
    }
  }
}

TEST(MethodCounts, StatusThatCannotBeHadIsNotAnotherKindOfFile) {
  const TemporaryFolder folder;
  FailingDisk disk;
  disk.failsStatusOfOpen = true;
  EXPECT_EQ(countedFile(folder.file("a.c", kSource), disk).obstacle, "Input/output error");
}

TEST(MethodCounts, FileOfAnAbsurdSizeIsRefused) {
  const TemporaryFolder folder;
  const std::string path = folder.file("a.c", kSource);
  std::filesystem::resize_file(path, (std::uintmax_t{1} << 30) + 1);
  EXPECT_EQ(countedFile(path).obstacle, "File too large");
}

}  // namespace
}  // namespace quillmeter
