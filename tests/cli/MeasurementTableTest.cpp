#include <gmock/gmock.h>

#include <cstdlib>
#include <limits>

#include "cli/MeasurementFormats.h"
#include "cli/Output.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using ::testing::ContainsRegex;
using testing::record;

std::string tableOf(FileList files) {
  ::setenv("LC_ALL", "en_US", 1);
  const testing::TemporaryFolder folder;
  Output output(folder / "table.txt");
  writeTable(*testing::projectWith(std::move(files)), std::nullopt, output);
  EXPECT_EQ(output.finish(), std::nullopt);
  return testing::readFile(folder / "table.txt");
}

TEST(MeasurementTable, SumsBeyondSixtyFourBitsAreTheSameInBothHalves) {
  constexpr std::int64_t sevenEiB = std::int64_t{7} << 60;
  const std::string table =
      tableOf({record({.name = "a.png", .size = sevenEiB}), record({.name = "b.png", .size = sevenEiB}),
               record({.name = "c.png", .size = sevenEiB})});
  EXPECT_THAT(table, ContainsRegex("Size on disk +5,497,558,138,880 MB\n"));
  EXPECT_THAT(table, ContainsRegex("Images +3 .* 5,497,558,138,880 MB\n"));
}

TEST(MeasurementTable, CountersBeyondSixtyFourBitsWrapAround) {
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  const auto file = record({.name = "a.c",
                            .lines = most,
                            .linesWithoutSpaces = most,
                            .comments = most,
                            .words = most,
                            .characters = most});
  EXPECT_THAT(tableOf({file, file}), ContainsRegex("Code +2 +-2 +-2 +-2 +-2 +-2 +0 B\n"));
}

}  // namespace
}  // namespace quillmeter
