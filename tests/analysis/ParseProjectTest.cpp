#include "analysis/ParseProject.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <filesystem>

#include "files/FileSystem.h"
#include "helpers/PlayedFileSystem.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::projectText;
using testing::TemporaryFolder;
using testing::writeProject;

using Texts = std::vector<std::string>;

/// Notes the messages of a read; numbers as text.
class RecordingDelegate final : public ParseProjectDelegate {
 public:
  void progressParsingProjectStarted() override { messages.emplace_back("started"); }
  void progressParsingProject(double fraction) override { messages.push_back(std::to_string(fraction)); }
  void progressParsingProjectEnded() override { messages.emplace_back("ended"); }
  Texts messages;
};

/// The paths of a project's files, relative to the folder that the test works in.
Texts foundFiles(const ParseProject& project, const TemporaryFolder& folder) {
  Texts paths;
  for (const auto& file : project.files())
    paths.push_back(file->filePath()->substr(folder.path().size() + 1));
  return paths;
}

Texts filesFor(const TemporaryFolder& folder, const Texts& references) {
  ParseProject project;
  project.parseFileAtPathAndDelegate(writeProject(folder, references), nullptr);
  return foundFiles(project, folder);
}

TEST(ReadingAProject, GivesItsFilesInTheOrderOfTheirLines) {
  const TemporaryFolder folder;
  for (const char* file : {"Sources/b.m", "a.h", "Images/i.png"})
    folder.file(file);
  EXPECT_EQ(filesFor(folder, {"b.m", "i.png", "missing.m", "a.h", "App.app"}),
            (Texts{"Sources/b.m", "Images/i.png", "a.h"}));
}

TEST(ReadingAProject, ReadsEachLineFromItsFirstToItsLastCharacter) {
  const TemporaryFolder folder;
  for (const char* file : {"a.m", "b.m", "c.m"})
    folder.file(file);
  // What is said of a file stands on the line behind its name here.
  folder.file("App.xcodeproj/project.pbxproj",
              "/* Begin PBXFileReference section */\n"
              "1 /* a\n*/ = {path = a.m; };\n"
              "2 /* b\n*/ = {path = b.m; };\n\n\n"
              "3 /* c\n*/ = {path = c.m\n/* End PBXFileReference section */\n");
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "App.xcodeproj", nullptr);
  EXPECT_EQ(foundFiles(project, folder), (Texts{"a.m", "b.m", "c.m"}));
}

TEST(ReadingAProject, KeepsAFileThatIsReferencedTwiceTwice) {
  const TemporaryFolder folder;
  folder.file("a.m", "int a;\n");
  ParseProject project;
  project.parseFileAtPathAndDelegate(writeProject(folder, {"a.m", "a.m"}), nullptr);
  EXPECT_EQ(project.files().size(), 2U);
  EXPECT_NE(project.files()[0], project.files()[1]);
  EXPECT_EQ(project.getNumberCodeFiles(), 2U);
}

TEST(ReadingAProject, RemembersItsPathAndTitle) {
  const TemporaryFolder folder;
  const std::string bundle = writeProject(folder, {}, "My.xcodeproj Notes");
  ParseProject project;
  project.parseFileAtPathAndDelegate(bundle, nullptr);
  EXPECT_EQ(project.initialPath(), bundle);
  EXPECT_EQ(project.projectTitle(), "My Notes");
}

TEST(ReadingAProject, StartsAgainWhenAskedTwice) {
  const TemporaryFolder folder;
  folder.file("a.m");
  const std::string bundle = writeProject(folder, {"a.m"});
  ParseProject project;
  project.parseFileAtPathAndDelegate(bundle, nullptr);
  project.parseFileAtPathAndDelegate(bundle, nullptr);
  EXPECT_EQ(project.files().size(), 1U);
  project.parseFileAtPathAndDelegate(folder / "missing.xcodeproj", nullptr);
  EXPECT_EQ(project.files().size(), 0U);
  EXPECT_TRUE(project.arrayFiles().has_value());
}

TEST(Progress, IsReportedForEachLineFromZeroToOne) {
  const TemporaryFolder folder;
  RecordingDelegate delegate;
  ParseProject().parseFileAtPathAndDelegate(writeProject(folder, {"a.m", "b.m", "App.app"}), &delegate);
  EXPECT_EQ(delegate.messages, (Texts{"started", "0.000000", "0.500000", "1.000000", "ended"}));
}

TEST(Progress, OfASingleLineIsNotANumber) {
  const TemporaryFolder folder;
  RecordingDelegate delegate;
  ParseProject().parseFileAtPathAndDelegate(writeProject(folder, {"a.m"}), &delegate);
  ASSERT_EQ(delegate.messages.size(), 3U);
  EXPECT_TRUE(std::isnan(std::stod(delegate.messages[1])));
}

TEST(Progress, HasOnlyItsStartAndEndWhenThereIsNoSection) {
  const TemporaryFolder folder;
  RecordingDelegate delegate;
  ParseProject().parseFileAtPathAndDelegate(folder / "missing.xcodeproj", &delegate);
  EXPECT_EQ(delegate.messages, (Texts{"started", "ended"}));
}

TEST(Progress, CountsAnEmptySectionAsOneLine) {
  const TemporaryFolder folder;
  RecordingDelegate delegate;
  ParseProject().parseFileAtPathAndDelegate(writeProject(folder, {}), &delegate);
  EXPECT_EQ(delegate.messages.size(), 3U);
}

TEST(Diagnostics, NameEachFileThatIsFound) {
  const TemporaryFolder folder;
  folder.file("a.m");
  ParseProject project;
  Texts lines;
  project.setLogSink([&](std::string_view line) { lines.emplace_back(line); });
  project.parseFileAtPathAndDelegate(writeProject(folder, {"a.m", "missing.m"}), nullptr);
  EXPECT_EQ(lines, (Texts{"parsing file a.m"}));
}

TEST(Diagnostics, SayWhenALinkedPathCannotBeConverted) {
  const TemporaryFolder folder;
  ParseProject project;
  Texts lines;
  project.setLogSink([&](std::string_view line) { lines.emplace_back(line); });
  std::string reference;
  for (int i = 0; i < 60; ++i)
    reference += "../";
  project.parseFileAtPathAndDelegate(writeProject(folder, {reference + "missing.m"}), nullptr);
  EXPECT_EQ(lines, (Texts{"something bad happened while trying to convert the linked path"}));
}

TEST(Resolving, TakesTheFirstFileOfTheNameAnywhereBelowTheFolder) {
  const TemporaryFolder folder;
  for (const char* file : {"Other/main.m", "Sources/main.m", "Another/MAIN.M"})
    folder.file(file);
  EXPECT_EQ(filesFor(folder, {"main.m"}), (Texts{"Another/MAIN.M"}));
}

TEST(Resolving, TakesALongerPathByItsEnding) {
  const TemporaryFolder folder;
  for (const char* file : {"Other/main.m", "Sources/main.m"})
    folder.file(file);
  EXPECT_EQ(filesFor(folder, {"Sources/main.m"}), (Texts{"Sources/main.m"}));
}

TEST(Resolving, NeverTakesAFileWhoseNameOnlyEndsLikeTheReference) {
  const TemporaryFolder folder;
  folder.file("MyFoo.m");
  EXPECT_EQ(filesFor(folder, {"Foo.m"}), Texts{});
}

TEST(Resolving, MayFindAFileOfAProjectBesideIt) {
  const TemporaryFolder folder;
  folder.file("A/main.m");
  folder.file("B/main.m");
  folder.file("B.xcodeproj/project.pbxproj");
  EXPECT_EQ(filesFor(folder, {"main.m"}), (Texts{"A/main.m"}));
}

TEST(Resolving, FindsFilesInHiddenFoldersAndBundles) {
  const TemporaryFolder folder;
  folder.file(".git/x.c");
  folder.file("App.xcodeproj/y.c");
  EXPECT_EQ(filesFor(folder, {"x.c", "y.c"}), (Texts{".git/x.c", "App.xcodeproj/y.c"}));
}

TEST(Resolving, FindsAnAbsoluteReferenceOnlyBelowTheFolder) {
  const TemporaryFolder folder;
  const TemporaryFolder elsewhere;
  const std::string inside = folder.file("a/x.m");
  const std::string outside = elsewhere.file("y.m");
  EXPECT_EQ(filesFor(folder, {inside, outside}), (Texts{"a/x.m"}));
}

TEST(Resolving, ClimbsOutOfTheFolderForALinkedReference) {
  const TemporaryFolder folder;
  folder.file("Shared/Util.m");
  folder.file("App/App.xcodeproj/project.pbxproj", projectText({"../Shared/Util.m"}));
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "App/App.xcodeproj", nullptr);
  EXPECT_EQ(foundFiles(project, folder), (Texts{"Shared/Util.m"}));
}

TEST(Resolving, TakesALinkedReferenceInsideTheFolderWhenOnlyThatExists) {
  const TemporaryFolder folder;
  folder.file("App/Shared/Util.m");
  folder.file("App/App.xcodeproj/project.pbxproj",
              projectText({"../Shared/Util.m", "../../../Shared/Util.m"}));
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "App/App.xcodeproj", nullptr);
  EXPECT_EQ(foundFiles(project, folder), (Texts{"App/Shared/Util.m", "App/Shared/Util.m"}));
}

TEST(Resolving, FoldsOneRunOfStepsUp) {
  const TemporaryFolder folder;
  folder.file("w/x/Shared/Util.m");
  folder.file("w/x/y/z/App.xcodeproj/project.pbxproj", projectText({"../../Shared/Util.m"}));
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "w/x/y/z/App.xcodeproj", nullptr);
  EXPECT_EQ(foundFiles(project, folder), (Texts{"w/x/Shared/Util.m"}));
}

TEST(Resolving, SurvivesSixtyStepsUp) {
  const TemporaryFolder folder;
  folder.file("x.m");
  std::string reference;
  for (int i = 0; i < 60; ++i)
    reference += "../";
  // After fifty steps it gives up climbing; what is left leads past the root and is measured unfolded.
  const Texts files = filesFor(folder, {reference + "missing/x.m", "a.m"});
  EXPECT_EQ(files, Texts{});
}

TEST(Resolving, TriesTheNextFileWhenTheFirstIsALinkToNothing) {
  const TemporaryFolder folder;
  folder.folder("a");
  ASSERT_EQ(::symlink("nowhere", (folder / "a/x.m").c_str()), 0);
  folder.file("b/x.m");
  EXPECT_EQ(filesFor(folder, {"x.m"}), (Texts{"b/x.m"}));
}

TEST(Resolving, RemovesTheBundleNameWhereverItOccursInThePath) {
  const TemporaryFolder folder;
  folder.file("P.xcodeproj/P.xcodeproj/project.pbxproj", projectText({"x.m"}));
  folder.file("x.m");
  ParseProject project;
  project.parseFileAtPathAndDelegate(folder / "P.xcodeproj/P.xcodeproj", nullptr);
  EXPECT_EQ(foundFiles(project, folder), (Texts{"x.m"}));
}

TEST(AllPaths, AreJoinedWithTheFolderOfTheBundle) {
  const TemporaryFolder folder;
  folder.file("a/x.txt");
  const std::string bundle = writeProject(folder, {});
  EXPECT_EQ(ParseProject().getAllFilesFromInitialPath(bundle),
            (Texts{bundle, bundle + "/project.pbxproj", folder / "a", folder / "a/x.txt"}));
}

TEST(AllFilesInFolder, AreTheVisibleFilesOfKnownKindsWithTheirSizesOnly) {
  const TemporaryFolder folder;
  folder.file("b/used.m", "12345");
  for (const char* file : {"b/.hidden.m", "notes.txt", "a.PNG", ".git/x.c"})
    folder.file(file, "1");
  folder.folder("folder.m");
  ASSERT_EQ(::symlink("nowhere", (folder / "dangling.m").c_str()), 0);
  ASSERT_EQ(::symlink("b/used.m", (folder / "link.m").c_str()), 0);
  ParseProject project;
  project.setInitialPath(writeProject(folder, {}));
  Texts paths;
  for (const auto& file : project.allFilesInFolder()) {
    paths.push_back(file->filePath()->substr(folder.path().size() + 1));
    EXPECT_EQ(file->noLinesTotal(), std::nullopt);
  }
  ASSERT_EQ(paths, (Texts{".git/x.c", "a.PNG", "b/used.m", "link.m"}));
  const FileList files = project.allFilesInFolder();
  ASSERT_EQ(files.size(), paths.size());
  EXPECT_EQ(files[2]->fileName(), "used.m");
  EXPECT_EQ(integerValue(files[2]->fileSize()), 5);
  EXPECT_EQ(integerValue(files[3]->fileSize()), 5) << "of the file that the link leads to";
}

/// Notes what is asked about; some folders cannot be opened and some files vanish.
class RecordingFileSystem final : public FileSystem {
 public:
  mutable Texts asked;
  std::string gone = "no file";
  std::string closed = "no folder";

 private:
  [[nodiscard]] Result<FileStatus> doStatus(const std::string& path) const override {
    asked.push_back("path " + path.substr(path.rfind('/') + 1));
    return FileSystem::real().status(path);
  }
  [[nodiscard]] Result<FileStatus> doStatusInFolder(const Descriptor& folder,
                                                    const std::string& name) const override {
    asked.push_back(name);
    if (name == gone) return DiskError{ENOENT};
    return FileSystem::real().statusInFolder(folder, name);
  }
  [[nodiscard]] Result<Descriptor> doOpenFolder(const std::string& path) const override {
    asked.push_back("open " + path.substr(path.rfind('/') + 1));
    if (path.ends_with(closed)) return DiskError{EACCES};
    return FileSystem::real().openFolder(path);
  }
};

TEST(AllFilesInFolder, AreNoneForAProjectThatWasNeverRead) {
  const RecordingFileSystem disk;
  EXPECT_TRUE(ParseProject(disk).allFilesInFolder().empty());
  EXPECT_TRUE(disk.asked.empty());
}

TEST(AllFilesInFolder, SayWhatCouldNotBeLookedAt) {
  const TemporaryFolder folder;
  folder.file("a.m");
  const testing::PlayedFileSystem disk([](std::string_view call, const std::string&) {
    return call == "statusInFolder" ? DiskError{EIO} : DiskError{};
  });
  ParseProject project(disk);
  project.setInitialPath(folder / "P.xcodeproj");
  ReadFaults faults;
  EXPECT_TRUE(project.unreferencedFiles(faults).empty());
  EXPECT_EQ(faults.count, 1U);
  EXPECT_EQ(faults.firstPath, folder / "a.m");
  EXPECT_TRUE(faults.mayMislead);
}

TEST(AllFilesInFolder, AskTheDiskFolderByFolderAndNeverAboutOtherKinds) {
  const TemporaryFolder folder;
  for (const char* file : {"a/x.m", "a/y.c", "a/y.txt", "b.m/z.o"})
    folder.file(file);
  const RecordingFileSystem disk;
  ParseProject project(disk);
  project.setInitialPath(folder / "P.xcodeproj");
  EXPECT_EQ(project.allFilesInFolder().size(), 2U);
  EXPECT_EQ(disk.asked, (Texts{"open a", "x.m", "y.c"}));
}

TEST(AllFilesInFolder, AreAskedForByPathWhereTheirFolderCannotBeOpened) {
  const TemporaryFolder folder;
  for (const char* file : {"a/x.m", "a/y.m", "b/z.m"})
    folder.file(file, "123");
  RecordingFileSystem disk;
  disk.closed = "/a";
  ParseProject project(disk);
  project.setInitialPath(folder / "P.xcodeproj");
  const FileList files = project.allFilesInFolder();
  ASSERT_EQ(files.size(), 3U);
  EXPECT_EQ(files[1]->filePath(), folder / "a/y.m");
  EXPECT_EQ(integerValue(files[1]->fileSize()), 3);
  EXPECT_EQ(disk.asked, (Texts{"open a", "path x.m", "path y.m", "open b", "z.m"}));
}

TEST(AllFilesInFolder, LeaveOutAFileThatVanishedSinceTheWalk) {
  const TemporaryFolder folder;
  for (const char* file : {"a.m", "b.m", "c.m"})
    folder.file(file);
  RecordingFileSystem disk;
  disk.gone = "b.m";
  ParseProject project(disk);
  project.setInitialPath(folder / "P.xcodeproj");
  const FileList files = project.allFilesInFolder();
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[1]->fileName(), "c.m");
}

TEST(AllFilesInFolder, KeepTheirOwnFolderAfterTheContentsOfAnother) {
  const TemporaryFolder folder;
  for (const char* file : {"a.m", "b/c/d.m", "b/e.m", "f.m"})
    folder.file(file, file);
  ParseProject project;
  project.setInitialPath(folder / "P.xcodeproj");
  Texts paths;
  for (const auto& file : project.allFilesInFolder()) {
    paths.push_back(file->filePath()->substr(folder.path().size() + 1));
    EXPECT_EQ(integerValue(file->fileSize()), static_cast<std::int64_t>(paths.back().size()));
  }
  EXPECT_EQ(paths, (Texts{"a.m", "b/c/d.m", "b/e.m", "f.m"}));
}

TEST(FilesInFolderExcept, AskTheDiskOnlyAboutFilesOfOtherPaths) {
  const TemporaryFolder folder;
  for (const char* file : {"a/x.m", "b/y.m", "b/z.m"})
    folder.file(file);
  const RecordingFileSystem disk;
  ParseProject project(disk);
  project.setInitialPath(folder / "P.xcodeproj");
  const auto atPath = [&](const std::string& path) {
    auto file = std::make_shared<FileObject>();
    file->setFilePath(path);
    return file;
  };
  const FileList files = project.filesInFolderExcept({atPath(folder / "b/z.m"), atPath(folder / "a/x.m"),
                                                      atPath("y.m"), atPath("/y.m"), atPath(""),
                                                      atPath(folder / "b/"), std::make_shared<FileObject>()});
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0]->filePath(), folder / "b/y.m");
  EXPECT_EQ(disk.asked, (Texts{"open b", "y.m"}));
}

}  // namespace
}  // namespace quillmeter
