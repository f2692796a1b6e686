#include "parsers/RegulatorParser.h"

#include <gtest/gtest.h>

#include <string>

#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

const std::string kSource =
    "static int f(int a) {\n}\nint g(int a) {\n}\nint h(int a) {\n}\n- (void)draw {\n}\n+ (id)shape {\n}\n";

TEST(RegulatorParser, CountsMethodsAndFunctionsOfObjectiveCFiles) {
  const TemporaryFolder folder;
  for (const char* name : {"a.m", "b.mm", "c.d.m"}) {
    RegulatorParser parser;
    const auto stats = parser.parseFile(folder.file(name, kSource));
    ASSERT_NE(stats, nullptr) << name;
    EXPECT_EQ(stats->noMethods(), 5) << name;
    EXPECT_EQ(stats->noStaticMethods(), 2) << name;
    EXPECT_EQ(stats->noInstanceMethods(), 3) << name;
  }
}

TEST(RegulatorParser, CountsFunctionsOnlyOfCAndCPlusPlusFiles) {
  const TemporaryFolder folder;
  RegulatorParser parser;
  for (const char* name : {"a.c", "b.cpp"}) {
    const auto stats = parser.parseFile(folder.file(name, kSource));
    ASSERT_NE(stats, nullptr) << name;
    EXPECT_EQ(stats->noMethods(), 3) << name;
    EXPECT_EQ(stats->noStaticMethods(), 1) << name;
    EXPECT_EQ(stats->noInstanceMethods(), 2) << name;
  }
}

TEST(RegulatorParser, HasNoResultForOtherExtensions) {
  const TemporaryFolder folder;
  RegulatorParser parser;
  for (const char* name :
       {"a.h", "a.hh", "a.M", "a.MM", "a.C", "a.CPP", "a.cc", "a.cxx", "a.pch", "m", "a.m.txt", "a."}) {
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(parser.parseFile(folder.file(name, kSource)), nullptr) << name;
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << name;
    EXPECT_FALSE(RegulatorParser::hasParserForFile(folder / name)) << name;
  }
  EXPECT_EQ(parser.parseFile(""), nullptr);
}

TEST(RegulatorParser, KnowsTheFilesThatItHasAParserFor) {
  for (const char* name : {"a.m", "a.mm", "a.c", "a.cpp", "folder.h/a.c"})
    EXPECT_TRUE(RegulatorParser::hasParserForFile(name)) << name;
}

TEST(RegulatorParser, HasNoResultForAnObjectiveCFileThatCannotBeOpened) {
  const TemporaryFolder folder;
  RegulatorParser parser;
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(parser.parseFile(folder / "absent.mm"), nullptr);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), folder / "absent.mm" + ": No such file or directory\n");
}

TEST(RegulatorParser, HasZeroCountsForAnotherFileThatCannotBeRead) {
  const TemporaryFolder folder;
  RegulatorParser parser;
  const auto stats = parser.parseFile(folder / "absent.cpp");
  ASSERT_NE(stats, nullptr);
  EXPECT_EQ(stats->noMethods(), 0);
}

TEST(RegulatorParser, KeepsItsParsers) {
  RegulatorParser parser;
  EXPECT_EQ(&parser.getObjectiveCParser(), &parser.getObjectiveCParser());
  EXPECT_EQ(&parser.getCPlusParser(), &parser.getCPlusParser());
}

TEST(RegulatorParser, GivesTheFirstObjectiveCResultAgainWithTheFunctionsOfTheNextFile) {
  const TemporaryFolder folder;
  RegulatorParser parser;
  const auto first = parser.parseFile(folder.file("first.m", "- (void)draw {\n}\n"));
  const auto second = parser.parseFile(folder.file("second.m", kSource));
  EXPECT_EQ(first, second);
  EXPECT_EQ(first->noMethods(), 4);
}

TEST(RegulatorParser, HoldsAStrategyForOthers) {
  RegulatorParser parser;
  EXPECT_EQ(parser.strategy(), nullptr);
  ObjectiveCParser strategy;
  parser.setStrategy(&strategy);
  EXPECT_EQ(parser.strategy(), &strategy);
}

}  // namespace
}  // namespace quillmeter
