#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "analysis/ParseProject.h"
#include "files/FileSystem.h"
#include "helpers/DeepTree.h"
#include "helpers/ProjectFixture.h"

/// Projects that no Xcode would write. Each is met in silence: no records, or only those that can be had.
namespace quillmeter {
namespace {

using testing::projectText;
using testing::TemporaryFolder;
using testing::writeProject;

constexpr const char* kBegin = "/* Begin PBXFileReference section */";
constexpr const char* kEnd = "/* End PBXFileReference section */";

std::size_t filesOf(const TemporaryFolder& folder) {
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "App.xcodeproj", nullptr);
  return project.files().size();
}

std::size_t filesWithText(const std::string& text) {
  const TemporaryFolder folder;
  folder.file("a.m", "int a;");
  folder.file("App.xcodeproj/project.pbxproj", text);
  return filesOf(folder);
}

std::string line(const std::string& path) {
  return "1 /* x */ = {isa = PBXFileReference; path = " + path + "; };\n";
}

TEST(BadProject, WithoutAProjectFileHasNoFiles) {
  const TemporaryFolder folder;
  folder.folder("App.xcodeproj");
  EXPECT_EQ(filesOf(folder), 0U);
}

TEST(BadProject, WithAnEmptyProjectFileHasNoFiles) {
  EXPECT_EQ(filesWithText(""), 0U);
}

TEST(BadProject, WithoutBothMarkersInOrderHasNoFiles) {
  EXPECT_EQ(filesWithText(line("a.m") + kEnd), 0U);
  EXPECT_EQ(filesWithText(kBegin + line("a.m")), 0U);
  EXPECT_EQ(filesWithText(kEnd + line("a.m") + kBegin), 0U);
  EXPECT_EQ(filesWithText(kBegin + ("\n" + line("a.m")) + kEnd), 1U);
}

TEST(BadProject, ThatIsNotUtf8HasNoFiles) {
  EXPECT_EQ(filesWithText(kBegin + ("\n" + line("a.m")) + kEnd + "\xff"), 0U);
}

TEST(BadProject, OfASectionOfOneLineIsRead) {
  EXPECT_EQ(filesWithText(std::string(kBegin) + line("a.m") + kEnd), 1U);
}

TEST(BadProject, LeavesOutLinesOfGarbage) {
  std::string garbage(5000, '\0');
  for (std::size_t i = 0; i < garbage.size(); ++i)
    garbage[i] = static_cast<char>(i * 37 % 128);
  EXPECT_EQ(filesWithText(kBegin + garbage + "\n" + line("a.m") + "*/ = {\n}\npath =;\n" + kEnd), 1U);
}

TEST(BadProject, WithReferencesOfSeparatorsAndQuotesLeavesThemOut) {
  EXPECT_EQ(filesWithText(kBegin + line("\"a;.m\"") + line("\"a}.m\"") + line("\"") + line("\"\"\"\".m") +
                          line("..") + line("../") + line("/") + line("//.m") + kEnd),
            0U);
}

TEST(BadProject, WithAZeroByteInAReferenceMeasuresNothingForIt) {
  const TemporaryFolder folder;
  folder.file("a", "text");
  folder.file("in/b.m", "text");
  const std::string zero(1, '\0');
  folder.file("in/App.xcodeproj/project.pbxproj",
              kBegin + ("\n" + line("\"../a" + zero + ".m\"")) + line("\"b.m" + zero + ".m\"") + kEnd);
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "in/App.xcodeproj", nullptr);
  EXPECT_EQ(project.files().size(), 0U);
  EXPECT_EQ(project.findings().missing.size(), 2U);
}

TEST(BadProject, WhoseProjectFileIsAFolderOrAFifoHasNoFiles) {
  const TemporaryFolder folder;
  folder.folder("App.xcodeproj/project.pbxproj");
  EXPECT_EQ(filesOf(folder), 0U);
  std::filesystem::remove(folder / "App.xcodeproj/project.pbxproj");
  ASSERT_EQ(::mkfifo((folder / "App.xcodeproj/project.pbxproj").c_str(), 0600), 0);
  EXPECT_EQ(filesOf(folder), 0U);
}

TEST(BadProject, OfAHundredMegabytesIsRead) {
  std::string text = std::string(kBegin) + "\n";
  const std::string filler = line("missing-but-well-formed-reference.txt");
  while (text.size() < 100'000'000)
    text += filler;
  EXPECT_EQ(filesWithText(text + line("a.m") + kEnd), 1U);
}

TEST(BadProject, MeasuresAFileLargerThanFourGibibytes) {
  const TemporaryFolder folder;
  const std::string path = folder.file("App.xcodeproj/../huge.png");
  constexpr off_t size = (off_t{1} << 32) + 1;
  ASSERT_EQ(::truncate(path.c_str(), size), 0);
  ParseProject project;
  project.parseFileAtPathAndDelegate(writeProject(folder, {"huge.png"}), nullptr);
  ASSERT_EQ(project.files().size(), 1U);
  EXPECT_EQ(integerValue(project.files()[0]->fileSize()), size);
}

TEST(BadProject, MeasuresASourceOfOneVeryLongLine) {
  const TemporaryFolder folder;
  {
    std::ofstream stream(folder / "long.m");
    const std::string piece(1'000'000, 'x');
    for (int i = 0; i < 300; ++i)
      stream << piece;
  }
  const auto file = ParseProject().getFileStats(folder / "long.m");
  EXPECT_EQ(integerValue(file->noLinesTotal()), 1);
  EXPECT_EQ(integerValue(file->noWords()), 1);
  EXPECT_EQ(integerValue(file->noCharactersTotal()), 300'000'000);
}

TEST(BadProject, InAFolderWhoseNameIsNotUtf8IsRead) {
  const TemporaryFolder folder;
  folder.file("\xff\xfe/a.m");
  folder.file("\xff\xfe/App.xcodeproj/project.pbxproj", projectText({"a.m"}));
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "\xff\xfe/App.xcodeproj", nullptr);
  ASSERT_EQ(project.files().size(), 1U);
  EXPECT_EQ(project.files()[0]->filePath(), folder / "\xff\xfe/a.m");
}

TEST(BadProject, FindsAndMeasuresAFileWhosePathIsTooLongForOneCall) {
  const TemporaryFolder folder;
  constexpr int kLevels = 3000;
  const testing::DeepTree tree(folder.path(), kLevels);
  std::string deepest = "../";
  for (int i = 0; i < kLevels - 1; ++i)
    deepest += "d/";
  folder.file("App.xcodeproj/project.pbxproj",
              projectText({deepest.substr(3) + "z.m", deepest + "missing.m"}));
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "App.xcodeproj", nullptr);
  ASSERT_EQ(project.files().size(), 1U);
  EXPECT_EQ(project.files()[0]->filePath()->size(), folder.path().size() + 1 + 2 * (kLevels - 1) + 3);
  EXPECT_EQ(integerValue(project.files()[0]->noLinesTotal()), 1);
}

TEST(BadProject, ListsTheFilesOfFoldersDeeperThanAPathMaySay) {
  constexpr int kLevels = 2100;
  const TemporaryFolder folder;
  const testing::DeepTree tree(folder.path(), kLevels);
  ParseProject project;
  project.setInitialPath(folder / "App.xcodeproj");
  const FileList files = project.allFilesInFolder();
  ASSERT_EQ(files.size(), static_cast<std::size_t>(kLevels));
  EXPECT_EQ(files.front()->filePath()->size(), folder.path().size() + 2 * (kLevels - 1) + 4);
}

/// A disk on which one file is gone by the time it is looked at.
class VanishingFileSystem final : public FileSystem {
 public:
  explicit VanishingFileSystem(std::string gone) : gone_(std::move(gone)) {}

 private:
  [[nodiscard]] Result<FileStatus> doStatus(const std::string& path) const override {
    if (path == gone_) return DiskError{ENOENT};
    return FileSystem::real().status(path);
  }
  [[nodiscard]] Result<Descriptor> doOpen(const std::string& path) const override {
    if (path == gone_) return DiskError{ENOENT};
    return FileSystem::real().open(path);
  }

  std::string gone_;
};

/// A disk on which every file claims to be larger than any memory.
class BoastingFileSystem final : public FileSystem {
  [[nodiscard]] Result<FileStatus> doStatusOfOpen(const Descriptor& file) const override {
    auto status = FileSystem::real().statusOfOpen(file);
    if (status) status->size = std::uint64_t{1} << 63U;
    return status;
  }
};

TEST(BadProject, WhoseProjectFileFitsNoMemoryHasNoFiles) {
  const TemporaryFolder folder;
  folder.file("a.m");
  const BoastingFileSystem disk;
  ParseProject project(disk);
  project.parseFileAtPathAndDelegate(writeProject(folder, {"a.m"}), nullptr);
  EXPECT_EQ(project.files().size(), 0U);
}

TEST(BadProject, TakesTheNextFileOfTheNameWhenOneVanishesBetweenWalkAndRead) {
  const TemporaryFolder folder;
  folder.file("a/x.m");
  folder.file("b/x.m");
  const VanishingFileSystem disk(folder / "a/x.m");
  ParseProject project(disk);
  project.parseFileAtPathAndDelegate(writeProject(folder, {"x.m", "a/x.m", "x.m"}), nullptr);
  ASSERT_EQ(project.files().size(), 2U);
  EXPECT_EQ(project.files()[0]->filePath(), folder / "b/x.m");
}

TEST(BadProject, LeaksNoDescriptors) {
  const TemporaryFolder folder;
  folder.file("a.m", "int a;");
  ASSERT_EQ(::symlink("nowhere", (folder / "b.m").c_str()), 0);
  const std::string bundle = writeProject(folder, {"a.m", "b.m", "c.m", "../d.m"});
  const auto openDescriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                         std::filesystem::directory_iterator());
  };
  const auto before = openDescriptors();
  for (int i = 0; i < 20; ++i)
    ParseProject().parseFileAtPathAndDelegate(bundle, nullptr);
  EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
}  // namespace quillmeter
