#include "measuring/FileObject.h"

#include <gtest/gtest.h>

#include "analysis/ParseProject.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

FileObject named(const std::string& name) {
  FileObject file;
  file.setFileName(name);
  return file;
}

TEST(FileExtension, IsTheLowerCasedTextBehindTheLastDot) {
  EXPECT_EQ(named("archive.tar.GZ").getFileExtension(), "gz");
  EXPECT_EQ(named("Makefile").getFileExtension(), "makefile");
  EXPECT_EQ(named("name.").getFileExtension(), "");
  EXPECT_EQ(named(".gitignore").getFileExtension(), "gitignore");
  EXPECT_EQ(named("png").getFileExtension(), "png");
}

TEST(FileExtension, IsAbsentWithoutAName) {
  EXPECT_EQ(FileObject().getFileExtension(), std::nullopt);
  EXPECT_FALSE(ParseProject().isSourceFileType(FileObject()));
}

TEST(Kloc, CountsEmptyLinesInDecimalThousands) {
  FileObject file;
  file.setNoLinesTotal(Number(1500));
  file.setNoLinesWithoutSpaces(Number(1200));
  EXPECT_DOUBLE_EQ(file.kloc(), 1.5);
}

TEST(Kloc, IsZeroWithoutLines) {
  EXPECT_EQ(FileObject().kloc(), 0.0);
}

TEST(AbsentCounters, ReadAsZero) {
  EXPECT_EQ(integerValue(FileObject().noWords()), 0);
  EXPECT_EQ(doubleValue(FileObject().fileSize()), 0.0);
}

TEST(FileKinds, GoByTheExtensionInAnyLetterCase) {
  const ParseProject project;
  for (const char* name : {"a.c", "a.cpp", "a.h", "a.hh", "main.MM", "a.m", "Prefix.pch"}) {
    EXPECT_TRUE(project.isSourceFileType(named(name))) << name;
    EXPECT_FALSE(project.isImageFileType(named(name))) << name;
    EXPECT_FALSE(project.isXIBFileType(named(name))) << name;
  }
  for (const char* name : {"a.jpg", "a.png", "a.tiff", "Icon.ICNS", "png"}) {
    EXPECT_TRUE(project.isImageFileType(named(name))) << name;
    EXPECT_FALSE(project.isSourceFileType(named(name))) << name;
  }
  EXPECT_TRUE(project.isXIBFileType(named("VIEW.XIB")));
}

TEST(FileKinds, KnowNoOtherExtension) {
  const ParseProject project;
  for (const char* name :
       {"a.jpeg", "a.tif", "a.gif", "a.hpp", "a.cc", "a.cxx", "a.storyboard", "a.plist", "a.nib", "a"}) {
    const FileObject file = named(name);
    EXPECT_FALSE(project.isSourceFileType(file) || project.isImageFileType(file) ||
                 project.isXIBFileType(file))
        << name;
  }
}

TEST(FileKinds, TellIconSetsFromOtherImages) {
  const ParseProject project;
  EXPECT_FALSE(project.isImageFileTypeWithoutICNS(named("Icon.ICNS")));
  EXPECT_TRUE(project.isImageFileTypeWithoutICNS(named("a.tiff")));
}

TEST(FileKinds, LetPatternsReadSourcesButNoHeaders) {
  const ParseProject project;
  for (const char* name : {"a.c", "a.cpp", "a.m", "main.MM"})
    EXPECT_TRUE(project.isSourceFileForRegex(named(name)));
  for (const char* name : {"a.h", "a.hh", "Prefix.pch", "a.xib"})
    EXPECT_FALSE(project.isSourceFileForRegex(named(name)));
}

TEST(Totals, CountEachKind) {
  FileList files;
  for (const char* name : {"a.m", "b.m", "c.m", "a.h", "b.h", "p.pch", "a.png", "b.png", "i.icns", "v.xib"}) {
    files.push_back(testing::record({name}));
  }
  const auto project = testing::projectWith(files);
  EXPECT_EQ(project->getNumberCodeFiles(), 6U);
  EXPECT_EQ(project->getNumberImageFiles(), 3U);
  EXPECT_EQ(project->getNumberXIBFiles(), 1U);
  EXPECT_EQ(project->getNumberInstanceMethods() + project->getNumberStaticMethods(), 0U);
}

TEST(Totals, CountAFileAsOftenAsItOccurs) {
  const auto file = testing::record({"a.m"});
  EXPECT_EQ(testing::projectWith({file, file})->getNumberCodeFiles(), 2U);
}

TEST(Totals, AreZeroBeforeTheFirstReadAndForAnEmptyProject) {
  EXPECT_EQ(ParseProject().arrayFiles(), std::nullopt);
  EXPECT_EQ(ParseProject().getNumberCodeFiles(), 0U);
  EXPECT_EQ(testing::projectWith({})->getNumberImageFiles(), 0U);
  EXPECT_EQ(testing::projectWith({})->getNumberXIBFiles(), 0U);
}

}  // namespace
}  // namespace quillmeter
