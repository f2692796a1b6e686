#include "xcode/CurrentProject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "helpers/Unprivileged.h"
#include "measuring/FileStats.h"
#include "xcode/Descriptions.h"

namespace quillmeter::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

class CurrentProjectTest : public DescribedProject {};

/// Notes what a read tells.
class Progress final : public ParseProjectDelegate {
 public:
  void progressParsingProjectStarted() override { told.push_back(-1); }
  void progressParsingProject(double fraction) override { told.push_back(fraction); }
  void progressParsingProjectEnded() override { told.push_back(2); }
  std::vector<double> told;
};

TEST_F(CurrentProjectTest, MeasuresSourcesAndInterfaceFilesInFullAndImagesBySize) {
  const std::string text = "// a\nlet b  = 1\n\n";
  for (const char* path : {"a.swift", "b.storyboard", "c.png", "d.hpp", "e.metal"})
    file(path, text);
  read("a, b, c, d, e",
       {fileReference("a", "a.swift"), fileReference("b", "b.storyboard"), fileReference("c", "c.png"),
        fileReference("d", "d.hpp"), fileReference("e", "e.metal")});
  ASSERT_EQ(project_.files().size(), 5U);
  for (const std::size_t full : {0U, 1U, 3U, 4U}) {
    const FileObject& record = *project_.files()[full];
    EXPECT_EQ(record.fileSize(), Number(17));
    EXPECT_EQ(record.noLinesTotal(), Number(4));
    EXPECT_EQ(record.noLinesWithoutSpaces(), Number(2));
    EXPECT_EQ(record.noLinesComments(), Number(1));
    EXPECT_EQ(record.noWords(), Number(7));
    EXPECT_EQ(record.noCharactersTotal(), Number(14));
  }
  const FileObject& image = *project_.files()[2];
  EXPECT_EQ(image.fileSize(), Number(17));
  EXPECT_EQ(image.noLinesTotal(), Number(0));
  EXPECT_FALSE(image.noWords());
}

TEST_F(CurrentProjectTest, HasAllCountersOfUnreadableTextAtNought) {
  file("a.swift", "\xFF\n");
  read("a", {fileReference("a", "a.swift")});
  EXPECT_EQ(project_.files()[0]->noLinesTotal(), Number(0));
  EXPECT_EQ(project_.files()[0]->noWords(), Number(0));
  EXPECT_EQ(project_.files()[0]->fileSize(), Number(2));
}

TEST_F(CurrentProjectTest, IsNamedLikeItsBundle) {
  read("", {});
  EXPECT_EQ(project_.projectTitle(), "App");
  EXPECT_EQ(project_.initialPath(), folder("App.xcodeproj"));
  EXPECT_EQ(project_.projectFolder(), folder());
  EXPECT_TRUE(project_.arrayFiles());
}

TEST_F(CurrentProjectTest, TellsItsProgressByFiles) {
  for (const char* path : {"a.swift", "b.swift", "c.txt"})
    file(path);
  writeText(descriptionText("a, b, c", {fileReference("a", "a.swift"), fileReference("b", "b.swift"),
                                        fileReference("c", "c.txt")}));
  Progress progress;
  project_.parseFileAtPathAndDelegate(folder("App.xcodeproj"), &progress);
  EXPECT_THAT(progress.told, ElementsAre(-1, 0.5, 1, 2));
  Progress fault;
  project_.parseFileAtPathAndDelegate(folder("No.xcodeproj"), &fault);
  EXPECT_THAT(fault.told, ElementsAre(-1, 2));
}

TEST_F(CurrentProjectTest, MeasuresNothingAfterAFaultAndSaysWhereItIs) {
  file("a.swift");
  read("a, m, f", {fileReference("a", "a.swift"), fileReference("m", "m"), fileReference("f", "f.app")},
       "targets = (T); ");
  readText("{\n  objects = {};\n  rootObject\n}\n");
  EXPECT_EQ(project_.findings().error, "project.pbxproj:4: expected '=' after the key");
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(), IsEmpty());
  EXPECT_EQ(project_.findings().foreign, 0U);
  EXPECT_THAT(unreferenced(), IsEmpty());
  read("a", {fileReference("a", "a.swift")});
  EXPECT_THAT(files(), ElementsAre("a.swift")) << "a second read starts again";
}

TEST_F(CurrentProjectTest, SaysWhenTheDescriptionIsOfAnotherFormat) {
  readText("<?xml version=\"1.0\"?>");
  EXPECT_EQ(project_.findings().error, "project.pbxproj:1: expected an OpenStep property list, not XML");
  readText("{\"objects\": {}}");
  EXPECT_EQ(project_.findings().error, "project.pbxproj:1: expected an OpenStep property list, not JSON");
  readText("{rootObject = a;}");
  EXPECT_EQ(project_.findings().error, "project.pbxproj:1: expected a dictionary called 'objects'");
  readText("{objects = {}; rootObject = {};}");
  EXPECT_EQ(project_.findings().error, "project.pbxproj:1: expected a string called 'rootObject'");
}

TEST_F(CurrentProjectTest, SaysWhenTheDescriptionIsMissing) {
  project_.parseFileAtPathAndDelegate(folder("App.xcodeproj"), nullptr);
  EXPECT_EQ(project_.findings().error, "project.pbxproj:1: expected a file, but there is none");
  fs::create_directories(folder("App.xcodeproj/project.pbxproj"));
  project_.parseFileAtPathAndDelegate(folder("App.xcodeproj"), nullptr);
  EXPECT_EQ(project_.findings().error, "project.pbxproj:1: expected a file, but it is none");
}

TEST_F(CurrentProjectTest, SaysWhenTheDescriptionCannotBeRead) {
  writeText("{}");
  fs::permissions(disk_.path(), fs::perms::all);
  fs::permissions(folder("App.xcodeproj/project.pbxproj"), fs::perms::none);
  const Unprivileged unprivileged;
  project_.parseFileAtPathAndDelegate(folder("App.xcodeproj"), nullptr);
  EXPECT_EQ(project_.findings().error, "project.pbxproj:1: expected a file that can be read");
}

TEST_F(CurrentProjectTest, SaysWhenTheDescriptionIsOfMoreThanAGibibyte) {
  writeText("");
  const std::string path = folder("App.xcodeproj/project.pbxproj");
  fs::resize_file(path, (std::uintmax_t{1} << 30U) + 1);
  project_.parseFileAtPathAndDelegate(folder("App.xcodeproj"), nullptr);
  EXPECT_EQ(project_.findings().error, "project.pbxproj:1: expected at most 1 GiB");
}

/// What is on disk without belonging to the project.
class Leftovers : public DescribedProject {};

TEST_F(Leftovers, AreTheFilesOfAKnownKindThatAreNoRecord) {
  for (const char* path : {"a.swift", "b.swift", "S/c.png", "S/d.txt", "A.xcassets/e.pdf", "f.pdf"})
    file(path, "1234");
  read("a", {fileReference("a", "A.SWIFT")});
  EXPECT_THAT(unreferenced(), ElementsAre("A.xcassets/e.pdf", "S/c.png", "b.swift"));
  const auto leftovers = project_.unreferencedFiles();
  EXPECT_EQ(leftovers[1]->fileName(), "c.png");
  EXPECT_EQ(leftovers[1]->fileSize(), Number(4));
  EXPECT_FALSE(leftovers[1]->noLinesTotal());
}

TEST_F(Leftovers, StandInNoClosedOrHiddenFolderAndNoPackage) {
  for (const char* path : {"x.framework/a.h", ".git/b.c", "P/Package.swift", "P/Inner/c.swift", "S/.d.swift",
                           "S/Q/Package.swift", "S/e.swift", "R/Package.swift/f.swift"})
    file(path);
  fs::create_directory_symlink("S", folder("linked"));
  read("", {});
  EXPECT_THAT(unreferenced(), ElementsAre("R/Package.swift/f.swift", "S/e.swift"))
      << "a folder called Package.swift makes no package";
}

TEST_F(Leftovers, AreFoundAlsoWhereTheProjectsFolderIsAPackageClosedOrHidden) {
  file(".x.bundle/Package.swift");
  file(".x.bundle/a.swift");
  disk_.file("work/app/.x.bundle/App.xcodeproj/project.pbxproj",
             descriptionText("a", {fileReference("a", "a.swift")}));
  project_.parseFileAtPathAndDelegate(folder(".x.bundle/App.xcodeproj"), nullptr);
  EXPECT_THAT(files(), ElementsAre(".x.bundle/a.swift"));
  EXPECT_THAT(unreferenced(), ElementsAre(".x.bundle/Package.swift"));
}

}  // namespace
}  // namespace quillmeter::testing
