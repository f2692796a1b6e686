#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "analysis/ParseProject.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

const std::string kSamples = QUILLMETER_SOURCE_DIR "/samples/";

/// The counters of one file, or their sums for several; an absent one is 0.
struct Counters {
  std::int64_t size = 0;
  std::int64_t lines = 0;
  std::int64_t linesWithoutSpaces = 0;
  std::int64_t comments = 0;
  std::int64_t words = 0;
  std::int64_t characters = 0;
  std::int64_t charactersWithoutSpaces = 0;

  bool operator==(const Counters&) const = default;
  Counters& operator+=(const FileObject& file) {
    size += integerValue(file.fileSize());
    lines += integerValue(file.noLinesTotal());
    linesWithoutSpaces += integerValue(file.noLinesWithoutSpaces());
    comments += integerValue(file.noLinesComments());
    words += integerValue(file.noWords());
    characters += integerValue(file.noCharactersTotal());
    charactersWithoutSpaces += integerValue(file.noCharactersWithoutSpaces());
    return *this;
  }
  friend void PrintTo(const Counters& counters, std::ostream* out) {
    *out << counters.size << " bytes, " << counters.lines << " lines, " << counters.linesWithoutSpaces
         << " not empty, " << counters.comments << " comments, " << counters.words << " words, "
         << counters.characters << " characters, " << counters.charactersWithoutSpaces << " without spaces";
  }
};

/// The project that lies in samples/ for everybody to try. Its totals are printed in documents and seen in
/// pictures, so a change to a sample file is a change to them.
class SampleProject : public ::testing::Test {
 protected:
  void SetUp() override {
    project_.parseFileAtPathAndDelegate(kSamples + "Notebook/Notebook.xcodeproj", nullptr);
  }

  static std::string relativePath(const FileObject& file) { return file.filePath()->substr(kSamples.size()); }

  /// The records of a path relative to samples/.
  FileList records(const std::string& path) const {
    FileList found;
    std::copy_if(project_.files().begin(), project_.files().end(), std::back_inserter(found),
                 [&](const auto& file) { return relativePath(*file) == path; });
    return found;
  }

  Counters counters(const std::string& path) const {
    const FileList found = records(path);
    EXPECT_THAT(found, SizeIs(1)) << path;
    Counters sum;
    for (const auto& file : found)
      sum += *file;
    return sum;
  }

  template <typename Predicate>
  Counters totals(Predicate&& isWanted) const {
    Counters sum;
    for (const auto& file : project_.files())
      if (isWanted(*file)) sum += *file;
    return sum;
  }

  ParseProject project_;
};

TEST_F(SampleProject, HoldsFilesOfEveryCodeKindAndOfTheOthersButTiff) {
  std::map<std::string, int> files;
  for (const auto& file : project_.files())
    ++files[file->getFileExtension().value_or("")];
  const std::map<std::string, int> expected = {{"c", 1},   {"cpp", 1}, {"h", 10},  {"hh", 1},
                                               {"m", 8},   {"mm", 1},  {"pch", 1}, {"xib", 3},
                                               {"png", 3}, {"jpg", 1}, {"icns", 1}};
  EXPECT_EQ(files, expected);
}

TEST_F(SampleProject, CountsItsFilesByKind) {
  EXPECT_EQ(project_.projectTitle(), "Notebook");
  EXPECT_THAT(project_.files(), SizeIs(31));
  EXPECT_EQ(project_.getNumberCodeFiles(), 23U);
  EXPECT_EQ(project_.getNumberImageFiles(), 5U);
  EXPECT_EQ(project_.getNumberXIBFiles(), 3U);
}

TEST_F(SampleProject, HasOneFileTwiceBecauseItIsReferencedTwice) {
  std::map<std::string, int> times;
  for (const auto& file : project_.files())
    ++times[relativePath(*file)];
  std::vector<std::string> repeated;
  for (const auto& [path, count] : times)
    if (count > 1) repeated.push_back(path + " x" + std::to_string(count));
  EXPECT_THAT(repeated, ElementsAre("Notebook/Model/Tag.h x2"));
}

TEST_F(SampleProject, LeavesOutTheReferenceWhoseFileIsMissing) {
  std::ifstream description(kSamples + "Notebook/Notebook.xcodeproj/project.pbxproj");
  const std::string text{std::istreambuf_iterator<char>(description), {}};
  EXPECT_THAT(text, HasSubstr("path = AttachmentCell.m;"));
  for (const auto& file : project_.files())
    EXPECT_NE(file->fileName(), "AttachmentCell.m");
}

TEST_F(SampleProject, FindsTheFilesBesideItsFolder) {
  EXPECT_THAT(records("Shared/DateFormatting.h"), SizeIs(1));
  EXPECT_THAT(records("Shared/DateFormatting.m"), SizeIs(1));
}

TEST_F(SampleProject, FindsTheFileWhosePathHasABlank) {
  EXPECT_THAT(records("Notebook/Text Export/MarkdownWriter.m"), SizeIs(1));
}

TEST_F(SampleProject, MeasuresItsLargestFile) {
  EXPECT_EQ(counters("Notebook/Windows/NoteEditor.m"), (Counters{16078, 575, 490, 32, 1712, 14510, 13288}));
}

TEST_F(SampleProject, CountsTheLineEndsOfWindowsTwice) {
  EXPECT_EQ(counters("Notebook/Support/utf8scan.c"), (Counters{2404, 195, 82, 13, 374, 2128, 1836}));
}

TEST_F(SampleProject, TakesAFileForCommentsWhenItsFirstOneIsClosedOnItsOwnLine) {
  EXPECT_EQ(counters("Notebook/Support/utf8scan.h"), (Counters{583, 30, 22, 22, 68, 552, 506}));
}

TEST_F(SampleProject, MeasuresAnInterfaceFileAsText) {
  EXPECT_EQ(counters("Notebook/English.lproj/NoteWindow.xib"),
            (Counters{8018, 117, 116, 0, 363, 5268, 5021}));
}

TEST_F(SampleProject, KnowsOnlyTheSizeOfAPicture) {
  const FileList found = records("Notebook/Resources/Notebook.icns");
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0]->fileSize(), Number(29111));
  EXPECT_EQ(found[0]->noLinesTotal(), Number(0));
  EXPECT_EQ(found[0]->noWords(), std::nullopt);
}

TEST_F(SampleProject, AddsUpToTheTotalsThatTheDocumentsName) {
  const auto isSource = [&](const FileObject& file) { return project_.isSourceFileType(file); };
  const auto isInterface = [&](const FileObject& file) { return project_.isXIBFileType(file); };
  const auto isImage = [&](const FileObject& file) { return project_.isImageFileType(file); };
  EXPECT_EQ(totals(isSource), (Counters{58994, 2299, 1820, 286, 6623, 52012, 47209}));
  EXPECT_EQ(totals(isInterface), (Counters{21631, 349, 346, 0, 929, 12981, 12398}));
  EXPECT_EQ(totals(isImage), (Counters{77534, 0, 0, 0, 0, 0, 0}));
}

TEST_F(SampleProject, HasExactlyThreeLeftoversOnDisk) {
  std::set<std::string> known;
  for (const auto& file : project_.files())
    known.insert(relativePath(*file));
  std::vector<std::string> leftovers;
  for (const auto& file : project_.allFilesInFolder())
    if (!known.contains(relativePath(*file))) leftovers.push_back(relativePath(*file));
  EXPECT_THAT(leftovers, ElementsAre("Notebook/Model/NoteArchive.m", "Notebook/Resources/ToolbarDraft.png",
                                     "Notebook/Support/scratch.c"));
}

}  // namespace
}  // namespace quillmeter
