#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "xcode/Descriptions.h"

namespace quillmeter::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Where the groups of a description say that files are.
class Groups : public DescribedProject {};

TEST_F(Groups, AreVisitedInTheirOrder) {
  for (const char* path : {"b.swift", "a.swift", "G/c.m", "V/d.xib", "M.xcdatamodeld/x.swift"})
    file(path);
  read("b, G, a, V, X", {fileReference("b", "b.swift"),
                         fileReference("a", "a.swift"),
                         group("G", "c", "path = G;"),
                         fileReference("c", "c.m"),
                         {"V", "isa = PBXVariantGroup; children = (d); path = V; "},
                         fileReference("d", "d.xib"),
                         {"X", "isa = XCVersionGroup; children = (e); path = M.xcdatamodeld; "},
                         fileReference("e", "x.swift")});
  EXPECT_THAT(files(), ElementsAre("b.swift", "G/c.m", "a.swift", "V/d.xib", "M.xcdatamodeld/x.swift"));
}

TEST_F(Groups, OfAnyOtherKindBringNothing) {
  file("a.swift");
  read("X, Y", {{"X", "isa = PBXOther; children = (a); path = a.swift; "},
                {"Y", "children = (a); path = a.swift; "},
                fileReference("a", "a.swift")});
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(), IsEmpty());
}

TEST_F(Groups, AreVisitedOnceEvenInACircle) {
  file("G/a.swift");
  file("H/a.swift");
  read("G, H, G, a", {group("G", "H, G, main", "path = G;"), group("H", "a, G", "path = ../H;"),
                      fileReference("a", "a.swift")});
  EXPECT_THAT(files(), ElementsAre("H/a.swift"));
}

TEST_F(Groups, StayWhereTheyBeginWithoutAPath) {
  for (const char* path : {"A/a.swift", "b.swift", "A/c.swift"})
    file(path);
  read("A", {group("A", "N, R", "path = A;"),
             group("N", "a, E", "name = NotThere;"),
             fileReference("a", "a.swift"),
             group("E", "c", "path = \"\";"),
             fileReference("c", "c.swift"),
             {"R", "isa = PBXGroup; children = (b); sourceTree = SOURCE_ROOT; "},
             fileReference("b", "b.swift")});
  EXPECT_THAT(files(), ElementsAre("A/a.swift", "A/c.swift", "b.swift"));
}

TEST_F(Groups, BeginWithTheirParentWithoutASourceTree) {
  file("A/B/a.swift");
  read("A", {{"A", "isa = PBXGroup; children = (B); path = A; "},
             {"B", "isa = PBXGroup; children = (a); path = B; sourceTree = (wrong); "},
             {"a", "isa = PBXFileReference; path = a.swift; "}});
  EXPECT_THAT(files(), ElementsAre("A/B/a.swift"));
}

TEST_F(Groups, MayBeginAtTheProjectOrAtTheRoot) {
  file("a.swift");
  file("A/b.swift");
  file("C/c.swift");
  read("G", {group("G", "a, A, C", "path = Elsewhere;"),
             fileReference("a", "a.swift", "SOURCE_ROOT"),
             {"A", "isa = PBXGroup; children = (b); path = A; sourceTree = SOURCE_ROOT; "},
             fileReference("b", "b.swift"),
             {"C", "isa = PBXGroup; children = (c); path = \"" + folder("C") +
                       "\"; sourceTree = \"<absolute>\"; "},
             fileReference("c", "c.swift")});
  EXPECT_THAT(files(), ElementsAre("a.swift", "A/b.swift", "C/c.swift"));
}

TEST_F(Groups, OfUnknownSourceTreesAreNowhereWithAllThatTakesItsPlaceFromThem) {
  file("a.swift");
  file("b.swift");
  read("D, S, E, A, R", {{"D", "isa = PBXGroup; children = (a, b); sourceTree = BUILT_PRODUCTS_DIR; "},
                         fileReference("a", "a.swift"),
                         fileReference("b", "b.swift", "SOURCE_ROOT"),
                         fileReference("S", "a.swift", "SDKROOT"),
                         fileReference("E", "a.swift", ""),
                         fileReference("A", "a.swift", "<absolute>"),
                         {"R", "isa = PBXGroup; children = (c); sourceTree = \"<absolute>\"; "},
                         fileReference("c", "a.swift")});
  EXPECT_THAT(files(), ElementsAre("b.swift"));
  EXPECT_THAT(missing(), IsEmpty());
  EXPECT_EQ(project_.findings().foreign, 0U);
}

TEST_F(Groups, MayLieAHundredThousandDeep) {
  constexpr int depth = 100'000;
  file("a.swift");
  std::vector<DescribedObject> objects = {fileReference("a", "a.swift", "SOURCE_ROOT"),
                                          fileReference("b", "b.swift")};
  for (int i = 0; i < depth; ++i)
    objects.push_back(
        group("G" + std::to_string(i), i + 1 < depth ? "G" + std::to_string(i + 1) : "a, b", "path = d;"));
  read("G0", objects);
  EXPECT_THAT(files(), ElementsAre("a.swift"));
  ASSERT_EQ(project_.findings().missing.size(), 1U);
  EXPECT_EQ(project_.findings().missing[0].location.size(),
            folder().size() + 2 * depth + std::string("/b.swift").size());
}

TEST_F(Groups, LeaveReferencesWithoutPathOrNameOut) {
  file("a.swift");
  file("b.swift");
  read("a, b, c, d", {{"a", "isa = PBXFileReference; name = a.swift; "},
                      {"b", "isa = PBXFileReference; name = b.swift; path = \"\"; "},
                      {"c", "isa = PBXFileReference; "},
                      {"d", "isa = PBXFileReference; name = \"\"; "}});
  EXPECT_THAT(files(), ElementsAre("a.swift", "b.swift"));
  EXPECT_THAT(missing(), IsEmpty());
}

TEST_F(Groups, PreferThePathOfAReferenceToItsName) {
  file("a.swift");
  file("b.swift");
  read("a", {{"a", "isa = PBXFileReference; name = b.swift; path = a.swift; "}});
  EXPECT_THAT(files(), ElementsAre("a.swift"));
}

TEST_F(Groups, LeadNowhereQuietly) {
  file("a.swift");
  read("nowhere, (a), {b = c;}, <00>, a", {fileReference("a", "a.swift")});
  EXPECT_THAT(files(), ElementsAre("a.swift"));
  readText("{objects = {root = {mainGroup = nowhere;};}; rootObject = root;}");
  EXPECT_THAT(files(), IsEmpty());
  readText("{objects = {}; rootObject = root;}");
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_EQ(project_.findings().error, "");
}

TEST_F(Groups, BeginAtTheFolderThatTheProjectNames) {
  file("Inner/a.swift");
  disk_.file("work/b.swift");
  read("a, b", {fileReference("a", "a.swift"), fileReference("b", "../../b.swift")},
       "projectDirPath = Inner; ");
  EXPECT_THAT(files(), ElementsAre("Inner/a.swift", "//work/b.swift"));
  EXPECT_EQ(project_.projectFolder(), folder("Inner"));
}

TEST_F(Groups, BeginAtTheAbsoluteFolderThatTheProjectNames) {
  disk_.file("other/a.swift");
  read("a", {fileReference("a", "a.swift", "SOURCE_ROOT")},
       "projectDirPath = \"" + disk_ / "other" + "/.\"; ");
  EXPECT_THAT(files(), ElementsAre("//other/a.swift"));
  read("a", {fileReference("a", "a.swift")}, "projectDirPath = \"\"; ");
  EXPECT_EQ(project_.projectFolder(), folder());
}

TEST_F(Groups, FindTheFolderOfABundleByNormalisedText) {
  file("a.swift");
  writeText(descriptionText("a", {fileReference("a", "a.swift")}));
  project_.parseFileAtPathAndDelegate(folder(".//x/../App.xcodeproj"), nullptr);
  EXPECT_THAT(files(), IsEmpty()) << "x is no folder, so there is no bundle for the system";
  project_.parseFileAtPathAndDelegate(folder(".//App.xcodeproj"), nullptr);
  EXPECT_THAT(files(), ElementsAre("a.swift"));
}

}  // namespace
}  // namespace quillmeter::testing
