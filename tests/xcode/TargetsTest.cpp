#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "xcode/Descriptions.h"

namespace quillmeter::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

DescribedObject target(const std::string& identifier, const std::string& phases,
                       const std::string& more = {}) {
  return {identifier,
          "isa = PBXNativeTarget; buildPhases = (" + phases + "); name = " + identifier + "; " + more};
}
DescribedObject phase(const std::string& identifier, const std::string& files) {
  return {identifier, "isa = PBXSourcesBuildPhase; files = (" + files + "); "};
}
DescribedObject buildFile(const std::string& identifier, const std::string& reference) {
  return {identifier, "isa = PBXBuildFile; fileRef = " + reference + "; "};
}
DescribedObject exceptionSet(const std::string& identifier, const std::string& ofTarget,
                             const std::string& paths) {
  return {identifier, "isa = PBXFileSystemSynchronizedBuildFileExceptionSet; target = " + ofTarget +
                          "; membershipExceptions = (" + paths + "); "};
}

class Targets : public DescribedProject {
 protected:
  Strings names() const {
    Strings result;
    for (const ProjectTarget& target : project_.findings().targets)
      result.push_back(target.name);
    return result;
  }

  /// A synchronised folder "S" with an exception set for the target T, which names it.
  Strings withExceptions(const std::string& paths) {
    read("s",
         {synchronisedGroup("s", "S", "exceptions = (e);"), exceptionSet("e", "T", paths),
          target("T", "", "fileSystemSynchronizedGroups = (s);")},
         "targets = (T); ");
    return target("T");
  }
  using DescribedProject::target;
  static DescribedObject target(const std::string& identifier, const std::string& phases,
                                const std::string& more = {}) {
    return testing::target(identifier, phases, more);
  }
};

TEST_F(Targets, HaveTheFilesOfTheirBuildPhases) {
  for (const char* path : {"a.swift", "b.m", "c.xib", "d.swift"})
    file(path);
  read("d, c, b, a",
       {fileReference("a", "a.swift"), fileReference("b", "b.m"), fileReference("c", "c.xib"),
        fileReference("d", "d.swift"), target("T", "p, q"), phase("p", "fa, fb, fa"), phase("q", "fc"),
        buildFile("fa", "a"), buildFile("fb", "b"), buildFile("fc", "c")},
       "targets = (T); ");
  EXPECT_THAT(target("T"), ElementsAre("c.xib", "b.m", "a.swift"));
}

TEST_F(Targets, MayShareFilesAndLeaveSomeOut) {
  for (const char* path : {"a.swift", "b.swift", "c.h"})
    file(path);
  read("a, b, c",
       {fileReference("a", "a.swift"), fileReference("b", "b.swift"), fileReference("c", "c.h"),
        target("T", "p"), phase("p", "f1"), buildFile("f1", "a"), target("U", "q"), phase("q", "f1, f2"),
        buildFile("f2", "b")},
       "targets = (T, U); ");
  EXPECT_THAT(target("T"), ElementsAre("a.swift"));
  EXPECT_THAT(target("U"), ElementsAre("a.swift", "b.swift"));
  EXPECT_THAT(files(), ElementsAre("a.swift", "b.swift", "c.h"));
}

TEST_F(Targets, AreThoseWithBuildPhasesInTheirOrderEachOnce) {
  read("",
       {target("U", ""),
        {"L", "isa = PBXLegacyTarget; name = L; "},
        {"A", "isa = PBXAggregateTarget; name = A; buildPhases = (); "},
        {"M", "isa = PBXLegacyTarget; productName = \"Made up\"; buildPhases = (); "},
        {"N", "isa = PBXNativeTarget; name = \"\"; productName = N; buildPhases = (); "},
        {"W", "isa = PBXNativeTarget; name = W; buildPhases = wrong; "}},
       "targets = (U, L, A, U, nowhere, M, N, W); ");
  EXPECT_THAT(names(), ElementsAre("U", "A", "Made up", "N"));
}

TEST_F(Targets, HaveNoTypeAskedButThatOfBuildFiles) {
  file("a.swift");
  file("b.swift");
  read("a, b",
       {fileReference("a", "a.swift"),
        fileReference("b", "b.swift"),
        {"T", "name = T; buildPhases = (p); "},
        {"p", "files = (f, g); "},
        buildFile("f", "a"),
        {"g", "isa = PBXOther; fileRef = b; "}},
       "targets = (T); ");
  EXPECT_THAT(target("T"), ElementsAre("a.swift"));
}

TEST_F(Targets, HaveWhatVariantAndVersionGroupsHoldAtAnyDepth) {
  for (const char* path : {"en.lproj/a.xib", "de.lproj/a.xib", "v/b.swift"})
    file(path);
  read("V, X",
       {{"V", "isa = PBXVariantGroup; children = (e, W); "},
        fileReference("e", "en.lproj/a.xib"),
        {"W", "isa = PBXVariantGroup; children = (d, V); "},
        fileReference("d", "de.lproj/a.xib"),
        {"X", "isa = XCVersionGroup; children = (b); path = v; "},
        fileReference("b", "b.swift"),
        target("T", "p"),
        phase("p", "f, g"),
        buildFile("f", "V"),
        buildFile("g", "X")},
       "targets = (T); ");
  EXPECT_THAT(target("T"), ElementsAre("en.lproj/a.xib", "de.lproj/a.xib", "v/b.swift"));
}

TEST_F(Targets, HaveAllThatCameFromAReferenceToAFolder) {
  for (const char* path : {"A.xcassets/x/i.png", "A.xcassets/j.pdf", "P/Package.swift", "P/Sources/a.swift"})
    file(path);
  read("A, P",
       {fileReference("A", "A.xcassets"), fileReference("P", "P"), target("T", "p"), phase("p", "f, g"),
        buildFile("f", "A"), buildFile("g", "P")},
       "targets = (T); ");
  EXPECT_THAT(target("T"),
              ElementsAre("A.xcassets/j.pdf", "A.xcassets/x/i.png", "P/Package.swift", "P/Sources/a.swift"));
}

TEST_F(Targets, HaveAFileByAnyOfThePlacesItCameFrom) {
  file("S/a.swift");
  file("S/b.swift");
  read("s, S, a",
       {synchronisedGroup("s", "S", "exceptions = (e);"), exceptionSet("e", "T", "a.swift, b.swift"),
        fileReference("S", "S"), fileReference("a", "S/a.swift"),
        target("T", "p", "fileSystemSynchronizedGroups = (s);"), phase("p", "f"), buildFile("f", "a"),
        target("U", "q"), phase("q", "g"), buildFile("g", "S")},
       "targets = (T, U); ");
  EXPECT_THAT(files(), ElementsAre("S/a.swift", "S/b.swift"));
  EXPECT_THAT(target("T"), ElementsAre("S/a.swift"));
  EXPECT_THAT(target("U"), ElementsAre("S/a.swift", "S/b.swift"));
}

TEST_F(Targets, HaveNothingOfReferencesThatAreInNoGroupOrLeadNowhere) {
  file("a.swift");
  read("",
       {fileReference("a", "a.swift"),
        target("T", "p, nowhere"),
        phase("p", "f, g, h, nowhere"),
        buildFile("f", "a"),
        buildFile("g", "nowhere"),
        {"h", "isa = PBXBuildFile; productRef = a; "}},
       "targets = (T); ");
  EXPECT_THAT(target("T"), IsEmpty());
}

TEST_F(Targets, LeaveLocalPackagesInNone) {
  file("P/Package.swift");
  read("",
       {{"q", "isa = XCLocalSwiftPackageReference; relativePath = P; "},
        target("T", "p"),
        phase("p", "f"),
        buildFile("f", "q")},
       "packageReferences = (q); targets = (T); ");
  EXPECT_THAT(files(), ElementsAre("P/Package.swift"));
  EXPECT_THAT(target("T"), IsEmpty());
}

TEST_F(Targets, HaveTheFilesOfTheSynchronisedGroupsTheyName) {
  for (const char* path : {"S/a.swift", "S/i/b.h", "R/c.swift"})
    file(path);
  read("s, r",
       {synchronisedGroup("s", "S"), synchronisedGroup("r", "R"),
        target("T", "", "fileSystemSynchronizedGroups = (s, nowhere, s);"), target("U", "")},
       "targets = (T, U); ");
  EXPECT_THAT(target("T"), ElementsAre("S/a.swift", "S/i/b.h"));
  EXPECT_THAT(target("U"), IsEmpty());
}

TEST_F(Targets, LeaveOutWhatAnExceptionSetLists) {
  for (const char* path :
       {"S/a.swift", "S/b.swift", "S/i/c.swift", "S/i/d.swift", "S/i.swift", "S/i-.swift", "S/k/l/e.swift"})
    file(path);
  EXPECT_THAT(withExceptions("a.swift, i, k/l/e.swift"), ElementsAre("S/b.swift", "S/i-.swift", "S/i.swift"));
  EXPECT_THAT(withExceptions("A.swift, K"),
              ElementsAre("S/a.swift", "S/b.swift", "S/i/c.swift", "S/i/d.swift", "S/i-.swift", "S/i.swift",
                          "S/k/l/e.swift"))
      << "exact in case";
  EXPECT_THAT(withExceptions("./k//l, i/../b.swift, i/, (a.swift), \"\""),
              ElementsAre("S/a.swift", "S/i-.swift", "S/i.swift"));
}

TEST_F(Targets, LeaveOutWhatIsListedBesideAFolderThatStandsForIt) {
  for (const char* path : {"S/i/a.swift", "S/i/j/b.swift", "S/z.swift"})
    file(path);
  EXPECT_THAT(withExceptions("i/j/b.swift, i/j, i, i/a.swift"), ElementsAre("S/z.swift"));
}

TEST_F(Targets, LeaveOutLocalisedFilesInEachLanguage) {
  for (const char* path : {"S/de.lproj/a.xib", "S/en.lproj/a.xib", "S/en.lproj/b.xib", "S/D/E/fr.lproj/a.xib",
                           "S/D/E/it.lproj/a.xib/in.swift", "S/D/E/x/a.xib", "S/a.xib"})
    file(path);
  EXPECT_THAT(withExceptions("\"/Localized: a.xib\""),
              ElementsAre("S/D/E/fr.lproj/a.xib", "S/D/E/it.lproj/a.xib/in.swift", "S/D/E/x/a.xib", "S/a.xib",
                          "S/en.lproj/b.xib"));
  EXPECT_THAT(
      withExceptions("\"/Localized: D/E/a.xib\""),
      ElementsAre("S/D/E/x/a.xib", "S/a.xib", "S/de.lproj/a.xib", "S/en.lproj/a.xib", "S/en.lproj/b.xib"));
  EXPECT_THAT(withExceptions("/Localized/D/E/a.xib, /Localized/b.xib"),
              ElementsAre("S/D/E/x/a.xib", "S/a.xib", "S/de.lproj/a.xib", "S/en.lproj/a.xib"));
  EXPECT_THAT(withExceptions("\"/Localized: \", /Localized/, /Localized, /LocalizedX/a.xib"),
              ::testing::SizeIs(7));
}

TEST_F(Targets, ListExceptionsRelativeToTheFolderFoundOnDisk) {
  file("Source/a.swift");
  file("Source/b.swift");
  read("s",
       {synchronisedGroup("s", "SOURCE", "exceptions = (e);"), exceptionSet("e", "T", "a.swift"),
        target("T", "", "fileSystemSynchronizedGroups = (s);")},
       "targets = (T); ");
  EXPECT_THAT(target("T"), ElementsAre("Source/b.swift"));
}

TEST_F(Targets, GainWhatASetOfAnotherGroupListsForThem) {
  for (const char* path : {"S/a.swift", "S/b.swift", "S/i/c.swift"})
    file(path);
  read("s",
       {synchronisedGroup("s", "S", "exceptions = (e, f, g, nowhere);"),
        exceptionSet("e", "T", "a.swift"),
        exceptionSet("f", "U", "a.swift, i"),
        {"g", "membershipExceptions = (b.swift); buildPhase = p; "},
        target("T", "", "fileSystemSynchronizedGroups = (s);"),
        target("U", "")},
       "targets = (T, U); ");
  EXPECT_THAT(target("T"), ElementsAre("S/b.swift", "S/i/c.swift"));
  EXPECT_THAT(target("U"), ElementsAre("S/a.swift", "S/i/c.swift"));
}

TEST_F(Targets, HaveTheExceptionsOfTheGroupThatAFileCameFrom) {
  file("S/i/a.swift");
  file("S/b.swift");
  read("s, i",
       {synchronisedGroup("s", "S", "exceptions = (e);"), exceptionSet("e", "T", "i, b.swift"),
        synchronisedGroup("i", "S/i"), target("T", "", "fileSystemSynchronizedGroups = (s, i);")},
       "targets = (T); ");
  EXPECT_THAT(target("T"), ElementsAre("S/i/a.swift")) << "it came from the inner group too";
}

TEST_F(Targets, HaveNothingOfSynchronisedGroupsThatAreInNoGroup) {
  file("S/a.swift");
  read("",
       {synchronisedGroup("s", "S", "exceptions = (e);"), exceptionSet("e", "U", "a.swift"),
        target("T", "", "fileSystemSynchronizedGroups = (s);"), target("U", "")},
       "targets = (T, U); ");
  EXPECT_THAT(target("T"), IsEmpty());
  EXPECT_THAT(target("U"), IsEmpty());
}

TEST_F(Targets, AddSeveralSetsOfOneGroupUp) {
  for (const char* path : {"S/a.swift", "S/b.swift", "S/c.swift"})
    file(path);
  read("s",
       {synchronisedGroup("s", "S", "exceptions = (e, f);"), exceptionSet("e", "T", "a.swift"),
        exceptionSet("f", "T", "b.swift"), target("T", "", "fileSystemSynchronizedGroups = (s);")},
       "targets = (T); ");
  EXPECT_THAT(target("T"), ElementsAre("S/c.swift"));
}

}  // namespace
}  // namespace quillmeter::testing
