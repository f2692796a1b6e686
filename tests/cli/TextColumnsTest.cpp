#include "cli/TextColumns.h"

#include <gtest/gtest.h>

#include "cli/Output.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

std::string columnsOf(const std::vector<std::vector<std::string>>& rows, const LeftColumns& left) {
  const testing::TemporaryFolder folder;
  Output output(folder / "columns");
  writeTextColumns(rows, left, output);
  EXPECT_EQ(output.finish(), std::nullopt);
  return testing::readFile(folder / "columns");
}

TEST(TextColumns, AreAlignedByCharactersAndNotByTheirBytes) {
  EXPECT_EQ(columnsOf({{"Name", "Lines"}, {"größe.m", "1\u202F503"}, {"size.m", "12345678"}}, {0}),
            "Name        Lines\n"
            "größe.m     1\u202F503\n"
            "size.m   12345678\n");
  EXPECT_EQ(columnsOf({{"ÄÖÜ", "1\u202F503"}, {"abc", "12345"}}, {0}),
            "ÄÖÜ  1\u202F503\n"
            "abc  12345\n")
      << "where the widest are the ones of several bytes";
}

TEST(TextColumns, EndWithoutBlanks) {
  EXPECT_EQ(columnsOf({{"Name", "On disk"}, {"a.m", ""}}, {0, 1}), "Name  On disk\na.m\n");
}

}  // namespace
}  // namespace quillmeter
