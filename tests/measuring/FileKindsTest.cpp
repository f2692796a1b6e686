#include "measuring/FileKinds.h"

#include <gmock/gmock.h>

#include <set>

#include "analysis/ParseProject.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The classic table with one line more.
FileKindTable classicWith(const FileKindEntry& entry) {
  auto entries = classicKinds().entries();
  entries.push_back(entry);
  return {classicKinds().groups(), entries};
}

TEST(ClassicKinds, ListsHaveTheirEntriesInTheirOrder) {
  const ParseProject project;
  EXPECT_THAT(project.acceptedCodeFileFormats(), ElementsAre("c", "cpp", "h", "hh", "m", "mm", "pch"));
  EXPECT_THAT(project.acceptedImagesFormats(), ElementsAre("jpg", "png", "tiff", "icns"));
  EXPECT_THAT(project.acceptedOtherFormats(), ElementsAre("xib"));
  EXPECT_THAT(classicKinds().extensions(FileKind::none), IsEmpty());
}

TEST(ClassicKinds, CompiledInterfaceFilesAreListedAndNothingElse) {
  EXPECT_EQ(classicKinds().kind("nib"), FileKind::none);
  EXPECT_THAT(classicKinds().extensions(FileGroup::interfaceFiles), ElementsAre("xib"));
  EXPECT_THAT(classicKinds().listedExtensions({FileGroup::interfaceFiles}), ElementsAre("xib", "nib"));
}

TEST(ClassicKinds, EveryEntryHasItsGroupAndItsOwnExtension) {
  std::set<std::string_view> extensions;
  for (const FileKindEntry& entry : classicKinds().entries()) {
    EXPECT_TRUE(classicKinds().allGroups().contains(entry.group)) << entry.extension;
    EXPECT_TRUE(extensions.insert(entry.extension).second) << entry.extension;
  }
}

TEST(FileKindTable, AFileGoesByTheTextBehindItsLastDotInAnyLetterCase) {
  EXPECT_EQ(classicKinds().kindOfPath("/a/b.c/main.MM"), FileKind::code);
  EXPECT_EQ(classicKinds().kindOfPath("Icon.IcNs"), FileKind::image);
  EXPECT_EQ(classicKinds().kindOfPath("png"), FileKind::image);
  for (const char* path : {"", ".", "a.", "src.old/Makefile", "a.hpp", "a.nib", "a.m ", "a.tiffs", "a.xi"})
    EXPECT_EQ(classicKinds().kindOfPath(path), FileKind::none) << path;
  EXPECT_EQ(classicKinds().kindOfPath("a." + std::string(100000, 'm')), FileKind::none);
}

TEST(FileKindTable, LettersOutsideAsciiAreLowerCasedToo) {
  const FileKindTable kinds = classicWith({.extension = "kkkk", .group = FileGroup::c, .picture = "x"});
  EXPECT_EQ(kinds.kindOfPath("a.\u212A\u212A\u212A\u212A"), FileKind::code) << "four Kelvin signs";
  EXPECT_EQ(kinds.kindOfPath("a.\u212A\u212A\u212A\u212A\u212A"), FileKind::none);
  EXPECT_EQ(kinds.kindOfPath("a.kk\xFFk"), FileKind::none);
}

TEST(FileKindTable, AnExtensionLongerThanTheClassicOnesIsFound) {
  const FileKindTable kinds =
      classicWith({.extension = "storyboard", .group = FileGroup::interfaceFiles, .picture = "x"});
  EXPECT_EQ(kinds.kindOfPath("Main.Storyboard"), FileKind::interface);
  EXPECT_EQ(kinds.kindOfPath("Main.storyboards"), FileKind::none);
  EXPECT_THAT(kinds.extensions(FileKind::interface), ElementsAre("xib", "storyboard"));
}

TEST(FileKindTable, OfTwoEntriesWithOneExtensionTheFirstHolds) {
  const FileKindTable kinds = classicWith({.extension = "h", .group = FileGroup::images, .picture = "x"});
  EXPECT_EQ(kinds.kind("h"), FileKind::code);
  EXPECT_THAT(kinds.extensions(FileKind::image), ElementsAre("jpg", "png", "tiff", "icns"));
}

TEST(FileKindTable, ACopyOutlivesWhatItWasCopiedFrom) {
  auto original = std::make_unique<FileKindTable>(classicKinds());
  const FileKindTable copy = *original;
  original.reset();
  EXPECT_EQ(copy.find("cpp")->picture, "icon_extension_cpp");
  EXPECT_THAT(copy.extensions(FileKind::interface), ElementsAre("xib"));
}

TEST(FileKindTable, WithoutEntriesKnowsNothing) {
  const FileKindTable kinds({}, {});
  EXPECT_EQ(kinds.kindOfPath("a.c"), FileKind::none);
  EXPECT_EQ(kinds.find(""), nullptr);
  EXPECT_TRUE(kinds.allGroups().empty());
}

TEST(ExtensionsText, WritesCaptionsAndSentences) {
  const std::vector<std::string_view> three = {"c", "h", "m"};
  EXPECT_EQ(extensionsText(three), ".c, .h, .m");
  EXPECT_EQ(extensionsText(three, " or "), ".c, .h or .m");
  EXPECT_EQ(extensionsText(std::span(three).first(1), " or "), ".c");
  EXPECT_EQ(extensionsText({}), "");
}

}  // namespace
}  // namespace quillmeter
