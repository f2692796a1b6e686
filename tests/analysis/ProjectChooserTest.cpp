#include "analysis/ProjectChooser.h"

#include <gtest/gtest.h>

#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

TEST(ChosenProject, IsTheFirstBundleOfTheListingInAnyLetterCase) {
  const TemporaryFolder folder;
  folder.folder("a.XCODEPROJ");
  folder.folder("B.xcodeproj");
  EXPECT_EQ(chosenProject(folder.path()), folder / "B.xcodeproj");
  const TemporaryFolder other;
  other.folder("b.xcodeproj");
  other.folder("a.XCODEPROJ");
  EXPECT_EQ(chosenProject(other.path()), other / "a.XCODEPROJ");
}

TEST(ChosenProject, IsTheFolderItselfWhenItHoldsNoBundle) {
  const TemporaryFolder folder;
  const std::string bundle = folder.folder("App.xcodeproj");
  folder.file("App.xcodeproj/project.pbxproj");
  EXPECT_EQ(chosenProject(bundle), bundle);
  EXPECT_EQ(chosenProject(folder / "missing"), folder / "missing");
}

TEST(ChosenProject, DoesNotLookIntoFolders) {
  const TemporaryFolder folder;
  folder.folder("inner/App.xcodeproj");
  EXPECT_EQ(chosenProject(folder.path()), folder.path());
}

TEST(ChosenProject, KeepsAFolderNameThatIsNotUtf8) {
  const TemporaryFolder folder;
  const std::string project = folder.folder("\xff\xfe/App.xcodeproj");
  EXPECT_EQ(chosenProject(folder / "\xff\xfe"), project);
}

TEST(HoldsProject, IsFalseForFilesBundlesAndMissingFolders) {
  const TemporaryFolder folder;
  folder.folder("App.xcodeproj");
  EXPECT_TRUE(holdsProject(folder.path()));
  EXPECT_FALSE(holdsProject(folder / "App.xcodeproj"));
  EXPECT_FALSE(holdsProject(folder.file("x.xcodeproj.txt")));
  EXPECT_FALSE(holdsProject(folder / "missing"));
}

}  // namespace
}  // namespace quillmeter
