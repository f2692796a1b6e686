#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "helpers/Unprivileged.h"
#include "xcode/Descriptions.h"

namespace quillmeter::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;
namespace fs = std::filesystem;

/// What stands at the locations that references name.
class References : public DescribedProject {};

TEST_F(References, BringAFileOnceAtItsFirstAppearance) {
  file("b.swift");
  file("S/a.swift");
  read("a, S, again, b", {fileReference("a", "S/a.swift"), fileReference("S", "S"),
                          fileReference("again", "./S//a.swift"), fileReference("b", "b.swift")});
  EXPECT_THAT(files(), ElementsAre("S/a.swift", "b.swift"));
}

TEST_F(References, GoByTheTextOfAPathNotByTheFile) {
  file("a.swift");
  fs::create_symlink("a.swift", folder("b.swift"));
  read("a, b", {fileReference("a", "a.swift"), fileReference("b", "b.swift")});
  EXPECT_THAT(files(), ElementsAre("a.swift", "b.swift"));
}

TEST_F(References, CountFilesOfOtherKindsOnceByExtension) {
  for (const char* path : {"Info.plist", "S/Other.PLIST", "S/Makefile", "S/x.pdf", "S/A.xcassets/i.pdf"})
    file(path);
  read("i, S, again",
       {fileReference("i", "Info.plist"), fileReference("S", "S"), fileReference("again", "Info.plist")});
  EXPECT_THAT(files(), ElementsAre("S/A.xcassets/i.pdf"));
  EXPECT_THAT(other(), UnorderedElementsAre(Pair("plist", 2), Pair("", 1), Pair("pdf", 1)));
  EXPECT_EQ(project_.findings().other.begin()->first, "plist");
}

TEST_F(References, ToFoldersBringTheirContentsInByteOrder) {
  for (const char* path : {"S/b.swift", "S/a/z.m", "S/a.swift", "S/a-b.swift", "S/B/c/d.h"})
    file(path);
  read("S", {fileReference("S", "S")});
  EXPECT_THAT(files(), ElementsAre("S/B/c/d.h", "S/a/z.m", "S/a-b.swift", "S/a.swift", "S/b.swift"));
}

TEST_F(References, LeaveOutOfAFolderWhatIsHiddenOrNoFile) {
  for (const char* path : {"S/.a.swift", "S/.h/b.swift", "S/c.swift", "D/d.swift"})
    file(path);
  fs::create_directory_symlink("../D", folder("S/linked"));
  fs::create_symlink("../D/d.swift", folder("S/e.swift"));
  fs::create_symlink("nowhere.swift", folder("S/f.swift"));
  ASSERT_EQ(::mkfifo(folder("S/pipe.swift").c_str(), 0600), 0);
  read("S", {fileReference("S", "S")});
  EXPECT_THAT(files(), ElementsAre("S/c.swift", "S/e.swift")) << "a link to a file is one";
}

TEST_F(References, LeaveClosedFoldersOutOfAFolder) {
  for (const std::string extension :
       {"app",          "appex",       "bundle",         "dSYM",      "docc",
        "framework",    "icon",        "kext",           "mlmodelc",  "mlpackage",
        "nib",          "playground",  "plugin",         "rtfd",      "scnassets",
        "storyboardc",  "swiftmodule", "xcappdata",      "xcarchive", "xcdatamodel",
        "xcdatamodeld", "xcframework", "xcmappingmodel", "xcodeproj", "xcplugin",
        "xcresult",     "xctest",      "xcworkspace",    "xpc",       "APP",
        "dsym"})
    file("S/x." + extension + "/a.swift");
  file("S/app/b.swift");
  file("S/x.lproj/c.swift");
  read("S", {fileReference("S", "S")});
  EXPECT_THAT(files(), ElementsAre("S/app/b.swift", "S/x.lproj/c.swift"));
}

TEST_F(References, BringNothingOfAClosedFolder) {
  file("Other.xcodeproj/a.swift");
  read("o", {fileReference("o", "Other.xcodeproj")});
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(), IsEmpty());
}

TEST_F(References, EnterAHiddenFolderThatTheyName) {
  file(".hidden/a.swift");
  file(".hidden/.b.swift");
  read("h", {fileReference("h", ".hidden")});
  EXPECT_THAT(files(), ElementsAre(".hidden/a.swift"));
}

TEST_F(References, TakeAnUnreadableFolderForEmpty) {
  file("S/a.swift");
  writeText(descriptionText("S", {fileReference("S", "S")}));
  fs::permissions(disk_.path(), fs::perms::all);
  fs::permissions(folder("S"), fs::perms::none);
  {
    const Unprivileged unprivileged;
    project_.parseFileAtPathAndDelegate(folder("App.xcodeproj"), nullptr);
  }
  fs::permissions(folder("S"), fs::perms::owner_all);
  EXPECT_EQ(project_.findings().error, "");
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(), IsEmpty());
}

TEST_F(References, ThatLeadToNothingAreMissing) {
  file("a.swift/b");
  ASSERT_EQ(::mkfifo(folder("pipe.swift").c_str(), 0600), 0);
  fs::create_symlink("nowhere", folder("link.swift"));
  read("G, f, p, l, b", {group("G", "m", "path = G;"), fileReference("m", "../x/./m.swift"),
                         fileReference("f", "Info.plist"), fileReference("p", "pipe.swift"),
                         fileReference("l", "link.swift"), fileReference("b", "a.swift/b/c")});
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(),
              ElementsAre("m x/m.swift", "f Info.plist", "p pipe.swift", "l link.swift", "b a.swift/b/c"));
}

TEST_F(References, WithAZeroByteLeadToNothing) {
  file("a.swift");
  read("z", {{"z", "isa = PBXFileReference; path = \"a.swift\\000b\"; "}});
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_EQ(project_.findings().missing.size(), 1U);
}

TEST_F(References, AreForeignWhenTheyAreAtHomeWhereTheProjectIsBuilt) {
  std::vector<DescribedObject> objects = {
      fileReference("v", "$(SDKROOT)/x.swift"),
      fileReference("a", "/nowhere/here/x.swift", "<absolute>"),
      {"G", "isa = PBXGroup; children = (g); path = /nowhere; sourceTree = \"<absolute>\"; "},
      fileReference("g", "g.swift")};
  std::string children = "v, a, G";
  for (const std::string extension : {"a", "app", "appex", "bundle", "dylib", "framework", "plugin", "tbd",
                                      "xcframework", "xctest", "APP"}) {
    objects.push_back(fileReference("x" + extension, "x." + extension));
    children += ", x" + extension;
  }
  read(children, objects);
  EXPECT_THAT(missing(), IsEmpty());
  EXPECT_EQ(project_.findings().foreign, 14U);
}

TEST_F(References, ThatExistAreNeverForeign) {
  file("$(X)/a.swift");
  file("lib.a");
  read("v, l, b", {fileReference("v", "$(X)/a.swift"), fileReference("l", "lib.a"),
                   fileReference("b", folder("$(X)/a.swift"), "<absolute>")});
  EXPECT_THAT(files(), ElementsAre("$(X)/a.swift"));
  EXPECT_THAT(other(), ElementsAre(Pair("a", 1)));
  EXPECT_EQ(project_.findings().foreign, 0U);
}

TEST_F(References, BelowAnAbsoluteGroupStopBeingForeignAtTheProject) {
  read("G", {{"G", "isa = PBXGroup; children = (a); path = /nowhere; sourceTree = \"<absolute>\"; "},
             fileReference("a", "a.swift", "SOURCE_ROOT")});
  EXPECT_THAT(missing(), ElementsAre("a a.swift"));
  EXPECT_EQ(project_.findings().foreign, 0U);
}

TEST_F(References, NeverEnterAFolderAboveTheProjectsParent) {
  disk_.file("a.swift");
  disk_.file("work/b.swift");
  read("up, top", {fileReference("up", "../.."), synchronisedGroup("top", "../../../../../../../../..")});
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(), ElementsAre("up " + disk_.path(), "top /"));
  read("parent", {fileReference("parent", "..")});
  EXPECT_THAT(files(), ElementsAre("//work/b.swift")) << "the parent itself is entered";
}

TEST_F(References, FindNamesThatDifferInCase) {
  file("Source Files/Größe/Main.swift");
  read("m", {fileReference("m", "source files/GRO\xCC\x88SSE/main.SWIFT")});
  EXPECT_THAT(files(), ElementsAre("Source Files/Größe/Main.swift"));
  EXPECT_THAT(missing(), IsEmpty());
  EXPECT_THAT(otherCase(),
              ElementsAre("m source files/GRO\xCC\x88SSE/main.SWIFT is Source Files/Größe/Main.swift"));
  EXPECT_EQ(project_.files()[0]->fileName(), "Main.swift");
}

TEST_F(References, PreferTheNameAsItStands) {
  for (const char* path : {"A/x.swift", "a/y.swift", "a/Y.swift"})
    file(path);
  read("y, x", {fileReference("y", "a/y.swift"), fileReference("x", "a/x.swift")});
  EXPECT_THAT(files(), ElementsAre("a/y.swift"));
  EXPECT_THAT(missing(), ElementsAre("x a/x.swift")) << "a piece that exists is taken, whatever follows";
  EXPECT_THAT(otherCase(), IsEmpty());
}

TEST_F(References, TakeTheFirstInByteOrderOfSeveralNames) {
  file("MAIN.swift");
  file("Main.swift");
  file("A\xFF.swift");
  read("m, f", {fileReference("m", "main.swift"), fileReference("f", "a\xFF.swift")});
  EXPECT_THAT(files(), ElementsAre("MAIN.swift"));
  EXPECT_THAT(missing(), ElementsAre("f a\xFF.swift")) << "what is not UTF-8 equals itself only";
}

TEST_F(References, FindAFileThatIsNamedInBothCasesOnce) {
  file("Main.swift");
  read("a, b", {fileReference("a", "main.swift"), fileReference("b", "Main.swift")});
  EXPECT_THAT(files(), ElementsAre("Main.swift"));
  EXPECT_THAT(otherCase(), ElementsAre("a main.swift is Main.swift"));
}

TEST_F(References, KeepNamesThatAreNotUtf8) {
  file("\xFF\xFE.swift");
  read("a", {fileReference("a", "\xFF\xFE.swift")});
  EXPECT_THAT(files(), ElementsAre("\xFF\xFE.swift"));
}

/// Groups that are folders.
class SynchronisedGroups : public DescribedProject {};

TEST_F(SynchronisedGroups, BringTheContentsOfTheirFolder) {
  for (const char* path : {"S/b/c.swift", "S/a.swift", "S/.x.swift", "S/P/Package.swift", "S/P/other.swift"})
    file(path);
  read("s", {synchronisedGroup("s", "s")});
  EXPECT_THAT(files(), ElementsAre("S/P/Package.swift", "S/P/other.swift", "S/a.swift", "S/b/c.swift"));
  EXPECT_THAT(otherCase(), ElementsAre("s s is S"));
}

TEST_F(SynchronisedGroups, AreEnteredWhereAReferenceWouldSeeAPackageOrAClosedFolder) {
  file("P/Package.swift");
  file("P/Other/a.swift");
  file("S.bundle/b.swift");
  read("p, s", {synchronisedGroup("p", "P"), synchronisedGroup("s", "S.bundle")});
  EXPECT_THAT(files(), ElementsAre("P/Other/a.swift", "P/Package.swift", "S.bundle/b.swift"));
}

TEST_F(SynchronisedGroups, LieInGroupsAndAtTheProject) {
  file("G/S/a.swift");
  file("b.swift");
  read("G, n", {group("G", "s", "path = G;"),
                synchronisedGroup("s", "S"),
                {"n", "isa = PBXFileSystemSynchronizedRootGroup; "}});
  EXPECT_THAT(files(), ElementsAre("G/S/a.swift", "b.swift"));
}

TEST_F(SynchronisedGroups, WithoutAFolderAreMissing) {
  file("f.swift");
  read("s, f, x",
       {synchronisedGroup("s", "S"), synchronisedGroup("f", "f.swift"), synchronisedGroup("x", "$(X)")});
  EXPECT_THAT(files(), IsEmpty());
  EXPECT_THAT(missing(), ElementsAre("s S", "f f.swift"));
  EXPECT_EQ(project_.findings().foreign, 1U);
}

}  // namespace
}  // namespace quillmeter::testing
