#include "parsers/ObjectiveCParser.h"

#include <gtest/gtest.h>

#include <string>

#include "helpers/TemporaryFolder.h"
#include "parsers/MemoryFile.h"
#include "parsers/MethodCounts.h"

namespace quillmeter {
namespace {

using testing::MemoryFile;
using testing::MethodCounts;
using testing::TemporaryFolder;

MethodCounts countsOf(const FMethodStats& stats) {
  return {stats.noMethods(), stats.noStaticMethods(), stats.noInstanceMethods()};
}

MethodCounts methodCountsIn(std::string_view source) {
  const MemoryFile file(source);
  const auto stats = ObjectiveCParser::create(file)->execute("any.m");
  return stats ? countsOf(*stats) : MethodCounts{-1, -1, -1};
}

TEST(ObjectiveCParser, StartsWithNothing) {
  const auto parser = ObjectiveCParser::create();
  EXPECT_EQ(parser->methodStats(), nullptr);
  EXPECT_EQ(parser->currentLine(), std::nullopt);
  EXPECT_FALSE(parser->eof());
  EXPECT_EQ(parser->methodBeginTag(), "");
  EXPECT_EQ(parser->methodCandidate(), "");
}

TEST(ObjectiveCParser, CountsInstanceAndClassMethods) {
  EXPECT_EQ(methodCountsIn("- (void)viewDidLoad {\n}\n"), (MethodCounts{1, 0, 1}));
  EXPECT_EQ(methodCountsIn("+ (id)shared {\n}\n"), (MethodCounts{1, 1, 0}));
}

TEST(ObjectiveCParser, CountsADefinitionOverTwoLinesOnce) {
  EXPECT_EQ(methodCountsIn("- (void)setWidth:(int)width\n      height:(int)height {\n}\n"),
            (MethodCounts{1, 0, 1}));
  EXPECT_EQ(methodCountsIn("- (void)draw\n{\n}\n"), (MethodCounts{1, 0, 1}));
}

TEST(ObjectiveCParser, CountsNothingInAnEmptyFile) {
  EXPECT_EQ(methodCountsIn(""), (MethodCounts{0, 0, 0}));
  EXPECT_EQ(methodCountsIn("\n \n"), (MethodCounts{0, 0, 0}));
}

TEST(ObjectiveCParser, NeedsTheBraceAtTheEndOfALine) {
  EXPECT_EQ(methodCountsIn("- (void)draw { return; }\n"), (MethodCounts{0, 0, 0}));
  EXPECT_EQ(methodCountsIn("- (void)draw { // draws\n"), (MethodCounts{0, 0, 0}));
}

TEST(ObjectiveCParser, LetsADeclarationSpoilTheNextDefinition) {
  EXPECT_EQ(methodCountsIn("- (void)draw;\n@end\n- (void)draw {\n}\n+ (void)hide {\n}\n"),
            (MethodCounts{1, 1, 0}));
}

TEST(ObjectiveCParser, IgnoresLinesBeforeABegin) {
  EXPECT_EQ(methodCountsIn("int main() {\n}\n(void)draw {\n"), (MethodCounts{0, 0, 0}));
}

TEST(ObjectiveCParser, RespectsLetterCaseOfFoldedLetters) {
  EXPECT_EQ(methodCountsIn("- (void)\u017f {\n}\n"), (MethodCounts{0, 0, 0}));
  EXPECT_EQ(methodCountsIn("- (void)\u212a {\n}\n"), (MethodCounts{0, 0, 0}));
}

TEST(ObjectiveCParser, KeepsCollectingUntilABrace) {
  const MemoryFile file("+ (id)shape\n\n  with:(int)sides\n- left;\n");
  const auto parser = ObjectiveCParser::create(file);
  ASSERT_NE(parser->execute("any.m"), nullptr);
  EXPECT_EQ(parser->methodBeginTag(), "-");
  EXPECT_EQ(parser->methodCandidate(), " + (id)shape with:(int)sides - left;");
}

TEST(ObjectiveCParser, StartsAfreshBehindABrace) {
  const MemoryFile file("- not a method {\n");
  const auto parser = ObjectiveCParser::create(file);
  ASSERT_NE(parser->execute("any.m"), nullptr);
  EXPECT_EQ(parser->methodBeginTag(), "");
  EXPECT_EQ(parser->methodCandidate(), "");
}

TEST(ObjectiveCParser, HandlesTheCurrentLineWhenThereIsOne) {
  ObjectiveCParser parser;
  const auto stats = std::make_shared<FMethodStats>();
  parser.setMethodStats(stats);
  parser.setCurrentLine("  + (id)shape {\n");
  EXPECT_EQ(parser.execute({}), nullptr);
  EXPECT_EQ(countsOf(*stats), (MethodCounts{1, 1, 0}));
}

TEST(ObjectiveCParser, SurvivesALineWithoutAResultToCountIn) {
  ObjectiveCParser parser;
  parser.setCurrentLine("- (void)draw {\n");
  EXPECT_EQ(parser.execute({}), nullptr);
  EXPECT_EQ(parser.methodBeginTag(), "");
}

TEST(ObjectiveCParser, ReadsOneFileAndThenGivesItsResultAgain) {
  const TemporaryFolder folder;
  const std::string first = folder.file("first.m", "- (void)draw {\n}\n- (void)hide {");
  const std::string second = folder.file("second.m", "+ (id)a {\n}\n+ (id)b {\n}\n+ (id)c {\n}\n");
  const auto parser = ObjectiveCParser::create();
  const auto stats = parser->execute(first);
  ASSERT_NE(stats, nullptr);
  EXPECT_EQ(countsOf(*stats), (MethodCounts{2, 0, 2}));

  EXPECT_EQ(parser->execute(second), stats);
  EXPECT_EQ(countsOf(*stats), (MethodCounts{3, 0, 3})) << "the last line is handled once more";
  EXPECT_TRUE(parser->eof());
  EXPECT_EQ(parser->currentLine(), "- (void)hide {");

  parser->initialize();
  const auto fresh = parser->execute(second);
  ASSERT_NE(fresh, nullptr);
  EXPECT_EQ(countsOf(*fresh), (MethodCounts{3, 3, 0}));
}

TEST(ObjectiveCParser, BeginsTheNextFileWithoutTheEndOfTheLastOne) {
  const TemporaryFolder folder;
  const std::string open = folder.file("open.m", "+ (id)shape\n");
  const auto countsAfter = [&](const std::string& source) {
    const auto parser = ObjectiveCParser::create();
    EXPECT_NE(parser->execute(open), nullptr);
    parser->initialize();
    return countsOf(*parser->execute(folder.file("next.m", source)));
  };
  EXPECT_EQ(countsAfter("- (void)draw {\n"), (MethodCounts{1, 0, 1}));
  EXPECT_EQ(countsAfter("with:(int)sides\n- (void)draw {\n"), (MethodCounts{1, 0, 1}));
}

TEST(ObjectiveCParser, GivesNothingMoreOfAFileThatEndedInABlankLine) {
  for (const std::string ending : {"\n", " \t\n", "  "}) {
    const TemporaryFolder folder;
    const std::string file = folder.file("blank.m", "- (void)draw {\n}\n" + ending);
    const auto parser = ObjectiveCParser::create();
    const auto stats = parser->execute(file);
    ASSERT_NE(stats, nullptr);
    EXPECT_EQ(parser->execute(file), nullptr) << "a blank line gives no result";
    EXPECT_EQ(countsOf(*stats), (MethodCounts{1, 0, 1}));
    EXPECT_EQ(parser->methodStats(), stats);
  }
}

TEST(ObjectiveCParser, HasNoResultForAFileThatCannotBeOpened) {
  const TemporaryFolder folder;
  const auto parser = ObjectiveCParser::create();
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(parser->execute(folder / "absent.m"), nullptr);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), folder / "absent.m" + ": No such file or directory\n");
  EXPECT_FALSE(parser->eof());
}

TEST(ObjectiveCParser, GoesOnBehindBytesThatAreNotText) {
  EXPECT_EQ(methodCountsIn("- (void)caf\xe9 {\n}\n\xff\xfe\n- (void)draw {\n}\n"), (MethodCounts{1, 0, 1}));
}

TEST(ObjectiveCParser, TestsACandidateOfTheSizeOfTheFile) {
  std::string source = "- (void)draw";
  for (int i = 0; i < 200000; ++i)
    source += "\n:(int)a";
  EXPECT_EQ(methodCountsIn(source + " {\n"), (MethodCounts{1, 0, 1}));
  EXPECT_EQ(methodCountsIn(source + ";\n- (void)hide {\n- (void)show {"), (MethodCounts{1, 0, 1}));
}

TEST(ObjectiveCParser, ReadsTheSameThroughShortReads) {
  MemoryFile file("- (void)draw\n{\n}\n+ (id)shape {\n}\n");
  file.setLongestRead(1);
  file.setInterruptReads(true);
  const auto stats = ObjectiveCParser::create(file)->execute("any.m");
  ASSERT_NE(stats, nullptr);
  EXPECT_EQ(countsOf(*stats), (MethodCounts{2, 1, 1}));
}

}  // namespace
}  // namespace quillmeter
