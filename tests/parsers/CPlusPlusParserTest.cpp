#include "parsers/CPlusPlusParser.h"

#include <gtest/gtest.h>

#include <string>

#include "helpers/TemporaryFolder.h"
#include "parsers/MemoryFile.h"
#include "parsers/MethodCounts.h"

namespace quillmeter {
namespace {

using testing::MemoryFile;
using testing::MethodCounts;

MethodCounts functionCountsIn(std::string_view source) {
  const MemoryFile file(source);
  const auto stats = CPlusPlusParser::create(file)->execute("any.c");
  return {stats->noMethods(), stats->noStaticMethods(), stats->noInstanceMethods()};
}

TEST(CommentConversion, TrimsEveryLineAndBeginsWithALineFeed) {
  EXPECT_EQ(CPlusPlusParser::convertFileComments("  int a;\t\r\n\n\tb "), "\nint a;\n\nb");
  EXPECT_EQ(CPlusPlusParser::convertFileComments(""), "\n");
  EXPECT_EQ(CPlusPlusParser::convertFileComments("\n"), "\n\n");
}

TEST(CommentConversion, MarksLinesThatBeginAsAComment) {
  EXPECT_EQ(CPlusPlusParser::convertFileComments(" // int f() {  \nint a; // b\n//"),
            "\n// int f() { |_|\nint a; // b\n// |_|");
}

TEST(CommentConversion, LeavesBlockCommentsAlone) {
  EXPECT_EQ(CPlusPlusParser::convertFileComments("/* a\n * b\n */"), "\n/* a\n* b\n*/");
}

TEST(CommentConversion, SplitsAtLineFeedsOnly) {
  EXPECT_EQ(CPlusPlusParser::convertFileComments("// a\rb\u2028c"), "\n// a\rb\u2028c |_|");
}

TEST(CPlusPlusParser, TellsStaticFunctionsFromOthers) {
  EXPECT_EQ(functionCountsIn("static int add(int a, int b) {\n}\n"), (MethodCounts{1, 1, 0}));
  EXPECT_EQ(functionCountsIn("int add(int a, int b) {\n}\n"), (MethodCounts{1, 0, 1}));
}

TEST(CPlusPlusParser, RespectsTheLetterCaseOfStatic) {
  EXPECT_EQ(functionCountsIn("STATIC int add(int a, int b) {\n}\n"), (MethodCounts{1, 0, 1}));
  EXPECT_EQ(functionCountsIn("\u017ftatic int add(int a, int b) {\n}\n"), (MethodCounts{1, 0, 1}));
}

TEST(CPlusPlusParser, ReadsTheFirstWordUpToAnUnderscore) {
  EXPECT_EQ(functionCountsIn("static_word f(int a) {\n}\n"), (MethodCounts{1, 1, 0}));
  EXPECT_EQ(functionCountsIn("statics f(int a) {\n}\n"), (MethodCounts{1, 0, 1}));
  EXPECT_EQ(functionCountsIn("_static f(int a) {\n}\n"), (MethodCounts{1, 0, 1}));
}

TEST(CPlusPlusParser, CountsNoFunctionInALineComment) {
  EXPECT_EQ(functionCountsIn("// int f(int a) {\n"), (MethodCounts{0, 0, 0}));
  EXPECT_EQ(functionCountsIn("//int f(int a) {   \r\n\n\nint g(int a) {\n"), (MethodCounts{1, 0, 1}));
  EXPECT_EQ(functionCountsIn("// int f(int a)\n{\n"), (MethodCounts{0, 0, 0}));
}

TEST(CPlusPlusParser, CountsAFunctionInABlockComment) {
  EXPECT_EQ(functionCountsIn("/*\nint f(int a) {\n*/\n"), (MethodCounts{1, 0, 1}));
}

TEST(CPlusPlusParser, CountsNothingInAnEmptyFile) {
  EXPECT_EQ(functionCountsIn(""), (MethodCounts{0, 0, 0}));
}

TEST(CPlusPlusParser, CountsNothingInAFileThatIsNotUtf8) {
  EXPECT_EQ(functionCountsIn("int f(int a) {\n}\n// \xe9\n"), (MethodCounts{0, 0, 0}));
}

TEST(CPlusPlusParser, DoesNotTakeAByteOrderMarkForText) {
  EXPECT_EQ(functionCountsIn("\ufeff// int f(int a) {\n"), (MethodCounts{0, 0, 0}));
  EXPECT_EQ(functionCountsIn("\ufeffstatic int f(int a) {\n"), (MethodCounts{1, 1, 0}));
}

TEST(CPlusPlusParser, CountsNothingInAFileThatCannotBeRead) {
  const testing::TemporaryFolder folder;
  const auto parser = CPlusPlusParser::create();
  ::testing::internal::CaptureStderr();
  const auto stats = parser->execute(folder / "absent.c");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  ASSERT_NE(stats, nullptr);
  EXPECT_EQ(stats->noMethods(), 0);
  MemoryFile failing("int f(int a) {\n}\n");
  failing.setFailAt(3);
  EXPECT_EQ(CPlusPlusParser::create(failing)->execute("any.c")->noMethods(), 0);
}

TEST(CPlusPlusParser, GivesEachFileAResultOfItsOwn) {
  const testing::TemporaryFolder folder;
  const auto parser = CPlusPlusParser::create();
  const auto first = parser->execute(folder.file("first.c", "int f(int a) {\n}\nint g(int a) {\n}\n"));
  const auto second = parser->execute(folder.file("second.c", "static int f(int a) {\n}\n"));
  EXPECT_EQ(first->noMethods(), 2);
  EXPECT_EQ(second->noMethods(), 1);
  EXPECT_EQ(parser->methodStats(), second);
}

}  // namespace
}  // namespace quillmeter
