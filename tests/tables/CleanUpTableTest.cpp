#include "tables/CleanUpTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "helpers/ProjectFixture.h"
#include "tables/ClassicTables.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

/// Every file on disk against every referenced one, as the rule has it.
FileList pairwise(const FileList& onDisk, const FileList& referenced) {
  FileList result;
  for (const auto& file : onDisk) {
    bool isFound = false;
    for (const auto& other : referenced)
      isFound = isFound || (other->filePath() && file->filePath() && *other->filePath() == *file->filePath());
    if (!isFound) result.push_back(file);
  }
  return result;
}

std::shared_ptr<FileObject> atPath(const std::string& path) {
  auto file = std::make_shared<FileObject>();
  file->setFileName(path.substr(path.rfind('/') + 1));
  file->setFilePath(path);
  return file;
}

std::vector<std::string> paths(const FileList& files) {
  std::vector<std::string> result;
  for (const auto& file : files)
    result.push_back(*file->filePath());
  return result;
}

std::vector<std::string> leftovers(const ParseProject& project) {
  return testing::rowNames(cleanUpTable(unreferencedFiles(project), project.kinds()));
}

/// The superuser reads every folder; while this lives, the process is nobody in particular.
class OrdinaryUser {
 public:
  OrdinaryUser() : user_(::geteuid()) {
    constexpr uid_t nobody = 65534;
    EXPECT_EQ(::seteuid(user_ == 0 ? nobody : user_), 0);
  }
  ~OrdinaryUser() { EXPECT_EQ(::seteuid(user_), 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  uid_t user_;
};

/// The project whose bundle lies in `folder`, read from disk.
std::unique_ptr<ParseProject> readProject(const std::string& bundle) {
  auto project = std::make_unique<ParseProject>();
  project->parseFileAtPathAndDelegate(bundle, nullptr);
  return project;
}

TEST(CleanUpColumns, AreFiveWithTheirWidths) {
  std::vector<std::string> identifiers;
  std::vector<int> widths;
  const FileTable table = cleanUpTable({}, classicKinds());
  for (const FileTableColumn& column : table.columns()) {
    identifiers.emplace_back(column.identifier);
    widths.push_back(column.width);
    EXPECT_TRUE(column.toolTip.empty());
    EXPECT_EQ(column.minimumWidth, 44);
  }
  EXPECT_THAT(identifiers, ElementsAre("getFileExtension", "finderview", "fileName", "filePath", "fileSize"));
  EXPECT_THAT(widths, ElementsAre(44, 44, 300, 300, 100));
}

TEST(CleanUp, ListsWhatTheProjectDoesNotReference) {
  const TemporaryFolder folder;
  folder.file("main.c", "int x;\n");
  folder.file("deep/er/Old.m");
  folder.file("art/logo.png");
  const auto project = readProject(testing::writeProject(folder, {"main.c"}));
  EXPECT_THAT(leftovers(*project), ElementsAre("logo.png", "Old.m"));
}

TEST(CleanUp, ACleanProjectHasNothingToList) {
  const TemporaryFolder folder;
  folder.file("main.c");
  const auto project = readProject(testing::writeProject(folder, {"main.c"}));
  ASSERT_EQ(project->files().size(), 1U);
  EXPECT_THAT(leftovers(*project), IsEmpty());
}

TEST(CleanUp, HiddenFilesAndOtherKindsAreNeverListed) {
  const TemporaryFolder folder;
  for (const char* name : {"main.c", ".hidden.c", "notes.txt", ".c", "Main.nib", ".git/config.h", "data.gif"})
    folder.file(name);
  const auto project = readProject(testing::writeProject(folder, {"main.c"}));
  EXPECT_THAT(leftovers(*project), ElementsAre("config.h")) << "a hidden folder's files are not hidden";
}

TEST(CleanUp, AnotherSpellingOfAPathIsAnotherPath) {
  const TemporaryFolder folder;
  for (const char* name : {"sub/A.c", "B.c", "C.c", "real/D.c", "\xC3\xA4.c", "same.c"})
    folder.file(name);
  std::filesystem::create_directory_symlink("real", folder / "link");
  ParseProject project;
  project.setInitialPath(folder / "P.xcodeproj");
  project.setArrayFiles(FileList{atPath(folder / "sub/a.c"), atPath(folder / "./B.c"),
                                 atPath(folder / "sub/../C.c"), atPath(folder / "link/D.c"),
                                 atPath(folder / "a\xCC\x88.c"), atPath(folder / "same.c")});
  EXPECT_THAT(leftovers(project), ElementsAre("A.c", "B.c", "C.c", "D.c", "\xC3\xA4.c"));
}

TEST(CleanUp, AFileReferencedThroughALinkToItsFolderIsListed) {
  const TemporaryFolder folder;
  const TemporaryFolder elsewhere;
  elsewhere.file("real.c");
  std::filesystem::create_symlink(elsewhere / "real.c", folder / "linked.c");
  std::filesystem::create_directory_symlink(elsewhere.path(), folder / "linkedFolder");
  const auto project = readProject(testing::writeProject(folder, {"other.c"}));
  EXPECT_THAT(leftovers(*project), ElementsAre("linked.c")) << "links to folders are not entered";
}

TEST(CleanUp, ARecordWithoutAPathReferencesNothing) {
  const TemporaryFolder folder;
  folder.file("a.c");
  ParseProject project;
  project.setInitialPath(folder / "P.xcodeproj");
  project.setArrayFiles(FileList{std::make_shared<FileObject>()});
  EXPECT_THAT(leftovers(project), ElementsAre("a.c"));
}

TEST(CleanUp, WithoutAReadEverythingIsListed) {
  const TemporaryFolder folder;
  folder.file("a.c");
  ParseProject project;
  project.setInitialPath(folder / "P.xcodeproj");
  EXPECT_THAT(leftovers(project), ElementsAre("a.c"));
}

TEST(CleanUp, AVanishedFolderHasNothingToList) {
  auto folder = std::make_unique<TemporaryFolder>();
  folder->file("main.c");
  folder->file("left.c");
  const auto project = readProject(testing::writeProject(*folder, {"main.c"}));
  folder.reset();
  EXPECT_THAT(leftovers(*project), IsEmpty());
}

TEST(CleanUp, AnUnreadableFolderHidesOnlyItsOwnFiles) {
  const TemporaryFolder folder;
  folder.file("closed/left.c");
  folder.file("open/left.h");
  folder.file("main.c");
  const auto project = readProject(testing::writeProject(folder, {"main.c"}));
  ::chmod(folder.path().c_str(), 0755);
  ::chmod((folder / "closed").c_str(), 0);
  std::vector<std::string> found;
  {
    const OrdinaryUser user;
    found = leftovers(*project);
  }
  ::chmod((folder / "closed").c_str(), 0755);
  EXPECT_THAT(found, ElementsAre("left.h"));
}

/// Another spelling of an absolute path, or one of a file that is not there.
std::string respelled(std::string path, std::size_t way) {
  const std::size_t slash = path.rfind('/');
  switch (way) {
    case 0:
      return path.insert(slash, "/.");
    case 1:
      return path.insert(slash, "/x/..");
    case 2:
      return path + "c";
    default:
      path.back() = static_cast<char>(path.back() ^ 0x20);
      return path;
  }
}

TEST(CleanUp, GeneratedReferencesGiveWhatEveryPairGives) {
  std::mt19937 random(11);
  const auto below = [&](std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
  };
  const TemporaryFolder tree;
  for (const char* name :
       {"x.c", "X.c", "x.C", "a/y.h", "a/y\nz.png", "a/b c/\xFF.m", "\xC3\xA4/q.xib", "z.m"})
    tree.file(name);
  std::filesystem::create_symlink("x.c", tree / "link.c");
  ParseProject project;
  project.setInitialPath(tree / "P.xcodeproj");
  const FileList onDisk = project.allFilesInFolder();
  ASSERT_EQ(onDisk.size(), 9U);
  for (int round = 0; round < 200; ++round) {
    FileList referenced;
    for (std::size_t i = below(12); i > 0; --i) {
      const std::string& path = *onDisk[below(onDisk.size())]->filePath();
      referenced.push_back(atPath(below(2) == 0 ? path : respelled(path, below(4))));
    }
    project.setArrayFiles(referenced);
    ASSERT_EQ(paths(unreferencedFiles(project)), paths(pairwise(onDisk, referenced)));
  }
}

TEST(CleanUp, GeneratedTreesGiveWhatEveryPairGives) {
  std::mt19937 random(5);
  const auto below = [&](std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
  };
  const std::vector<std::string> folders = {"", "Src/", "src/", ".git/", "Src/deep/", "art.icns/"};
  const std::vector<std::string> extensions = {"c", "H", "png", "txt", "xib", "nib"};
  const TemporaryFolder tree;
  std::vector<std::string> references;
  for (int i = 0; i < 120; ++i) {
    const std::string path = folders[below(folders.size())] + (below(9) == 0 ? "." : "") + "f" +
                             std::to_string(below(40)) + "." + extensions[below(extensions.size())];
    tree.file(path);
    if (below(2) == 0) references.push_back(below(4) == 0 ? "./" + path : path);
    if (below(10) == 0) {
      std::error_code ignored;
      std::filesystem::create_symlink(tree / path, tree / ("link" + std::to_string(i) + ".c"), ignored);
    }
  }
  const auto project = readProject(testing::writeProject(tree, references));
  const FileList onDisk = project->allFilesInFolder();
  const FileList expected = pairwise(onDisk, project->files());
  ASSERT_FALSE(expected.empty());
  ASSERT_LT(expected.size(), onDisk.size());
  EXPECT_EQ(paths(unreferencedFiles(*project)), paths(expected));
}

}  // namespace
}  // namespace quillmeter
