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

TEST(Paths, ARelativePathLeadsFromAFolder) {
  EXPECT_EQ(relativePath("/w/App/a.m", "/w/App"), "a.m");
  EXPECT_EQ(relativePath("/w/App/b/a.m", "/w/App/"), "b/a.m");
  EXPECT_EQ(relativePath("/w/Shared/a.m", "/w/App"), "../Shared/a.m");
  EXPECT_EQ(relativePath("/w/a.m", "/w/x/App"), "../../a.m");
  EXPECT_EQ(relativePath("/w/Application/a.m", "/w/App"), "../Application/a.m");
  EXPECT_EQ(relativePath("/a.m", "/"), "a.m");
  EXPECT_EQ(relativePath("/w/App", "/w/App"), "../App");
}

TEST(Paths, WhatHasNothingInCommonWithAFolderStaysAbsolute) {
  EXPECT_EQ(relativePath("/opt/a.m", "/w/App"), "/opt/a.m");
  EXPECT_EQ(relativePath("/a.m", "/w/App"), "/a.m");
  EXPECT_EQ(relativePath("a.m", "/w"), "a.m");
  EXPECT_EQ(relativePath("/w/a.m", ""), "/w/a.m");
  EXPECT_EQ(relativePath("", "/w"), "");
}

TEST(Paths, AParentFolderHoldsAPath) {
  EXPECT_EQ(parentFolder("/w/App.xcodeproj"), "/w");
  EXPECT_EQ(parentFolder("/w/App.xcodeproj/"), "/w");
  EXPECT_EQ(parentFolder("/w"), "/");
  EXPECT_EQ(parentFolder("/"), "/");
  EXPECT_EQ(parentFolder("w"), "");
}

}  // namespace
}  // namespace quillmeter
