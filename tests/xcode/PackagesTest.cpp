#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "xcode/Descriptions.h"
#include "xcode/PackageContents.h"

namespace quillmeter::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Packages : public DescribedProject {
 protected:
  void readPackage(const std::string& path) {
    read("", {{"p", "isa = XCLocalSwiftPackageReference; relativePath = \"" + path + "\"; "}},
         "packageReferences = (p); ");
  }
};

TEST_F(Packages, BringTheirManifestsAndTheirUsualFolders) {
  for (const char* path :
       {"P/Package.swift", "P/Package@swift-5.9.swift", "P/Package@.swift", "P/Packages.swift", "P/x.swift",
        "P/Plugins/a.swift", "P/Source/b.swift", "P/Sources/c.swift", "P/Tests/d.swift", "P/src/e.c",
        "P/srcs/f.c", "P/Examples/g.swift", "P/sources/h.swift"})
    file(path);
  readPackage("P");
  EXPECT_THAT(files(), ElementsAre("P/Package.swift", "P/Package@.swift", "P/Package@swift-5.9.swift",
                                   "P/Plugins/a.swift", "P/Source/b.swift", "P/Sources/c.swift",
                                   "P/Tests/d.swift", "P/src/e.c", "P/srcs/f.c"));
}

TEST_F(Packages, BringTheFoldersThatTheManifestNames) {
  file("P/Package.swift", R"(
    .target(name: "A", path: "Zoo/Inner"), .target(name: "B", path:
      "Apes/."), .target(path: "Missing"), .package(path: "../Other"), .target(path: "file.swift"),
    .package(path: "/"), .target(path: "E\"scape"), .target(path: 5), .target(path: "Sources/Deep"),)");
  for (const char* path : {"P/Zoo/Inner/a.swift", "P/Zoo/b.swift", "P/Apes/c.swift", "P/Sources/Deep/d.swift",
                           "P/Sources/e.swift", "Other/f.swift", "P/file.swift", "P/E/g.swift"})
    file(path);
  readPackage("P");
  EXPECT_THAT(files(), ElementsAre("P/Package.swift", "P/Apes/c.swift", "P/Sources/Deep/d.swift",
                                   "P/Sources/e.swift", "P/Zoo/Inner/a.swift"));
}

TEST_F(Packages, WithoutAnyOfTheFoldersBringTheWholeOne) {
  for (const char* path : {"P/Package.swift", "P/a.swift", "P/Inner/b.swift", "P/.build/c.swift"})
    file(path);
  readPackage("P");
  EXPECT_THAT(files(), ElementsAre("P/Package.swift", "P/Inner/b.swift", "P/a.swift"));
}

TEST_F(Packages, AreFoundByFileReferencesToo) {
  for (const char* path : {"P/Package.swift", "P/Sources/a.swift", "P/Other/b.swift",
                           "x.bundle/Package.swift", "x.bundle/Sources/c.swift"})
    file(path);
  read("p, b", {fileReference("p", "P"), fileReference("b", "x.bundle")});
  EXPECT_THAT(files(), ElementsAre("P/Package.swift", "P/Sources/a.swift", "x.bundle/Package.swift",
                                   "x.bundle/Sources/c.swift"));
}

TEST_F(Packages, ComeAfterTheGroupsInTheirOrder) {
  for (const char* path : {"P/Package.swift", "Q/Package.swift", "a.swift"})
    file(path);
  read("a",
       {fileReference("a", "a.swift"),
        {"p", "isa = XCLocalSwiftPackageReference; relativePath = P; "},
        {"q", "isa = XCLocalSwiftPackageReference; relativePath = ../app/Q; "},
        {"r", "isa = XCRemoteSwiftPackageReference; relativePath = P; "},
        {"n", "isa = XCLocalSwiftPackageReference; relativePath = \"\"; "}},
       "packageReferences = (q, r, nowhere, n, p, q); ");
  EXPECT_THAT(files(), ElementsAre("a.swift", "Q/Package.swift", "P/Package.swift"));
  EXPECT_THAT(missing(), IsEmpty());
}

TEST_F(Packages, AreLookedUpWithoutRegardToCase) {
  file("Package/Package.swift");
  readPackage("PACKAGE");
  EXPECT_THAT(files(), ElementsAre("Package/Package.swift"));
  EXPECT_THAT(otherCase(), ElementsAre("p PACKAGE is Package"));
}

TEST_F(Packages, WithoutAFolderOrManifestAreMissing) {
  file("P/Sources/a.swift");
  file("Q/Package.swift/x");
  file("file");
  read("",
       {{"p", "isa = XCLocalSwiftPackageReference; relativePath = P; "},
        {"q", "isa = XCLocalSwiftPackageReference; relativePath = q; "},
        {"f", "isa = XCLocalSwiftPackageReference; relativePath = file; "},
        {"n", "isa = XCLocalSwiftPackageReference; relativePath = nowhere; "},
        {"x", "isa = XCLocalSwiftPackageReference; relativePath = \"$(X)\"; "}},
       "packageReferences = (p, q, f, n, x); ");
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(), ElementsAre("p P", "q q", "f file", "n nowhere"));
  EXPECT_THAT(otherCase(), IsEmpty());
  EXPECT_EQ(project_.findings().foreign, 1U);
}

TEST_F(Packages, FollowNoOtherPackages) {
  file("P/Package.swift", ".package(path: \"../Q\")");
  file("P/Sources/a.swift");
  file("Q/Package.swift");
  file("Q/Sources/b.swift");
  readPackage("P");
  EXPECT_THAT(files(), ElementsAre("P/Package.swift", "P/Sources/a.swift"));
}

TEST_F(Packages, AboveTheProjectsParentNeedOneOfTheFolders) {
  disk_.file("Package.swift");
  disk_.file("a.swift");
  readPackage("../..");
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(), ElementsAre("p " + disk_.path()));
  disk_.file("Sources/b.swift");
  readPackage("../..");
  EXPECT_THAT(files(), ElementsAre("//Package.swift", "//Sources/b.swift"));
  EXPECT_THAT(missing(), IsEmpty());
}

TEST_F(Packages, ReferencedTwiceAreReadOnce) {
  file("P/Package.swift");
  file("P/Sources/a.swift");
  read("p", {fileReference("p", "P"), {"q", "isa = XCLocalSwiftPackageReference; relativePath = P; "}},
       "packageReferences = (q); ");
  EXPECT_THAT(files(), ElementsAre("P/Package.swift", "P/Sources/a.swift"));
}

TEST(PathsInManifest, AreFoundAsText) {
  EXPECT_THAT(pathsInManifest("path: \"a\" // path:\"b\" path:\n\t\"c d\""), ElementsAre("a", "b", "c d"));
  EXPECT_THAT(pathsInManifest("path: \"a\\\"b\" path: x path:"), IsEmpty());
  EXPECT_THAT(pathsInManifest("path: \"open"), IsEmpty());
  EXPECT_THAT(pathsInManifest("path: \"\""), ElementsAre(""));
  EXPECT_THAT(pathsInManifest("paths: \"a\", path : \"b\""), IsEmpty());
}

}  // namespace
}  // namespace quillmeter::testing
