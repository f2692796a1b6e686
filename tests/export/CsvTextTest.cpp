#include "export/CsvText.h"

#include <gtest/gtest.h>

#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::record;

const std::string kHeader =
    "\"Type\",\"Filename\",\"Lines of code\",\"Lines of code without empty "
    "lines\",\"Words\",\"Chars\",\"Size(KB)\"";

std::string csvOf(const FileList& files) {
  return csvText(filesToExport(files, classicKinds().allGroups(), classicKinds()));
}

TEST(CsvText, ProjectWithoutFilesIsTheHeaderLineAlone) {
  EXPECT_EQ(csvOf({}), kHeader);
}

TEST(CsvText, EveryKindHasItsOwnRow) {
  const FileList files = {
      record({.name = "view.xib", .size = 2048, .lines = 9, .linesWithoutSpaces = 8, .words = 7}),
      record({.name = "main.c",
              .size = 1536,
              .lines = 12,
              .linesWithoutSpaces = 10,
              .words = 30,
              .characters = 1200}),
      record({.name = "main.h", .size = 0, .lines = 3, .linesWithoutSpaces = 2, .words = 1, .characters = 5}),
      record({.name = "Icon.png", .size = 1234567}),
  };
  EXPECT_EQ(csvOf(files), kHeader +
                              "\n\"image\",\"Icon.png\",\"\",\"\",\"\",\"\",\"1205.63\""
                              "\n\"source\",\"main.c\",\"12\",\"10\",\"30\",\"1200\",\"1.50\""
                              "\n\"header\",\"main.h\",\"3\",\"2\",\"1\",\"5\",\"0.00\""
                              "\n\"XIB\",\"view.xib\",\"\",\"\",\"\",\"\",\"2.00\"");
}

TEST(CsvText, NumbersHaveNoGroupingAndNoLimit) {
  const FileList files = {record({.name = "a.c",
                                  .size = 9223372036854775807,
                                  .lines = 1234567,
                                  .linesWithoutSpaces = 9223372036854775807,
                                  .words = 1000,
                                  .characters = 1000000})};
  EXPECT_EQ(csvOf(files), kHeader +
                              "\n\"source\",\"a.c\",\"1234567\",\"9223372036854775807\",\"1000\",\"1000000\","
                              "\"9007199254740992.00\"");
}

TEST(CsvText, AbsentCountersReadAsZero) {
  auto file = std::make_shared<FileObject>();
  file->setFileName("a.m");
  EXPECT_EQ(csvOf({file}), kHeader + "\n\"source\",\"a.m\",\"0\",\"0\",\"0\",\"0\",\"0.00\"");
}

TEST(CsvText, NamesAreWrittenAsTheyAre) {
  const std::string longName = std::string(253, 'x') + ".c";
  for (const std::string& name :
       {std::string("a\"b\".c"), std::string("a,b.c"), std::string("two\nlines.c"),
        std::string("Größe 東京 😀.c"), std::string("שלום.c"), std::string(" .c"), longName}) {
    EXPECT_EQ(csvOf({record({.name = name})}),
              kHeader + "\n\"source\",\"" + name + "\",\"0\",\"0\",\"0\",\"0\",\"0.00\"");
  }
}

TEST(CsvText, NameThatIsNotUtf8KeepsItsBytes) {
  EXPECT_EQ(csvOf({record({.name = "a\xFF\xC3z.c"})}),
            kHeader + "\n\"source\",\"a\xFF\xC3z.c\",\"0\",\"0\",\"0\",\"0\",\"0.00\"");
}

}  // namespace
}  // namespace quillmeter
