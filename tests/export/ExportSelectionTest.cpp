#include "export/ExportSelection.h"

#include <gmock/gmock.h>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::record;

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
  EXPECT_THAT(names(filesToExport(files, {.c = true})), ElementsAre("1.c", "2.cpp"));
  EXPECT_THAT(names(filesToExport(files, {.headers = true})), ElementsAre("3.h", "4.hh", "5.pch"));
  EXPECT_THAT(names(filesToExport(files, {.objc = true})), ElementsAre("6.m", "7.mm"));
  EXPECT_THAT(names(filesToExport(files, {.images = true})),
              ElementsAre("8.jpg", "9.png", "a.tiff", "b.icns"));
  EXPECT_THAT(names(filesToExport(files, {.xib = true})), ElementsAre("c.xib"));
  EXPECT_THAT(names(filesToExport(files, {})), IsEmpty());
  EXPECT_EQ(filesToExport(files, ExportKinds::all()).size(), 12U);
}

TEST(ExportSelection, KindsAreNamedForTheTable) {
  const ExportKinds all = ExportKinds::all();
  EXPECT_EQ(exportKind(*record({.name = "a.c"}), all), ExportKind::source);
  EXPECT_EQ(exportKind(*record({.name = "a.mm"}), all), ExportKind::source);
  EXPECT_EQ(exportKind(*record({.name = "x.pch"}), all), ExportKind::header);
  EXPECT_EQ(exportKind(*record({.name = "a.png"}), all), ExportKind::image);
  EXPECT_EQ(exportKind(*record({.name = "a.xib"}), all), ExportKind::xib);
  EXPECT_EQ(exportKind(*record({.name = "a.txt"}), all), std::nullopt);
}

TEST(ExportSelection, PrecompiledHeaderNeedsTheHeaders) {
  ExportKinds kinds = ExportKinds::all();
  kinds.headers = false;
  EXPECT_EQ(exportKind(*record({.name = "x.pch"}), kinds), std::nullopt);
}

TEST(ExportSelection, LetterCaseOfTheExtensionDoesNotMatter) {
  EXPECT_EQ(exportKind(*record({.name = "x.C"}), {.c = true}), ExportKind::source);
  EXPECT_EQ(exportKind(*record({.name = "LOGO.PNG"}), {.images = true}), ExportKind::image);
}

TEST(ExportSelection, NameWithoutADotIsItsOwnExtension) {
  EXPECT_EQ(exportKind(*record({.name = "h"}), {.headers = true}), ExportKind::header);
  EXPECT_EQ(exportKind(*record({.name = "Makefile"}), ExportKinds::all()), std::nullopt);
}

TEST(ExportSelection, NamesComeInOrderWithoutRegardToLetterCase) {
  EXPECT_THAT(names(filesToExport(filesNamed({"b.m", "A.m", "a.h"}), ExportKinds::all())),
              ElementsAre("a.h", "A.m", "b.m"));
  EXPECT_THAT(names(filesToExport(filesNamed({"B.c", "ä.c", "Z.c", "a.c", "Ä.h"}), ExportKinds::all())),
              ElementsAre("a.c", "B.c", "Z.c", "ä.c", "Ä.h"));
}

TEST(ExportSelection, FilesOfEqualNamesKeepTheOrderOfTheProject) {
  FileList files = {record({.name = "a.c", .size = 1}), record({.name = "A.C", .size = 2}),
                    record({.name = "a.c", .size = 3})};
  std::vector<std::int64_t> sizes;
  for (const ExportedFile& exported : filesToExport(files, ExportKinds::all()))
    sizes.push_back(integerValue(exported.file->fileSize()));
  EXPECT_THAT(sizes, ElementsAre(1, 2, 3));
}

TEST(ExportSelection, RecordsWithoutANameAreLeftOut) {
  const FileList files = {std::make_shared<FileObject>(), nullptr, record({.name = "a.c"})};
  EXPECT_THAT(names(filesToExport(files, ExportKinds::all())), ElementsAre("a.c"));
}

TEST(ExportSelection, KindsAreChosenByTheirNames) {
  const auto two = exportKindsNamed("objc,c");
  ASSERT_TRUE(two.has_value());
  EXPECT_TRUE(two->c && two->objc);
  EXPECT_FALSE(two->headers || two->images || two->xib);
  const auto all = exportKindsNamed("c,headers,objc,images,xib");
  ASSERT_TRUE(all.has_value());
  EXPECT_TRUE(all->c && all->headers && all->objc && all->images && all->xib);
  for (const char* wrong : {"", "c,", ",c", "swift", "C", "c headers", "c, headers"})
    EXPECT_FALSE(exportKindsNamed(wrong).has_value()) << wrong;
}

}  // namespace
}  // namespace quillmeter
