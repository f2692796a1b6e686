#include "support/NearestWord.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillmeter {
namespace {

const std::vector<std::string> kCommands{"measure", "compare", "cleanup", "export"};

TEST(NearestWord, CountsInsertedDeletedReplacedAndSwappedLetters) {
  EXPECT_EQ(editDistance("", ""), 0U);
  EXPECT_EQ(editDistance("", "abc"), 3U);
  EXPECT_EQ(editDistance("abc", ""), 3U);
  EXPECT_EQ(editDistance("measure", "measure"), 0U);
  EXPECT_EQ(editDistance("measur", "measure"), 1U);
  EXPECT_EQ(editDistance("fromat", "format"), 1U);
  EXPECT_EQ(editDistance("emasure", "measure"), 1U);
  EXPECT_EQ(editDistance("measuer", "measure"), 1U);
  EXPECT_EQ(editDistance("ba", "ab"), 1U);
  EXPECT_EQ(editDistance("kitten", "sitting"), 3U);
}

TEST(NearestWord, IsTheWordThatWasMeant) {
  EXPECT_EQ(nearestWord("measur", kCommands), "measure");
  EXPECT_EQ(nearestWord("COMPARE", kCommands), "compare");
  EXPECT_EQ(nearestWord("mesaure", kCommands), "measure");
  EXPECT_EQ(nearestWord("clean", kCommands), "cleanup");
}

TEST(NearestWord, IsTheFirstOfEquals) {
  EXPECT_EQ(nearestWord("catt", std::vector<std::string>{"cats", "cat"}), "cats");
}

TEST(NearestWord, KnowsAbbreviations) {
  const std::vector<std::string> options = {"--top", "--format", "--fail-if"};
  EXPECT_EQ(nearestWord("--fmt", options), "--format");
  EXPECT_EQ(nearestWord("cmp", kCommands), "compare");
  EXPECT_FALSE(nearestWord("--rmt", options)) << "the first letter is never left out";
  EXPECT_FALSE(nearestWord("--ft", options)) << "two letters may be anything";
  EXPECT_FALSE(nearestWord("--tmf", options)) << "the order counts";
}

TEST(NearestWord, NamesNothingThatWouldOnlyPuzzle) {
  EXPECT_FALSE(nearestWord("zebra", kCommands));
  EXPECT_FALSE(nearestWord("", kCommands));
  EXPECT_FALSE(nearestWord("-x", std::vector<std::string>{"-h", "-o"}));
  EXPECT_FALSE(nearestWord(std::string(100000, 'm'), kCommands));
  EXPECT_FALSE(nearestWord("measure", std::vector<std::string>{}));
}

}  // namespace
}  // namespace quillmeter
