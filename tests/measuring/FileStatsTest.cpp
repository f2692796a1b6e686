#include "measuring/FileStats.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "analysis/ParseProject.h"
#include "files/FileSystem.h"
#include "helpers/PlayedFileSystem.h"
#include "helpers/ProjectFixture.h"
#include "helpers/Unprivileged.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

void expectAllCountersZero(const std::shared_ptr<FileObject>& file) {
  ASSERT_NE(file, nullptr);
  for (const auto& counter :
       {file->noLinesTotal(), file->noLinesWithoutSpaces(), file->noLinesComments(), file->noWords(),
        file->noCharactersTotal(), file->noCharactersWithoutSpaces()}) {
    ASSERT_TRUE(counter.has_value());
    EXPECT_EQ(counter->longValue(), 0);
  }
}

std::size_t openDescriptors() {
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    ++count;
  return count;
}

TEST(FileStats, MeasureASourceFile) {
  const TemporaryFolder folder;
  const std::string path = folder.file("a.m", "// say it\nint  a;\n\n");
  const auto file = ParseProject().getFileStats(path);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->filePath(), path);
  EXPECT_EQ(file->fileName(), "a.m");
  EXPECT_EQ(integerValue(file->fileSize()), 19);
  EXPECT_EQ(integerValue(file->noLinesTotal()), 4);
  EXPECT_EQ(integerValue(file->noLinesWithoutSpaces()), 2);
  EXPECT_EQ(integerValue(file->noLinesComments()), 1);
  EXPECT_EQ(integerValue(file->noWords()), 6);
  EXPECT_EQ(integerValue(file->noCharactersWithoutSpaces()), 12);
  EXPECT_EQ(integerValue(file->noCharactersTotal()), 16);
}

TEST(FileStats, MeasureAnInterfaceFileByTheSameRules) {
  const TemporaryFolder folder;
  EXPECT_EQ(integerValue(ParseProject().getFileStats(folder.file("V.XIB", "<a>\n</a>"))->noLinesTotal()), 2);
}

TEST(FileStats, CountOneLineInAZeroByteSource) {
  const TemporaryFolder folder;
  const auto file = ParseProject().getFileStats(folder.file("a.c"));
  EXPECT_EQ(integerValue(file->noLinesTotal()), 1);
  EXPECT_EQ(integerValue(file->noWords()), 0);
}

TEST(FileStats, CarryOnlyTheSizeOfAnImage) {
  const TemporaryFolder folder;
  for (const char* name : {"a.png", "notes.txt", "Makefile"}) {
    const auto file = ParseProject().getFileStats(folder.file(name, "a\nb\n"));
    EXPECT_EQ(integerValue(file->fileSize()), 4) << name;
    EXPECT_EQ(file->noLinesTotal(), Number(0)) << name;
    EXPECT_EQ(file->noLinesWithoutSpaces(), Number(0)) << name;
    EXPECT_EQ(file->noLinesComments(), std::nullopt) << name;
    EXPECT_EQ(file->noWords(), std::nullopt) << name;
    EXPECT_EQ(file->noCharactersTotal(), std::nullopt) << name;
    EXPECT_EQ(file->noCharactersWithoutSpaces(), std::nullopt) << name;
  }
}

TEST(FileStats, AreAbsentWhereNothingExists) {
  const TemporaryFolder folder;
  ASSERT_EQ(::symlink("nowhere", (folder / "dangling.m").c_str()), 0);
  ASSERT_EQ(::symlink("loop.m", (folder / "loop.m").c_str()), 0);
  for (const char* name : {"missing.m", "dangling.m", "loop.m", "missing/a.m"}) {
    EXPECT_EQ(ParseProject().getFileStats(folder / name), nullptr) << name;
  }
}

TEST(FileStats, AreZeroForTextInAnotherEncoding) {
  const TemporaryFolder folder;
  const auto utf16 = ParseProject().getFileStats(folder.file("a.m", std::string("\xff\xfe"
                                                                                "a\0\n\0",
                                                                                6)));
  expectAllCountersZero(utf16);
  EXPECT_EQ(integerValue(utf16->fileSize()), 6);
  expectAllCountersZero(ParseProject().getFileStats(folder.file("b.m", "caf\xe9\n")));
}

TEST(FileStats, DoNotCountAByteOrderMark) {
  const TemporaryFolder folder;
  const auto file = ParseProject().getFileStats(folder.file("a.m", "\xef\xbb\xbf// x"));
  EXPECT_EQ(integerValue(file->noLinesComments()), 1);
  EXPECT_EQ(integerValue(file->noCharactersTotal()), 4);
}

TEST(FileStats, OfAFolderFifoSocketOrDeviceAreZeroWithoutReadingIt) {
  const TemporaryFolder folder;
  folder.folder("folder.m");
  ASSERT_EQ(::mkfifo((folder / "fifo.m").c_str(), 0600), 0);
  ASSERT_EQ(::symlink("/dev/zero", (folder / "device.m").c_str()), 0);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, (folder / "socket.m").c_str(), sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  for (const char* name : {"folder.m", "fifo.m", "device.m", "socket.m"}) {
    SCOPED_TRACE(name);
    expectAllCountersZero(ParseProject().getFileStats(folder / name));
  }
  ::close(socket);
}

TEST(FileStats, AreZeroForAnUnreadableFile) {
  const TemporaryFolder folder;
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  const std::string path = folder.file("a.m", "int a;\n");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  const testing::Unprivileged unprivileged;
  const auto file = ParseProject().getFileStats(path);
  expectAllCountersZero(file);
  EXPECT_EQ(integerValue(file->fileSize()), 7);
}

TEST(FileStats, AreAbsentInAFolderThatMayNotBeEntered) {
  const TemporaryFolder folder;
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  const std::string path = folder.file("closed/a.m", "int a;\n");
  ASSERT_EQ(::chmod((folder / "closed").c_str(), 0), 0);
  {
    const testing::Unprivileged unprivileged;
    EXPECT_EQ(ParseProject().getFileStats(path), nullptr);
  }
  ASSERT_EQ(::chmod((folder / "closed").c_str(), 0755), 0);
}

TEST(FileStats, KeepAPathThatIsNotUtf8) {
  const TemporaryFolder folder;
  const auto file = ParseProject().getFileStats(folder.file("\xff\xfe.m", "a\nb"));
  EXPECT_EQ(file->fileName(), "\xff\xfe.m");
  EXPECT_EQ(integerValue(file->noLinesTotal()), 2);
}

/// A disk that gives little at a time, is interrupted, or fails.
class FlakyFileSystem final : public FileSystem {
 public:
  bool vanishes = false;
  int failsAtCall = 0;
  int endsAtCall = 0;

 private:
  [[nodiscard]] Result<Descriptor> doOpen(const std::string& path) const override {
    if (vanishes) return DiskError{ENOENT};
    return FileSystem::real().open(path);
  }
  [[nodiscard]] Result<std::size_t> doRead(int descriptor, std::span<char> buffer) const override {
    ++calls_;
    if (calls_ % 2 == 0) return DiskError{EINTR};
    if (failsAtCall != 0 && calls_ >= failsAtCall) return DiskError{EIO};
    if (endsAtCall != 0 && calls_ >= endsAtCall) return std::size_t{0};
    return FileSystem::real().read(descriptor, buffer.first(std::min<std::size_t>(3, buffer.size())));
  }

  mutable int calls_ = 0;
};

TEST(FileStatsOnAFlakyDisk, AreExactThroughShortAndInterruptedReads) {
  const TemporaryFolder folder;
  const FlakyFileSystem disk;
  const auto file = fileStats(disk, classicKinds(), folder.file("a.m", "größe\r\nint b; /* x\n*/ y"));
  EXPECT_EQ(integerValue(file->noLinesTotal()), 4);
  EXPECT_EQ(integerValue(file->noCharactersTotal()), 5 + 11 + 4);
}

TEST(FileStatsOnAFlakyDisk, AreZeroForAFileThatVanishesBeforeItIsOpened) {
  const TemporaryFolder folder;
  FlakyFileSystem disk;
  disk.vanishes = true;
  expectAllCountersZero(fileStats(disk, classicKinds(), folder.file("a.m", "int a;")));
}

TEST(FileStatsOnAFlakyDisk, AreZeroWhenReadingFailsInTheMiddle) {
  const TemporaryFolder folder;
  FlakyFileSystem disk;
  disk.failsAtCall = 3;
  expectAllCountersZero(fileStats(disk, classicKinds(), folder.file("a.m", "int a;\nint b;\n")));
}

TEST(FileStatsOnAFlakyDisk, MeasureWhatIsLeftOfAFileThatIsCutWhileItIsRead) {
  const TemporaryFolder folder;
  FlakyFileSystem disk;
  disk.endsAtCall = 5;
  const auto file = fileStats(disk, classicKinds(), folder.file("a.m", "a\nb\nc\nd\n"));
  EXPECT_EQ(integerValue(file->noLinesTotal()), 4);
}

TEST(FileStats, AreZeroForAFileWithoutEndThatTheKernelMakesUp) {
  const TemporaryFolder folder;
  ASSERT_EQ(::symlink("/proc/self/status", (folder / "a.m").c_str()), 0);
  for (const Beforehand beforehand : {Beforehand::nothing, Beforehand::regular}) {
    const MeasuredFile measured =
        measuredFile(FileSystem::real(), classicKinds(), folder / "a.m", beforehand);
    expectAllCountersZero(measured.file);
    EXPECT_EQ(measured.error.kind(), DiskError::Kind::noPermission);
  }
}

/// A disk on which another file is opened than the one that was looked at.
class SwappingFileSystem final : public FileSystem {
 public:
  explicit SwappingFileSystem(std::string opened) : opened_(std::move(opened)) {}

 private:
  [[nodiscard]] Result<Descriptor> doOpen(const std::string& /*path*/) const override {
    return FileSystem::real().open(opened_);
  }
  std::string opened_;
};

TEST(FileStats, AreThoseOfTheFileThatWasOpened) {
  const TemporaryFolder folder;
  const std::string path = folder.file("a.m", "int a;\n");
  const SwappingFileSystem larger(folder.file("b.m", "int a;\nint b;\n"));
  const SwappingFileSystem device("/dev/zero");
  for (const Beforehand beforehand : {Beforehand::nothing, Beforehand::regular}) {
    const auto file = measuredFile(larger, classicKinds(), path, beforehand).file;
    EXPECT_EQ(integerValue(file->fileSize()), 14);
    EXPECT_EQ(integerValue(file->noLinesTotal()), 3);
    expectAllCountersZero(measuredFile(device, classicKinds(), path, beforehand).file);
  }
}

/// The calls that measuring a file makes.
std::vector<std::string> callsFor(const std::string& path, Beforehand beforehand) {
  std::vector<std::string> calls;
  const testing::PlayedFileSystem disk([&](std::string_view call, const std::string& /*item*/) {
    calls.emplace_back(call);
    return DiskError{};
  });
  EXPECT_NE(measuredFile(disk, classicKinds(), path, beforehand).file, nullptr);
  return calls;
}

TEST(FileStats, OpenNothingThatIsNoRegularFile) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe.m").c_str(), 0600), 0);
  folder.folder("folder.m");
  EXPECT_EQ(callsFor(folder / "pipe.m", Beforehand::nothing), std::vector<std::string>{"status"});
  EXPECT_EQ(callsFor(folder / "folder.m", Beforehand::nothing), std::vector<std::string>{"status"});
}

TEST(FileStats, LookOnceAtWhatAWalkSaysIsARegularFile) {
  const TemporaryFolder folder;
  const std::vector<std::string> calls = {"open", "statusOfOpen", "read"};
  EXPECT_EQ(callsFor(folder.file("a.m", "int a;\n"), Beforehand::regular), calls);
}

/// A disk whose files grow for as long as they are read.
class GrowingFileSystem final : public FileSystem {
  [[nodiscard]] Result<std::size_t> doRead(int /*descriptor*/, std::span<char> buffer) const override {
    std::fill(buffer.begin(), buffer.end(), '\n');
    return buffer.size();
  }
};

TEST(FileStats, LeaveOutWhatIsAppendedWhileTheFileIsRead) {
  const TemporaryFolder folder;
  const auto file = fileStats(GrowingFileSystem(), classicKinds(), folder.file("a.m", "int a;\n"));
  EXPECT_EQ(integerValue(file->noLinesTotal()), 8);
}

TEST(FileStats, SayWhyAFileCouldNotBeRead) {
  const TemporaryFolder folder;
  FlakyFileSystem disk;
  disk.failsAtCall = 1;
  const std::string path = folder.file("a.m", "int a;");
  EXPECT_EQ(measuredFile(disk, classicKinds(), path, Beforehand::regular).error.number, EIO);
  EXPECT_EQ(measuredFile(FileSystem::real(), classicKinds(), path, Beforehand::regular).error.number, 0);
  EXPECT_EQ(
      measuredFile(FileSystem::real(), classicKinds(), folder / "b.m", Beforehand::regular).error.number,
      ENOENT);
}

TEST(FileStats, LeakNoDescriptors) {
  const TemporaryFolder folder;
  const std::string path = folder.file("a.m", "caf\xe9");
  const std::size_t before = openDescriptors();
  for (int i = 0; i < 50; ++i)
    ASSERT_NE(ParseProject().getFileStats(path), nullptr);
  EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
}  // namespace quillmeter
