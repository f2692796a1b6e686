#include "stats/CleanUpTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "helpers/ProjectFixture.h"

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

std::vector<std::string> names(const FileTable& table) {
  std::vector<std::string> result;
  for (const auto& file : table.rows())
    result.push_back(*file->fileName());
  return result;
}

std::vector<std::string> leftovers(const ParseProject& project) {
  return names(cleanUpTable(project.allFilesInFolder(), project.files()));
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
  const FileTable table = cleanUpTable({}, {});
  for (const FileTableColumn& column : table.columns()) {
    identifiers.emplace_back(column.identifier());
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
  const FileList onDisk = {atPath("/p/sub/A.c"), atPath("/p/B.c"), atPath("/p/C.c"), atPath("/p/link/D.c"),
                           atPath("/p/ä.c")};
  const FileList referenced = {atPath("/p/sub/a.c"), atPath("/p/./B.c"), atPath("/p/sub/../C.c"),
                               atPath("/p/real/D.c"), atPath("/p/a\xCC\x88.c")};
  EXPECT_EQ(unreferencedFiles(onDisk, referenced), onDisk);
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

TEST(CleanUp, RecordsWithoutAPathAreReferencedByNothing) {
  const auto bare = std::make_shared<FileObject>();
  EXPECT_THAT(unreferencedFiles({bare, atPath("/p/a.c")}, {bare, atPath("/p/a.c")}), ElementsAre(bare));
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

TEST(CleanUp, GeneratedListsGiveWhatEveryPairGives) {
  std::mt19937 random(11);
  const std::vector<std::string> steps = {"a", "A", ".", "..", "link", "b c", "\xFF", "ä"};
  const std::vector<std::string> files = {"x.c", "X.c", "x.C", "y.h", "y\nz.png"};
  const auto pick = [&](const std::vector<std::string>& from) {
    return from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(random)];
  };
  const auto list = [&](int count) {
    FileList result;
    for (int i = 0; i < count; ++i) {
      std::string path = "/p";
      for (int depth = std::uniform_int_distribution<int>(0, 2)(random); depth > 0; --depth)
        path += "/" + pick(steps);
      result.push_back(i % 17 == 16 ? std::make_shared<FileObject>() : atPath(path + "/" + pick(files)));
    }
    return result;
  };
  std::size_t listed = 0;
  std::size_t passed = 0;
  for (int round = 0; round < 60; ++round) {
    const FileList onDisk = list(80);
    const FileList referenced = list(60);
    const FileList expected = pairwise(onDisk, referenced);
    ASSERT_EQ(unreferencedFiles(onDisk, referenced), expected);
    listed += expected.size();
    passed += onDisk.size() - expected.size();
  }
  EXPECT_GT(listed, 100U);
  EXPECT_GT(passed, 100U);
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
  EXPECT_EQ(unreferencedFiles(onDisk, project->files()), expected);
}

}  // namespace
}  // namespace quillmeter
