#include "support/Paths.h"

#include <gtest/gtest.h>

namespace quillmeter {
namespace {

TEST(LastPathComponent, IsTheTextBehindTheLastSlash) {
  EXPECT_EQ(lastPathComponent("/w/App/App.xcodeproj"), "App.xcodeproj");
  EXPECT_EQ(lastPathComponent("/w/App/"), "App");
  EXPECT_EQ(lastPathComponent("x.m"), "x.m");
  EXPECT_EQ(lastPathComponent("/"), "/");
  EXPECT_EQ(lastPathComponent(""), "");
}

TEST(JoinedPath, PutsExactlyOneSlashBetweenTheParts) {
  EXPECT_EQ(joinedPath("/w/App", "x.m"), "/w/App/x.m");
  EXPECT_EQ(joinedPath("/w/App/", "x.m"), "/w/App/x.m");
  EXPECT_EQ(joinedPath("/w/App//", "/x.m"), "/w/App/x.m");
  EXPECT_EQ(joinedPath("/", "x.m"), "/x.m");
  EXPECT_EQ(joinedPath("", "x.m"), "x.m");
  EXPECT_EQ(joinedPath("/w", ""), "/w");
  EXPECT_EQ(joinedPath("/", ""), "/");
}

TEST(TrailingSlashes, AreLeftOutButForTheFirstOfTheRoot) {
  EXPECT_EQ(withoutTrailingSlashes("/w/App//"), "/w/App");
  EXPECT_EQ(withoutTrailingSlashes("/w/App"), "/w/App");
  EXPECT_EQ(withoutTrailingSlashes("//"), "/");
  EXPECT_EQ(withoutTrailingSlashes(""), "");
}

TEST(PathComponents, KeepEmptyPieces) {
  EXPECT_EQ(pathComponents("/w/x"), (std::vector<std::string_view>{"", "w", "x"}));
  EXPECT_EQ(pathComponents(""), (std::vector<std::string_view>{""}));
  EXPECT_EQ(pathComponents("a//b"), (std::vector<std::string_view>{"a", "", "b"}));
}

TEST(TextAfterLastDot, IsTheWholeTextWithoutADot) {
  EXPECT_EQ(textAfterLastDot("archive.tar.GZ"), "GZ");
  EXPECT_EQ(textAfterLastDot("Makefile"), "Makefile");
  EXPECT_EQ(textAfterLastDot("name."), "");
  EXPECT_EQ(textAfterLastDot("src.old/Makefile"), "old/Makefile");
}

TEST(PathExtension, IsEmptyWithoutADotAndCountsALeadingOne) {
  EXPECT_EQ(pathExtension("/w.x/Makefile"), "");
  EXPECT_EQ(pathExtension(".gitignore"), "gitignore");
  EXPECT_EQ(pathExtension("A.M"), "M");
}

TEST(DefaultExtension, IsAppendedOnlyToANameWithoutOne) {
  EXPECT_EQ(withDefaultExtension("/w.x/stats", "csv"), "/w.x/stats.csv");
  EXPECT_EQ(withDefaultExtension("/w/stats.txt", "csv"), "/w/stats.txt");
  EXPECT_EQ(withDefaultExtension("/w/stats.", "csv"), "/w/stats.csv");
}

}  // namespace
}  // namespace quillmeter
