#include "xcode/Locations.h"

#include <gtest/gtest.h>

#include <string>

#include "xcode/CurrentKinds.h"
#include "xcode/NameFolding.h"

namespace quillmeter {
namespace {

TEST(Locations, DropEmptyPiecesAndDots) {
  EXPECT_EQ(normalisedLocation("/a/b", "c/d"), "/a/b/c/d");
  EXPECT_EQ(normalisedLocation("/a//b/", "./c//d/."), "/a/b/c/d");
  EXPECT_EQ(normalisedLocation("/"), "/");
  EXPECT_EQ(normalisedLocation("/a", "/b"), "/a/b");
}

TEST(Locations, FoldTwoDotsWithThePieceBefore) {
  EXPECT_EQ(normalisedLocation("/a/b", "../c/../../d"), "/d");
  EXPECT_EQ(normalisedLocation("/a", "../../../b"), "/b") << "dropped at the root";
  EXPECT_EQ(normalisedLocation("/a", ".."), "/");
}

TEST(Locations, ExpandNothing) {
  EXPECT_EQ(normalisedLocation("/a", "$(SRCROOT)/~/b*"), "/a/$(SRCROOT)/~/b*");
  EXPECT_EQ(normalisedLocation("/a", "...\xFF"), "/a/...\xFF");
}

TEST(Locations, KnowTheirParentsAndWhatLiesBelow) {
  EXPECT_EQ(parentLocation("/a/b"), "/a");
  EXPECT_EQ(parentLocation("/a"), "/");
  EXPECT_EQ(parentLocation("/"), "/");
  EXPECT_TRUE(isBelow("/a/b", "/a"));
  EXPECT_TRUE(isBelow("/a", "/"));
  EXPECT_FALSE(isBelow("/a", "/a"));
  EXPECT_FALSE(isBelow("/ab", "/a"));
  EXPECT_FALSE(isBelow("/", "/"));
}

TEST(Locations, HaveTheExtensionOfTheirLastComponent) {
  EXPECT_EQ(locationExtension("/a.b/c.tar.GZ"), "gz");
  EXPECT_EQ(locationExtension("/a.b/Makefile"), "");
  EXPECT_EQ(locationExtension("/a/png"), "");
  EXPECT_EQ(locationExtension("/a/.gitignore"), "gitignore");
  EXPECT_EQ(locationExtension("/a/b."), "");
  EXPECT_EQ(locationExtension("/a/b.Ä"), "Ä") << "only ASCII is lower-cased";
}

TEST(CurrentKind, GoesByTheExtension) {
  const auto groupOf = [](const std::string& extension) { return currentKinds().find(extension)->group; };
  const auto kindOf = [](const std::string& extension) { return currentKind("/a/b." + extension); };
  for (const char* extension : {"c", "cc", "cp", "cpp", "cxx", "c++", "metal"})
    EXPECT_EQ(groupOf(extension), FileGroup::c) << extension;
  for (const char* extension : {"h", "hh", "hp", "hpp", "hxx", "h++", "inl", "ipp", "pch"})
    EXPECT_EQ(groupOf(extension), FileGroup::headers) << extension;
  for (const char* extension : {"m", "mm"})
    EXPECT_EQ(groupOf(extension), FileGroup::objectiveC) << extension;
  EXPECT_EQ(groupOf("swift"), FileGroup::swift);
  for (const char* extension : {"Swift", "CPP", "H", "MM", "c++"})
    EXPECT_EQ(kindOf(extension), FileKind::code) << extension;
  for (const char* extension : {"xib", "storyboard"})
    EXPECT_EQ(kindOf(extension), FileKind::interface) << extension;
  for (const char* extension : {"jpg", "jpeg", "png", "gif", "tif", "tiff", "heic", "webp", "svg", "icns"})
    EXPECT_EQ(kindOf(extension), FileKind::image) << extension;
  for (const char* extension : {"plist", "strings", "", "swiftmodule", "pdf", "swift~"})
    EXPECT_EQ(kindOf(extension), FileKind::none) << extension;
  EXPECT_EQ(currentKind("/a/png"), FileKind::none);
}

TEST(CurrentKind, TakesAPdfForAnImageInsideAnAssetCatalogueOnly) {
  EXPECT_EQ(currentKind("/a/Media.xcassets/Icon.imageset/icon.pdf"), FileKind::image);
  EXPECT_EQ(currentKind("/Media.XCAssets/a/b/icon.PDF"), FileKind::image);
  EXPECT_EQ(currentKind("/a/icon.pdf"), FileKind::none);
  EXPECT_EQ(currentKind("/xcassets/icon.pdf"), FileKind::none);
}

TEST(FoldedName, IsTheSameForNamesThatDifferInCase) {
  EXPECT_EQ(foldedName("ReadMe.TXT"), foldedName("readme.txt"));
  EXPECT_EQ(foldedName("GRÖSSE"), foldedName("größe")) << "full folding";
  EXPECT_EQ(foldedName("ΣΊΣΥΦΟΣ"), foldedName("σίσυφος"));
  EXPECT_NE(foldedName("a"), foldedName("ä"));
}

TEST(FoldedName, IsTheSameForComposedAndDecomposedNames) {
  EXPECT_EQ(foldedName("e\xCC\x81t\x65\xCC\x81"), foldedName("ÉTÉ"));
}

TEST(FoldedName, LeavesNamesThatAreNotUtf8Alone) {
  EXPECT_EQ(foldedName("A\xFF"), "A\xFF");
  EXPECT_NE(foldedName("A\xFF"), foldedName("a\xFF"));
}

}  // namespace
}  // namespace quillmeter
