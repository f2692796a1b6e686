#include "measuring/FileRanking.h"

#include <gmock/gmock.h>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::record;

std::vector<std::string> ranked(const FileList& files, FileMeasure measure) {
  std::vector<std::string> names;
  for (const auto& file : rankedFiles(files, measure))
    names.push_back(file->fileName().value_or("?"));
  return names;
}

TEST(FileRanking, LargestMeasureComesFirst) {
  const FileList files = {record({.name = "a.c", .size = 3, .lines = 10}),
                          record({.name = "b.c", .size = 2, .lines = 30}),
                          record({.name = "c.c", .size = 1, .lines = 20})};
  EXPECT_THAT(ranked(files, &FileObject::noLinesTotal), ElementsAre("b.c", "c.c", "a.c"));
  EXPECT_THAT(ranked(files, &FileObject::fileSize), ElementsAre("a.c", "b.c", "c.c"));
}

TEST(FileRanking, EqualMeasuresKeepTheirOrderAndAnAbsentOneIsZero) {
  const FileList files = {record({.name = "absent.c", .lines = -1}), record({.name = "b.c", .lines = 0}),
                          record({.name = "a.c", .lines = 5}), record({.name = "c.c", .lines = 5})};
  EXPECT_THAT(ranked(files, &FileObject::noLinesTotal), ElementsAre("a.c", "c.c", "absent.c", "b.c"));
}

TEST(FileRanking, OfNoFilesIsEmpty) {
  EXPECT_THAT(ranked({}, &FileObject::fileSize), IsEmpty());
}

}  // namespace
}  // namespace quillmeter
