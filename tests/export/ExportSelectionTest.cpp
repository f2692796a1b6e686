#include "export/ExportSelection.h"

#include <gmock/gmock.h>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::record;

const FileGroups kAll = classicKinds().allGroups();

std::vector<ExportedFile> filesToExport(const FileList& files, const FileGroups& groups) {
  return quillmeter::filesToExport(files, groups, classicKinds());
}

/// The type that the file's row names; empty when the file is left out.
std::string_view typeOf(const FileObject& file, const FileGroups& groups) {
  const FileGroupEntry* group = exportGroup(file, groups, classicKinds());
  return group == nullptr ? std::string_view() : group->csvType;
}

std::vector<std::string> names(const std::vector<ExportedFile>& files) {
  std::vector<std::string> result;
  for (const ExportedFile& exported : files)
    result.push_back(exported.file->fileName().value_or("?"));
  return result;
}

FileList filesNamed(const std::vector<std::string>& fileNames) {
  FileList files;
  for (const std::string& name : fileNames)
    files.push_back(record({.name = name}));
  return files;
}

TEST(ExportSelection, EachKindTakesItsOwnExtensions) {
  const FileList files = filesNamed({"1.c", "2.cpp", "3.h", "4.hh", "5.pch", "6.m", "7.mm", "8.jpg", "9.png",
                                     "a.tiff", "b.icns", "c.xib", "d.txt", "e.cc", "f.storyboard"});
  EXPECT_THAT(names(filesToExport(files, {FileGroup::c})), ElementsAre("1.c", "2.cpp"));
  EXPECT_THAT(names(filesToExport(files, {FileGroup::headers})), ElementsAre("3.h", "4.hh", "5.pch"));
  EXPECT_THAT(names(filesToExport(files, {FileGroup::objectiveC})), ElementsAre("6.m", "7.mm"));
  EXPECT_THAT(names(filesToExport(files, {FileGroup::images})),
              ElementsAre("8.jpg", "9.png", "a.tiff", "b.icns"));
  EXPECT_THAT(names(filesToExport(files, {FileGroup::interfaceFiles})), ElementsAre("c.xib"));
  EXPECT_THAT(names(filesToExport(files, {})), IsEmpty());
  EXPECT_EQ(filesToExport(files, kAll).size(), 12U);
}

TEST(ExportSelection, KindsAreNamedForTheTable) {
  EXPECT_EQ(typeOf(*record({.name = "a.c"}), kAll), "source");
  EXPECT_EQ(typeOf(*record({.name = "a.mm"}), kAll), "source");
  EXPECT_EQ(typeOf(*record({.name = "x.pch"}), kAll), "header");
  EXPECT_EQ(typeOf(*record({.name = "a.png"}), kAll), "image");
  EXPECT_EQ(typeOf(*record({.name = "a.xib"}), kAll), "XIB");
  EXPECT_EQ(typeOf(*record({.name = "a.txt"}), kAll), "");
}

TEST(ExportSelection, PrecompiledHeaderNeedsTheHeaders) {
  const FileGroups others = {FileGroup::c, FileGroup::objectiveC, FileGroup::images,
                             FileGroup::interfaceFiles};
  EXPECT_EQ(typeOf(*record({.name = "x.pch"}), others), "");
}

TEST(ExportSelection, LetterCaseOfTheExtensionDoesNotMatter) {
  EXPECT_EQ(typeOf(*record({.name = "x.C"}), {FileGroup::c}), "source");
  EXPECT_EQ(typeOf(*record({.name = "LOGO.PNG"}), {FileGroup::images}), "image");
}

TEST(ExportSelection, NameWithoutADotIsItsOwnExtension) {
  EXPECT_EQ(typeOf(*record({.name = "h"}), {FileGroup::headers}), "header");
  EXPECT_EQ(typeOf(*record({.name = "Makefile"}), kAll), "");
}

TEST(ExportSelection, NamesComeInOrderWithoutRegardToLetterCase) {
  EXPECT_THAT(names(filesToExport(filesNamed({"b.m", "A.m", "a.h"}), kAll)),
              ElementsAre("a.h", "A.m", "b.m"));
  EXPECT_THAT(names(filesToExport(filesNamed({"B.c", "ä.c", "Z.c", "a.c", "Ä.h"}), kAll)),
              ElementsAre("a.c", "B.c", "Z.c", "ä.c", "Ä.h"));
}

TEST(ExportSelection, FilesOfEqualNamesKeepTheOrderOfTheProject) {
  FileList files = {record({.name = "a.c", .size = 1}), record({.name = "A.C", .size = 2}),
                    record({.name = "a.c", .size = 3})};
  std::vector<std::int64_t> sizes;
  for (const ExportedFile& exported : filesToExport(files, kAll))
    sizes.push_back(integerValue(exported.file->fileSize()));
  EXPECT_THAT(sizes, ElementsAre(1, 2, 3));
}

TEST(ExportSelection, RecordsWithoutANameAreLeftOut) {
  const FileList files = {std::make_shared<FileObject>(), nullptr, record({.name = "a.c"})};
  EXPECT_THAT(names(filesToExport(files, kAll)), ElementsAre("a.c"));
}

TEST(ExportSelection, GroupsAreChosenByTheirKeys) {
  EXPECT_EQ(fileGroupsNamed("objc,c", classicKinds()), (FileGroups{FileGroup::c, FileGroup::objectiveC}));
  EXPECT_EQ(fileGroupsNamed("c,headers,objc,images,xib", classicKinds()),
            (FileGroups{FileGroup::c, FileGroup::headers, FileGroup::objectiveC, FileGroup::images,
                        FileGroup::interfaceFiles}));
  for (const char* wrong : {"", "c,", ",c", "swift", "C", "c headers", "c, headers"})
    EXPECT_FALSE(fileGroupsNamed(wrong, classicKinds()).has_value()) << wrong;
}

TEST(ExportSelection, AllKeysAreAListAndAPhrase) {
  EXPECT_EQ(fileGroupKeys(classicKinds()), "c,headers,objc,images,xib");
  EXPECT_EQ(fileGroupKeysInWords(classicKinds()), "c, headers, objc, images and xib");
}

}  // namespace
}  // namespace quillmeter
