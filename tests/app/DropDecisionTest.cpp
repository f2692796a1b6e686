#include "app/DropDecision.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

DragOffer offer(const std::string& path) {
  return {.offersGeneric = true, .fileName = path};
}

void expectInvalidButNotRefused(const DragOffer& offered) {
  const DragAnswer answer = draggingEnteredAnswer(offered);
  EXPECT_EQ(answer.callback, DropCallback::draggingInvalid);
  EXPECT_EQ(answer.operation, 4U);
}

void expectTakenInSilence(const DragOffer& offered) {
  const DropAnswer answer = performDragOperationAnswer(offered);
  EXPECT_TRUE(answer.taken);
  EXPECT_EQ(answer.selectedFolder, std::nullopt);
}

TEST(DropDecision, SourceThatDoesNotOfferTheGenericOperationIsRefused) {
  const TemporaryFolder folder;
  testing::writeProject(folder, {});
  const DragAnswer answer = draggingEnteredAnswer({.offersGeneric = false, .fileName = folder.path()});
  EXPECT_EQ(answer.callback, DropCallback::draggingInvalid);
  EXPECT_EQ(answer.operation, 0U);
}

TEST(DropDecision, DragWithoutFilesIsLetInWithoutAWordAndNotTaken) {
  const DragOffer link{.offersGeneric = true, .fileName = std::nullopt};
  EXPECT_EQ(draggingEnteredAnswer(link).callback, DropCallback::none);
  EXPECT_EQ(draggingEnteredAnswer(link).operation, 4U);
  EXPECT_FALSE(performDragOperationAnswer(link).taken);
  EXPECT_EQ(performDragOperationAnswer(link).selectedFolder, std::nullopt);
}

TEST(DropDecision, FolderAroundAProjectIsValidAndSelected) {
  const TemporaryFolder folder;
  testing::writeProject(folder, {});
  EXPECT_EQ(draggingEnteredAnswer(offer(folder.path())).callback, DropCallback::draggingEntered);
  EXPECT_EQ(draggingEnteredAnswer(offer(folder.path())).operation, 4U);
  EXPECT_TRUE(performDragOperationAnswer(offer(folder.path())).taken);
  EXPECT_EQ(performDragOperationAnswer(offer(folder.path())).selectedFolder, folder.path());
}

TEST(DropDecision, LetterCaseOfTheSuffixDoesNotMatter) {
  const TemporaryFolder folder;
  folder.folder("a.XcodeProj");
  EXPECT_EQ(draggingEnteredAnswer(offer(folder.path())).callback, DropCallback::draggingEntered);
}

TEST(DropDecision, EntryNeedNotBeAFolderToQualify) {
  const TemporaryFolder folder;
  folder.file("a.xcodeproj", "a file");
  EXPECT_EQ(performDragOperationAnswer(offer(folder.path())).selectedFolder, folder.path());
}

TEST(DropDecision, BundleItselfIsShownAsInvalidAndNotOpened) {
  const TemporaryFolder folder;
  const std::string bundle = testing::writeProject(folder, {});
  expectInvalidButNotRefused(offer(bundle));
  expectTakenInSilence(offer(bundle));
}

TEST(DropDecision, FileIsShownAsInvalidAndNotOpened) {
  const TemporaryFolder folder;
  const std::string file = folder.file("a.xcodeproj.txt");
  expectInvalidButNotRefused(offer(file));
  expectTakenInSilence(offer(file));
}

TEST(DropDecision, FolderWithoutAProjectOrDeepInItIsInvalid) {
  const TemporaryFolder folder;
  expectInvalidButNotRefused(offer(folder.path()));
  folder.folder("deeper/a.xcodeproj");
  expectInvalidButNotRefused(offer(folder.path()));
  expectTakenInSilence(offer(folder.path()));
}

TEST(DropDecision, MissingFolderIsInvalid) {
  expectInvalidButNotRefused(offer("/nowhere/at/all"));
  expectTakenInSilence(offer("/nowhere/at/all"));
}

TEST(DropDecision, FolderThatVanishesBetweenDragAndDropIsTakenInSilence) {
  const TemporaryFolder folder;
  folder.folder("p/a.xcodeproj");
  EXPECT_EQ(draggingEnteredAnswer(offer(folder / "p")).callback, DropCallback::draggingEntered);
  std::filesystem::remove_all(folder / "p");
  expectTakenInSilence(offer(folder / "p"));
}

TEST(DropDecision, NameThatIsNotUtf8IsFoundOnTheDisk) {
  const TemporaryFolder folder;
  folder.folder("latin\xE4/a.xcodeproj");
  EXPECT_EQ(performDragOperationAnswer(offer(folder / "latin\xE4")).selectedFolder, folder / "latin\xE4");
}

TEST(DropDecision, LinkToAFolderCountsAsTheFolder) {
  const TemporaryFolder folder;
  folder.folder("p/a.xcodeproj");
  std::filesystem::create_directory_symlink(folder / "p", folder / "link");
  EXPECT_EQ(draggingEnteredAnswer(offer(folder / "link")).callback, DropCallback::draggingEntered);
}

}  // namespace
}  // namespace quillmeter
