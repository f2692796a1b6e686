#include "parsers/BaseParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "helpers/TemporaryFolder.h"
#include "parsers/MemoryFile.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MemoryFile;

/// Remembers the lines that it is called with.
class LineCollector : public BaseParser {
 public:
  using BaseParser::BaseParser;

  std::shared_ptr<FMethodStats> execute(const std::string& path) override {
    EXPECT_EQ(path, "");
    EXPECT_FALSE(eof());
    lines.push_back(currentLine().value_or("absent"));
    return nullptr;
  }

  std::vector<std::string> lines;
};

std::vector<std::string> linesOf(std::string_view content) {
  const MemoryFile file(content);
  LineCollector parser(file);
  parser.startReadingFileWithCallback("any", &BaseParser::execute);
  EXPECT_TRUE(parser.eof());
  return parser.lines;
}

TEST(BaseParser, StartsWithNothing) {
  const BaseParser parser;
  EXPECT_EQ(parser.currentLine(), std::nullopt);
  EXPECT_EQ(parser.methodStats(), nullptr);
  EXPECT_FALSE(parser.eof());
}

TEST(BaseParser, InitializeForgetsALastReading) {
  BaseParser parser;
  parser.setCurrentLine("- (void)draw {");
  parser.setMethodStats(std::make_shared<FMethodStats>());
  parser.setEof(true);
  parser.initialize();
  EXPECT_EQ(parser.currentLine(), std::nullopt);
  EXPECT_EQ(parser.methodStats(), nullptr);
  EXPECT_FALSE(parser.eof());
}

TEST(BaseParser, OnlyLogsWhenItIsAskedToCount) {
  BaseParser parser;
  EXPECT_EQ(parser.execute("any"), nullptr);
  std::vector<std::string> logged;
  parser.setLogSink([&](std::string_view line) { logged.emplace_back(line); });
  EXPECT_EQ(parser.execute("any"), nullptr);
  EXPECT_THAT(logged, ElementsAre("Simple file parser"));
}

TEST(BaseParser, CallsBackForEachLineWithItsLineFeed) {
  EXPECT_THAT(linesOf("one\n\ntwo\r\nthree"), ElementsAre("one\n", "\n", "two\r\n", "three"));
  EXPECT_THAT(linesOf(""), IsEmpty());
}

TEST(BaseParser, HandsOutALongLineInPieces) {
  const std::string line(300, 'x');
  EXPECT_THAT(linesOf(line + "\n"),
              ElementsAre(line.substr(0, 127), line.substr(0, 127), line.substr(0, 46) + "\n"));
}

TEST(BaseParser, EndsALineAtAZeroByte) {
  using namespace std::string_literals;
  EXPECT_THAT(linesOf("one\0 more\n\0\ntwo\n"s), ElementsAre("one", "", "two\n"));
}

TEST(BaseParser, LeavesOutAByteOrderMarkAtTheBeginningOnly) {
  EXPECT_THAT(linesOf("\ufeffone\n\ufefftwo\n"), ElementsAre("one\n", "\ufefftwo\n"));
  EXPECT_THAT(linesOf("\ufeff"), ElementsAre(""));
}

TEST(BaseParser, KeepsTheLastLine) {
  const MemoryFile file("one\ntwo\n");
  LineCollector parser(file);
  parser.startReadingFileWithCallback("any", &BaseParser::execute);
  EXPECT_EQ(parser.currentLine(), "two\n");
}

TEST(BaseParser, ReportsAFileThatCannotBeOpened) {
  const testing::TemporaryFolder folder;
  LineCollector parser;
  ::testing::internal::CaptureStderr();
  parser.startReadingFileWithCallback(folder / "absent.m", &BaseParser::execute);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), folder / "absent.m" + ": No such file or directory\n");
  EXPECT_FALSE(parser.eof());
  EXPECT_THAT(parser.lines, IsEmpty());
}

}  // namespace
}  // namespace quillmeter
