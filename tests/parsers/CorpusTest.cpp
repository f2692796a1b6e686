#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include "helpers/TemporaryFolder.h"
#include "parsers/RegulatorParser.h"

namespace quillmeter {
namespace {

const std::string kFolder = QUILLMETER_TEST_DATA "/parsers/";
const std::string kExpectations = "expected.txt";

TEST(ParserCorpus, HasTheCountsThatWereWrittenDownForIt) {
  std::istringstream expectations(testing::readFile(kFolder + kExpectations));
  std::set<std::string> checked;
  for (std::string line; std::getline(expectations, line);) {
    if (line.starts_with('#')) continue;
    std::istringstream fields(line);
    std::string name;
    int methods = -1;
    int staticOnes = -1;
    int instanceOnes = -1;
    fields >> name >> methods >> staticOnes >> instanceOnes;
    ASSERT_TRUE(fields) << line;
    RegulatorParser parser;
    const auto stats = parser.parseFile(kFolder + name);
    ASSERT_NE(stats, nullptr) << name;
    EXPECT_EQ(stats->noMethods(), methods) << name;
    EXPECT_EQ(stats->noStaticMethods(), staticOnes) << name;
    EXPECT_EQ(stats->noInstanceMethods(), instanceOnes) << name;
    checked.insert(name);
  }
  std::set<std::string> present;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder))
    present.insert(entry.path().filename());
  present.erase(kExpectations);
  EXPECT_EQ(checked, present);
  EXPECT_GT(checked.size(), 40U);
}

}  // namespace
}  // namespace quillmeter
