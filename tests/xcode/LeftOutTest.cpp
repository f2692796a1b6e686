#include "xcode/LeftOut.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "analysis/ParseProject.h"
#include "helpers/PlayedFileSystem.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

/// A project that both sets of rules can read, in "app" below a temporary folder.
class LeftOutFiles : public ::testing::Test {
 protected:
  void refer(const std::string& path, const std::string& type = "text") {
    const std::string identifier = "R" + std::to_string(++references_);
    section_ += "\t\t" + identifier + " /* x */ = {isa = PBXFileReference; lastKnownFileType = " + type +
                "; path = \"" + path + "\"; sourceTree = \"<group>\"; };\n";
    children_ += identifier + ", ";
  }
  void files(const std::string& stem, int count) const {
    for (int i = 0; i < count; ++i)
      disk_.file(stem + std::to_string(i) + ".m", "int x;\n");
  }
  /// Refers to files of the folder "Sources", which are there.
  void measuredFiles(int count) {
    files("app/Sources/s", count);
    for (int i = 0; i < count; ++i)
      refer("Sources/s" + std::to_string(i) + ".m");
  }

  /// Also counts how often the description is read for it.
  LeftOut leftOut(const std::string& objects = {}, const std::string& moreChildren = {}) {
    disk_.file("app/App.xcodeproj/project.pbxproj", "{ objects = {\n/* Begin PBXFileReference section */\n" +
                                                        section_ + "/* End PBXFileReference section */\n" +
                                                        objects +
                                                        "root = {isa = PBXProject; mainGroup = main; };\n"
                                                        "main = {isa = PBXGroup; children = (" +
                                                        children_ + moreChildren +
                                                        "); sourceTree = \"<group>\"; };\n"
                                                        "}; rootObject = root; }\n");
    ParseProject project;
    project.parseFileAtPathAndDelegate(disk_ / "app/App.xcodeproj", nullptr);
    const testing::PlayedFileSystem played([this](std::string_view call, const std::string& item) {
      if (call == "open" && item.ends_with("project.pbxproj")) ++descriptionsRead_;
      return DiskError();
    });
    return leftOutByClassic(project, played);
  }

  testing::TemporaryFolder disk_;
  std::string section_;
  std::string children_;
  int references_ = 0;
  int descriptionsRead_ = 0;
};

TEST_F(LeftOutFiles, CostsNoLookWhereNothingIsLeftOut) {
  measuredFiles(2);
  disk_.file("app/Art/a.png");
  disk_.file("app/Art/notes.m", "int x;\n");
  refer("Art", "folder");
  refer("one.swift");
  const LeftOut found = leftOut();
  EXPECT_FALSE(found.isMuch);
  EXPECT_EQ(found.count(), 0U);
  EXPECT_EQ(descriptionsRead_, 0) << "two at most of two are left out";
}

TEST_F(LeftOutFiles, AreThoseOfAFolderThatIsReferredToAsAWhole) {
  measuredFiles(2);
  files("app/Whole/Deep/w", 3);
  disk_.file("app/Whole/readme.txt");
  refer("Whole", "folder");
  const LeftOut found = leftOut();
  EXPECT_TRUE(found.isMuch);
  EXPECT_THAT(found.sources, ElementsAre(Pair("m", 3)));
}

TEST_F(LeftOutFiles, AreThoseOfAFolderElsewhere) {
  measuredFiles(2);
  files("Shared/w", 3);
  refer("../Shared", "folder");
  EXPECT_THAT(leftOut().sources, ElementsAre(Pair("m", 3)));
}

TEST_F(LeftOutFiles, AreThoseOfAFolderBehindALink) {
  measuredFiles(2);
  files("Shared/Whole/w", 3);
  std::filesystem::create_directory_symlink(disk_ / "Shared", disk_ / "app/Linked");
  refer("Linked/Whole", "folder");
  EXPECT_THAT(leftOut().sources, ElementsAre(Pair("m", 3)));
}

TEST_F(LeftOutFiles, AreThoseOfASynchronisedFolder) {
  measuredFiles(2);
  files("app/Today/w", 3);
  EXPECT_THAT(leftOut("sync = {isa = PBXFileSystemSynchronizedRootGroup; path = Today; sourceTree = "
                      "\"<group>\"; };\n",
                      "sync, ")
                  .sources,
              ElementsAre(Pair("m", 3)));
}

TEST_F(LeftOutFiles, AreReferencesOfOtherKindsByExtensionMostFirst) {
  measuredFiles(2);
  for (const char* name : {"a.metal", "b.swift", "c.swift", "d.txt"}) {
    disk_.file("app/" + std::string(name), "x\n");
    refer(name);
  }
  const LeftOut found = leftOut();
  EXPECT_TRUE(found.isMuch);
  EXPECT_THAT(found.sources, ElementsAre(Pair("swift", 2), Pair("metal", 1)));
}

TEST_F(LeftOutFiles, AreFilesThatTheClassicRulesLookForInTheWrongPlace) {
  files("Shared/w", 3);
  measuredFiles(2);
  std::string inGroup;
  for (int i = 0; i < 3; ++i) {
    const std::string identifier = "W" + std::to_string(i);
    section_ += identifier + " /* w */ = {isa = PBXFileReference; path = w" + std::to_string(i) +
                ".m; sourceTree = \"<group>\"; };\n";
    inGroup += identifier + ", ";
  }
  const LeftOut found = leftOut("shared = {isa = PBXGroup; path = ../Shared; children = (" + inGroup +
                                    "); sourceTree = \"<group>\"; };\n",
                                "shared, ");
  EXPECT_THAT(found.sources, ElementsAre(Pair("m", 3)));
}

TEST_F(LeftOutFiles, OfFoldersInFoldersAreCountedOnce) {
  measuredFiles(3);
  files("app/Whole/Deep/w", 2);
  refer("Whole", "folder");
  refer("Whole/Deep", "folder");
  const LeftOut found = leftOut();
  EXPECT_FALSE(found.isMuch);
  EXPECT_EQ(descriptionsRead_, 0);
}

TEST_F(LeftOutFiles, AreNoneWhereTheDescriptionIsGone) {
  refer("a.swift");
  EXPECT_THAT(leftOut().sources, IsEmpty());
  EXPECT_EQ(descriptionsRead_, 1) << "nothing was measured, so it is looked at";
}

}  // namespace
}  // namespace quillmeter
