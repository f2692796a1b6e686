#include "analysis/ReferenceSection.h"

#include <gtest/gtest.h>

#include "measuring/FileKinds.h"

namespace quillmeter {
namespace {

std::optional<std::string> referencedPath(std::string_view line) {
  return quillmeter::referencedPath(line, classicKinds());
}

std::string entry(const std::string& path) {
  return "\t\t8D11 /* name */ = {isa = PBXFileReference; name = other.png; path = " + path +
         "; sourceTree = \"<group>\"; };";
}

TEST(ReferenceSection, IsTheTrimmedTextBetweenTheMarkers) {
  EXPECT_EQ(referenceSection(
                "x /* Begin PBXFileReference section */ \n a\nb\t\n/* End PBXFileReference section */ y"),
            "a\nb");
}

TEST(ReferenceSection, IsAbsentWithoutBothMarkersInOrder) {
  EXPECT_EQ(referenceSection(""), std::nullopt);
  EXPECT_EQ(referenceSection("/* Begin PBXFileReference section */ a"), std::nullopt);
  EXPECT_EQ(referenceSection("a /* End PBXFileReference section */"), std::nullopt);
  EXPECT_EQ(referenceSection("/* End PBXFileReference section */ a /* Begin PBXFileReference section */"),
            std::nullopt);
}

TEST(ReferencedPath, IsTheValueOfTheFirstPathEntry) {
  EXPECT_EQ(referencedPath(entry("Classes/Note.m")), "Classes/Note.m");
  EXPECT_EQ(referencedPath("1 /* a */ = {path = a.m; path = b.m; };"), "a.m");
}

TEST(ReferencedPath, LosesTheQuotesOfAQuotedPath) {
  EXPECT_EQ(referencedPath(entry("\"My Notes/a b.m\"")), "My Notes/a b.m");
  EXPECT_EQ(referencedPath(entry("\"a\"b\".m\"")), "ab.m");
}

TEST(ReferencedPath, KeepsAQuoteThatIsNotAtTheStart) {
  EXPECT_EQ(referencedPath(entry("a\"b.m")), "a\"b.m");
}

TEST(ReferencedPath, TakesKnownKindsInAnyLetterCase) {
  EXPECT_EQ(referencedPath(entry("Sources/App.M")), "Sources/App.M");
  EXPECT_EQ(referencedPath(entry("VIEW.XIB")), "VIEW.XIB");
  EXPECT_EQ(referencedPath(entry("Icon.ICNS")), "Icon.ICNS");
  EXPECT_EQ(referencedPath(entry("png")), "png");
}

TEST(ReferencedPath, IsAbsentForOtherKinds) {
  for (const char* path : {"App.app", "Cocoa.framework", "a.jpeg", "a.storyboard", "a.hpp", "a.m ext",
                           "src.m/Makefile", "a.m\""}) {
    EXPECT_EQ(referencedPath(entry(path)), std::nullopt) << path;
  }
}

TEST(ReferencedPath, CutsAtASemicolonOrABrace) {
  EXPECT_EQ(referencedPath(entry("\"a;b.m\"")), std::nullopt);
  EXPECT_EQ(referencedPath(entry("a.m;b.c")), "a.m");
  EXPECT_EQ(referencedPath(entry("\"a}b.m\"")), std::nullopt);
  EXPECT_EQ(referencedPath("1 /* x */ = {isa = y; path = a.m} b.c; };"), "a.m");
}

TEST(ReferencedPath, GoesByTheFirstPlainTextPathEvenInsideAnotherEntry) {
  EXPECT_EQ(referencedPath("1 /* a */ = {xpath =a.m; path = b.m; };"), "a.m");
}

TEST(ReferencedPath, IsAbsentForLinesOfAnyOtherForm) {
  for (const char* line : {"", "garbage", "*/ = {", "path = a.m;", "1 /* a */ = {isa = x; };", "}",
                           "*/ = {} path = a.m;", "1 /* a */ = { */ = { path = a.m; };"}) {
    EXPECT_EQ(referencedPath(line), std::nullopt) << line;
  }
}

}  // namespace
}  // namespace quillmeter
