#include "analysis/PathIndex.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>

#include "analysis/LinearRule.h"
#include "analysis/ParseProject.h"
#include "helpers/ProjectFixture.h"

namespace quillmeter {
namespace {

using testing::candidatesLinearly;
using testing::resolvedLinearly;
using testing::TemporaryFolder;

using Texts = std::vector<std::string>;

Texts pathsOf(const FolderWalk& walk) {
  Texts paths;
  for (FolderWalk::Index i = 0; i < walk.size(); ++i)
    paths.push_back(walk.path(i));
  return paths;
}

/// Every candidate that an index without a history offers.
Texts candidatesIndexed(const std::string& root, const std::string& reference) {
  PathIndex index{FolderWalk(root)};
  Texts candidates;
  index.forEachCandidate(reference, [&](const std::string& path, FolderWalk::Type /*type*/) {
    candidates.push_back(path);
    return false;
  });
  return candidates;
}

/// Every candidate that an index with the history it has offers.
Texts allCandidates(PathIndex& index, const std::string& reference) {
  Texts paths;
  PathIndex::Candidates candidates = index.candidatesOf(reference);
  while (const auto candidate = candidates.next())
    paths.push_back(candidate->path);
  return paths;
}

Texts relativeCandidates(const TemporaryFolder& folder, const std::string& reference) {
  Texts candidates = candidatesIndexed(folder.path(), reference);
  for (std::string& path : candidates)
    path.erase(0, folder.path().size() + 1);
  return candidates;
}

TEST(PathIndex, FindsWholeNamesInAnyLetterCaseInWalkOrder) {
  const TemporaryFolder folder;
  for (const char* file : {"b/FOO.m", "a/foo.M", "Foo.m", "MyFoo.m", "a/Foo.mm"})
    folder.file(file);
  EXPECT_EQ(relativeCandidates(folder, "foo.m"), (Texts{"Foo.m", "a/foo.M", "b/FOO.m"}));
}

TEST(PathIndex, FindsPathsByTheirEndingInTheirOwnLetterCaseOnly) {
  const TemporaryFolder folder;
  for (const char* file : {"x/Sources/A.m", "Sources/A.m", "MySources/A.m", "sources/A.m", "Sources/a.m"}) {
    folder.file(file);
  }
  EXPECT_EQ(relativeCandidates(folder, "Sources/A.m"), (Texts{"Sources/A.m", "x/Sources/A.m"}));
}

TEST(PathIndex, FindsANameThatRepeatsTheReference) {
  const TemporaryFolder folder;
  for (const char* file : {"Foo.mFoo.m", "Foo.mFoo.mFoo.m", "xFoo.mFoo.m", "foo.mFoo.m"})
    folder.file(file);
  EXPECT_EQ(relativeCandidates(folder, "Foo.m"), (Texts{"Foo.mFoo.m", "Foo.mFoo.mFoo.m"}));
}

TEST(PathIndex, FindsAPathThatRepeatsTheReference) {
  const TemporaryFolder folder;
  for (const char* file : {"s/a.ms/a.m", "t/a.ms/a.m", "s/a.ms/a.ms/a.m"})
    folder.file(file);
  EXPECT_EQ(relativeCandidates(folder, "s/a.m"), (Texts{"s/a.ms/a.m", "s/a.ms/a.ms/a.m"}));
}

TEST(PathIndex, RefusesAnEndingWhoseOccurrencesOverlap) {
  const TemporaryFolder folder;
  folder.file("m/m/m");
  const Texts paths = pathsOf(FolderWalk(folder.path()));
  EXPECT_EQ(candidatesIndexed(folder.path(), "m/m"), candidatesLinearly(paths, "m/m"));
}

TEST(PathIndex, FindsAnAbsoluteReferenceOnlyAsTheWholePath) {
  const TemporaryFolder folder;
  const std::string path = folder.file("a/x.m");
  EXPECT_EQ(candidatesIndexed(folder.path(), path), Texts{path});
  EXPECT_EQ(candidatesIndexed(folder.path(), "/x.m"), Texts{});
  EXPECT_EQ(candidatesIndexed(folder.path(), "/elsewhere/x.m"), Texts{});
}

TEST(PathIndex, OffersTheNextCandidateWhenOneIsMissing) {
  const TemporaryFolder folder;
  folder.file("a/x.m");
  folder.file("b/x.m");
  PathIndex index{FolderWalk(folder.path())};
  std::string taken;
  const auto take = [&](const std::string& path, FolderWalk::Type /*type*/) {
    taken = path;
    return !path.ends_with("a/x.m");
  };
  index.forEachCandidate("x.m", take);
  EXPECT_EQ(taken, folder / "b/x.m");
  taken.clear();
  index.forEachCandidate("X.M", take);
  EXPECT_EQ(taken, folder / "b/x.m");
}

TEST(PathIndex, OffersAnEntryThatIsMissingToNoReferenceAgain) {
  const TemporaryFolder folder;
  folder.file("a/x.m");
  folder.file("b/a/x.m");
  PathIndex index{FolderWalk(folder.path())};
  PathIndex::Candidates candidates = index.candidatesOf("x.m");
  const auto first = candidates.next();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->path, folder / "a/x.m");
  EXPECT_EQ(first->type, FolderWalk::Type::regular);
  index.markMissing(first->entry);
  EXPECT_EQ(allCandidates(index, "a/x.m"), Texts{folder / "b/a/x.m"});
  EXPECT_EQ(allCandidates(index, "X.m"), Texts{folder / "b/a/x.m"});
}

TEST(PathIndex, ServesSeveralReferencesAtATime) {
  const TemporaryFolder folder;
  for (int i = 100; i < 200; ++i)
    folder.file(std::to_string(i) + "/a/x.m");
  const Texts paths = pathsOf(FolderWalk(folder.path()));
  PathIndex index{FolderWalk(folder.path())};
  const Texts references = {"x.m", "a/x.m", "X.M", "a/x.m", "150/a/x.m"};
  std::vector<PathIndex::Candidates> candidates;
  for (const std::string& reference : references)
    candidates.push_back(index.candidatesOf(reference));
  std::vector<Texts> found(references.size());
  for (int round = 0; round < 101; ++round) {
    for (std::size_t i = 0; i < references.size(); ++i) {
      if (const auto candidate = candidates[i].next()) found[i].push_back(candidate->path);
    }
  }
  for (std::size_t i = 0; i < references.size(); ++i) {
    EXPECT_EQ(found[i], candidatesLinearly(paths, references[i])) << references[i];
    EXPECT_FALSE(candidates[i].next());
  }
}

TEST(PathIndex, PassesOverWhatWentMissingWhileItIsAsked) {
  for (const std::string reference : {"x.m", "a/x.m"}) {
    const TemporaryFolder folder;
    for (int i = 100; i < 200; ++i)
      folder.file(std::to_string(i) + "/a/x.m");
    PathIndex index{FolderWalk(folder.path())};
    for (int i = 0; i < 20; ++i)
      ASSERT_EQ(allCandidates(index, reference).size(), 100U);
    PathIndex::Candidates one = index.candidatesOf(reference);
    PathIndex::Candidates other = index.candidatesOf(reference);
    EXPECT_EQ(one.next()->path, folder / "100/a/x.m");
    EXPECT_EQ(other.next()->path, folder / "100/a/x.m");
    EXPECT_EQ(other.next()->path, folder / "101/a/x.m");
    while (const auto candidate = other.next()) {
      if (!candidate->path.ends_with("150/a/x.m")) index.markMissing(candidate->entry);
    }
    EXPECT_EQ(one.next()->path, folder / "101/a/x.m");
    EXPECT_EQ(one.next()->path, folder / "150/a/x.m");
    EXPECT_FALSE(one.next());
  }
}

TEST(PathIndex, HasNothingForTheEmptyReferenceOrAnEmptyWalk) {
  const TemporaryFolder folder;
  folder.file("x.m");
  EXPECT_EQ(candidatesIndexed(folder.path(), ""), Texts{});
  EXPECT_EQ(candidatesIndexed(folder / "missing", "x.m"), Texts{});
}

/// Where thousands of small trees are made fastest.
std::filesystem::path placeForTrees() {
  const std::filesystem::path memory = "/dev/shm";
  return ::access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
}

/// Trees and references from few, colliding, awkward names. Every twentieth tree is crowded: it has so many
/// files of each name, and of each two components, that looking at all of them is no way any more.
class TreeGenerator {
 public:
  explicit TreeGenerator(unsigned seed) : crowded_(seed % 20 == 0), random_(seed) {}

  void makeTree(const TemporaryFolder& folder) {
    const int files = crowded_ ? 200 : below(24) + 2;
    for (int i = 0; i < files; ++i) {
      std::string path = "B";
      for (int depth = crowded_ ? 4 : below(4); depth > 0; --depth)
        path += "/" + name();
      addEntry(folder / path, name());
    }
    folder.folder("B/App.xcodeproj");
    if (below(2) == 0) addEntry(folder.path(), name());
  }

  std::string reference(const Texts& paths) {
    std::string result =
        below(3) == 0 || paths.empty() ? joinedNames() : endingOf(paths[index(paths.size())]);
    switch (below(12)) {
      case 0:
        return result + result;
      case 1:
        return lowerCased(result);
      case 2:
        return "../" + result;
      case 3:
        return "../../" + result;
      case 4:
        return "x" + result;
      case 5:
        return paths.empty() ? result : paths[index(paths.size())];
      case 6:
        return "/" + result;
      case 7:
        return result.substr(below(2) == 0 ? 1 : result.size() / 2);
      case 8:
        return climbing(below(60)) + result;
      case 9:
        return result + "/../" + name();
      default:
        return result;
    }
  }

 private:
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
  std::size_t index(std::size_t size) {
    return std::uniform_int_distribution<std::size_t>(0, size - 1)(random_);
  }

  static std::string climbing(int levels) {
    std::string result;
    for (int i = 0; i < levels; ++i)
      result += "../";
    return result;
  }

  std::string name() {
    static constexpr std::array<const char*, 26> names = {
        "a.m", "A.m",  "a.ma.m", "A.ma.m", "m",         "mm",  "x y.c", "Ä.m",   "ä.m",
        "ß.h", "SS.h", "İ.m",    "b",      "B",         "a",   "aa",    "a.m.m", "..a.m",
        ".m",  "c",    "ccc",    "c.c",    "e\u0301.m", "é.m", "b.mb",  "\xff.m"};
    constexpr std::size_t crowd = 3;
    return names[index(crowded_ ? crowd : names.size())];
  }

  std::string joinedNames() {
    std::string result = name();
    for (int i = below(3); i > 0; --i)
      result += "/" + name();
    return result;
  }

  std::string endingOf(const std::string& path) {
    std::size_t start = path.rfind('/');
    for (int i = below(3); i > 0 && start > 0; --i)
      start = path.rfind('/', start - 1);
    return path.substr(start + 1);
  }

  void addEntry(const std::string& folder, const std::string& entry) {
    std::error_code taken;
    std::filesystem::create_directories(folder, taken);
    const std::string path = folder + "/" + entry;
    if (below(8) == 0) {
      std::filesystem::create_directory(path, taken);
    } else if (below(8) == 0) {
      std::filesystem::create_symlink("nowhere", path, taken);
    } else if (std::ofstream file(path, std::ios::app); file.good()) {
      file << "x";
    }
  }

  bool crowded_;
  std::mt19937 random_;
};

TEST(PathIndexAgainstTheLinearRule, OffersTheSameCandidates) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    const TemporaryFolder folder(placeForTrees());
    TreeGenerator generator(seed);
    generator.makeTree(folder);
    const Texts paths = pathsOf(FolderWalk(folder / "B"));
    for (int i = 0; i < 12; ++i) {
      const std::string reference = generator.reference(paths);
      ASSERT_EQ(candidatesIndexed(folder / "B", reference), candidatesLinearly(paths, reference))
          << "seed " << seed << ", reference " << reference;
    }
  }
}

/// Paths of few names that repeat and overlap each other, deep and crowded.
Texts makeRepetitiveTree(const TemporaryFolder& folder, std::mt19937& random) {
  static constexpr std::array<const char*, 6> names = {"m", "mm", "m.m", "c", "M", "mc"};
  const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
  const int used = 1 + below(names.size());
  for (int i = 5 + below(30); i > 0; --i) {
    std::string path = "m";
    for (int depth = below(9); depth > 0; --depth)
      path += std::string("/") + names[static_cast<std::size_t>(below(used))];
    folder.folder(path);
  }
  return pathsOf(FolderWalk(folder / "m"));
}

TEST(PathIndexAgainstTheLinearRule, OffersTheSameCandidatesHoweverManyQuestionsCameBefore) {
  int candidates = 0;
  for (unsigned seed = 0; seed < 200; ++seed) {
    std::mt19937 random(seed);
    const TemporaryFolder folder(placeForTrees());
    const Texts paths = makeRepetitiveTree(folder, random);
    PathIndex index{FolderWalk(folder / "m")};
    for (int i = 0; i < 120; ++i) {
      const std::string& path = paths[random() % paths.size()];
      std::string reference =
          path.substr(path.size() - 1 - random() % std::min<std::size_t>(path.size(), 24));
      if (random() % 8 == 0) reference += reference;
      const Texts expected = candidatesLinearly(paths, reference);
      for (int again = 0; again < 2; ++again)
        ASSERT_EQ(allCandidates(index, reference), expected)
            << "seed " << seed << ", reference " << reference;
      candidates += static_cast<int>(expected.size());
    }
  }
  EXPECT_GT(candidates, 30000);
}

TEST(PathIndexAgainstTheLinearRule, LosesTheSameMissingEntriesWhateverTheReference) {
  for (unsigned seed = 0; seed < 200; ++seed) {
    std::mt19937 random(seed);
    const TemporaryFolder folder(placeForTrees());
    Texts paths = makeRepetitiveTree(folder, random);
    PathIndex index{FolderWalk(folder / "m")};
    for (int i = 0; i < 60 && !paths.empty(); ++i) {
      const std::string path = paths[random() % paths.size()];
      const std::string reference =
          path.substr(path.size() - 1 - random() % std::min<std::size_t>(path.size(), 24));
      Texts offered;
      const std::size_t taken = random() % 4;
      index.forEachCandidate(reference, [&](const std::string& candidate, FolderWalk::Type /*type*/) {
        offered.push_back(candidate);
        return offered.size() > taken;
      });
      Texts expected = candidatesLinearly(paths, reference);
      expected.resize(std::min(expected.size(), taken + 1));
      ASSERT_EQ(offered, expected) << "seed " << seed << ", reference " << reference;
      if (offered.size() > taken) offered.pop_back();
      std::erase_if(paths, [&](const std::string& missing) {
        return std::find(offered.begin(), offered.end(), missing) != offered.end();
      });
    }
  }
}

TEST(PathIndexAgainstTheLinearRule, ResolvesToTheSameFileThroughAWholeList) {
  int found = 0;
  for (unsigned seed = 1000; seed < 3000; ++seed) {
    const TemporaryFolder folder(placeForTrees());
    TreeGenerator generator(seed);
    generator.makeTree(folder);
    const std::string bundle = folder / "B/App.xcodeproj";
    folder.file("B/App.xcodeproj/project.pbxproj", testing::projectText({"nothing.m"}));
    ParseProject project;
    project.parseFileAtPathAndDelegate(bundle, nullptr);
    const Texts paths = project.getAllFilesFromInitialPath(bundle);
    for (int i = 0; i < 24; ++i) {
      const std::string reference = generator.reference(paths);
      const auto file = project.getFileInfoAtInitialPath(reference, bundle);
      const auto expected = resolvedLinearly(paths, folder / "B", reference);
      ASSERT_EQ(file ? file->filePath() : std::nullopt, expected)
          << "seed " << seed << ", reference " << reference;
      if (expected) ++found;
    }
  }
  EXPECT_GT(found, 10000);
}

}  // namespace
}  // namespace quillmeter
