#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <new>
#include <random>
#include <thread>
#include <vector>

#include "analysis/ParseProject.h"
#include "helpers/DescriptorLimit.h"
#include "helpers/PlayedFileSystem.h"
#include "helpers/ProjectFixture.h"
#include "helpers/Unprivileged.h"

/// What is seen of a read from outside, however many threads make it and whatever fails meanwhile.
namespace quillmeter {
namespace {

using testing::PlayedFileSystem;
using testing::TemporaryFolder;
using testing::writeProject;
using Texts = std::vector<std::string>;

constexpr std::size_t kThreads[] = {1, 2, 3, 8, 32};

/// Everything that a read says and gives, a line each, and that all of it came on the reader's thread.
class Witness final : public ParseProjectDelegate {
 public:
  void progressParsingProjectStarted() override { note("started"); }
  void progressParsingProject(double fraction) override { note(std::to_string(fraction)); }
  void progressParsingProjectEnded() override { note("ended"); }
  void note(std::string line) {
    EXPECT_EQ(std::this_thread::get_id(), reader_);
    said.push_back(std::move(line));
  }
  Texts said;

 private:
  std::thread::id reader_ = std::this_thread::get_id();
};

std::string textOf(const std::optional<Number>& number) {
  return number ? std::to_string(number->longValue()) : "-";
}

std::string textOf(const FileObject& file) {
  std::string text = file.filePath().value_or("-");
  for (const auto* number : {&file.fileSize(), &file.noLinesTotal(), &file.noLinesWithoutSpaces(),
                             &file.noLinesComments(), &file.noWords(), &file.noCharactersTotal()})
    text += " " + textOf(*number);
  return text;
}

struct Outcome {
  Texts said;
  Texts files;
  std::uint64_t faults = 0;
  std::string firstFault;
  bool mayMislead = false;
  bool operator==(const Outcome&) const = default;
};

Outcome outcomeOf(const ParseProject& project, Texts said = {}) {
  Outcome outcome{
      std::move(said), {}, project.faults().count, project.faults().firstPath, project.faults().mayMislead};
  for (const auto& file : project.files())
    outcome.files.push_back(textOf(*file));
  return outcome;
}

Outcome read(const std::string& bundle, const FileSystem& disk, std::size_t threads) {
  ParseProject project(disk);
  project.setThreads({threads, threads});
  Witness witness;
  project.setLogSink([&witness](std::string_view line) { witness.note(std::string(line)); });
  project.parseFileAtPathAndDelegate(bundle, &witness);
  return outcomeOf(project, std::move(witness.said));
}

/// A project with files of all kinds, links, missing ones, and folders that may not be read, out of a number.
std::string makeProject(const TemporaryFolder& folder, unsigned seed) {
  std::mt19937 random(seed);
  Texts references;
  for (int i = 0; i < 120; ++i) {
    const std::string name = "n" + std::to_string(random() % 40) + (random() % 4 == 0 ? ".png" : ".m");
    const std::string inside = "d" + std::to_string(random() % 7) + "/e" + std::to_string(random() % 3) + "/";
    std::filesystem::create_directories(folder / inside);
    switch (random() % 5) {
      case 0:
        ::symlink("nowhere", (folder / (inside + name)).c_str());
        break;
      case 1:
        ::mkdir((folder / (inside + name)).c_str(), 0755);
        break;
      default:
        if (!std::filesystem::exists(folder / (inside + name)))
          folder.file(inside + name, std::string(random() % 200, '\n') + "int a;\n");
    }
    references.push_back(random() % 2 == 0 ? name : inside + name);
    if (random() % 6 == 0) references.push_back("../" + folder.path().substr(5) + "/" + inside + name);
    if (random() % 6 == 0) references.push_back("missing" + std::to_string(i) + ".m");
  }
  const std::string bundle = writeProject(folder, references);
  ::chmod((folder / "d1").c_str(), 0);
  return bundle;
}

TEST(ManyThreads, GiveTheSameWhateverTheirNumber) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    const TemporaryFolder folder;
    const std::string bundle = makeProject(folder, seed);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    {
      const testing::Unprivileged unprivileged;
      const Outcome expected = read(bundle, FileSystem::real(), 1);
      EXPECT_GT(expected.files.size(), 20U);
      EXPECT_GT(expected.faults, 0U);
      for (const std::size_t threads : kThreads)
        EXPECT_EQ(read(bundle, FileSystem::real(), threads), expected) << seed << " " << threads;
    }
    ASSERT_EQ(::chmod((folder / "d1").c_str(), 0755), 0);
  }
}

TEST(ManyThreads, PassOverFilesThatVanishAlike) {
  const TemporaryFolder folder;
  const std::string bundle = makeProject(folder, 3);
  ASSERT_EQ(::chmod((folder / "d1").c_str(), 0755), 0);
  const PlayedFileSystem disk([](std::string_view call, const std::string& item) {
    const bool gone = item.find("e1/n2") != std::string::npos;
    return gone && (call == "open" || call == "status") ? DiskError{ENOENT} : DiskError{};
  });
  const Outcome expected = read(bundle, disk, 1);
  EXPECT_NE(expected, read(bundle, FileSystem::real(), 1)) << "nothing vanished";
  for (const std::size_t threads : kThreads)
    EXPECT_EQ(read(bundle, disk, threads), expected) << threads;
}

/// More lines and files than are looked at ahead.
std::string longProject(const TemporaryFolder& folder) {
  Texts references;
  for (int i = 0; i < 1500; ++i) {
    references.push_back("f" + std::to_string(i) + (i % 3 == 0 ? ".m" : ".none"));
    if (i % 3 == 0) folder.file(references.back(), std::string(static_cast<std::size_t>(i % 50), '\n'));
  }
  return writeProject(folder, references);
}

TEST(ManyThreads, KeepTheOrderOfALongProject) {
  const TemporaryFolder folder;
  const std::string bundle = longProject(folder);
  const Outcome expected = read(bundle, FileSystem::real(), 1);
  EXPECT_EQ(expected.files.size(), 500U);
  EXPECT_EQ(expected.said.size(), 1500U + 500U + 2U);
  for (const std::size_t threads : kThreads)
    EXPECT_EQ(read(bundle, FileSystem::real(), threads), expected) << threads;
}

TEST(ManyThreads, HaveNoMoreThanAWindowOfFilesOnTheirWay) {
  const TemporaryFolder folder;
  const std::string bundle = longProject(folder);
  std::atomic<int> opened = 0;
  const PlayedFileSystem disk([&opened](std::string_view call, const std::string&) {
    if (call == "open") ++opened;
    return DiskError{};
  });
  ParseProject project(disk);
  project.setThreads({8, 8});
  int delivered = 0;
  int furthest = 0;
  project.setLogSink([&](std::string_view) { furthest = std::max(furthest, opened - ++delivered); });
  project.parseFileAtPathAndDelegate(bundle, nullptr);
  EXPECT_EQ(delivered, 500);
  EXPECT_LE(furthest, 260);
}

std::string smallProject(const TemporaryFolder& folder) {
  for (const char* file : {"a/b/one.m", "a/two.m", "c/three.m", "c/d/four.h", "five.xib", "c/icon.png"})
    folder.file(file, "int a;\n// b\n");
  return writeProject(
      folder, {"one.m", "a/two.m", "three.m", "four.h", "missing.m", "five.xib", "icon.png", "../c/three.m"});
}

/// Runs `read` with each call to the disk in turn as the one for which `failing` gives an error.
template <class Read>
void forEachCall(const Read& read) {
  for (const std::size_t threads : kThreads) {
    for (int failing = 0;; ++failing) {
      SCOPED_TRACE(std::to_string(threads) + " threads, call " + std::to_string(failing));
      std::atomic<int> calls = 0;
      const auto isNow = [&calls, failing] { return calls++ == failing; };
      read(threads, isNow);
      if (calls <= failing) break;
      ASSERT_LT(failing, 1000);
    }
  }
}

TEST(ManyThreads, NeverGiveOtherFiguresWithoutAFault) {
  const TemporaryFolder folder;
  const std::string bundle = smallProject(folder);
  const Outcome whole = read(bundle, FileSystem::real(), 1);
  EXPECT_EQ(whole.files.size(), 7U);
  forEachCall([&](std::size_t threads, const auto& isNow) {
    const PlayedFileSystem disk(
        [&](std::string_view, const std::string&) { return isNow() ? DiskError{EIO} : DiskError{}; });
    const Outcome result = read(bundle, disk, threads);
    if (result.files != whole.files) {
      EXPECT_EQ(result.faults, 1U);
      EXPECT_TRUE(result.mayMislead);
    }
  });
}

TEST(ManyThreads, GiveTheSameAfterWantOfDescriptorsOrFail) {
  const TemporaryFolder folder;
  const std::string bundle = smallProject(folder);
  const Outcome whole = read(bundle, FileSystem::real(), 1);
  int same = 0;
  forEachCall([&](std::size_t threads, const auto& isNow) {
    const PlayedFileSystem disk([&](std::string_view call, const std::string&) {
      return isNow() && call.starts_with("open") ? DiskError{EMFILE} : DiskError{};
    });
    try {
      EXPECT_EQ(read(bundle, disk, threads), whole);
      ++same;
    } catch (const TooFewDescriptors&) {
    }
  });
  EXPECT_GT(same, 50);
}

TEST(ManyThreads, FailWhereDescriptorsNeverSuffice) {
  const TemporaryFolder folder;
  const std::string bundle = smallProject(folder);
  for (const std::string item : {"project.pbxproj", "d", "three.m"}) {
    const PlayedFileSystem disk([&item](std::string_view call, const std::string& asked) {
      return call.starts_with("open") && asked.ends_with(item) ? DiskError{EMFILE} : DiskError{};
    });
    for (const std::size_t threads : kThreads) {
      ParseProject project(disk);
      project.setThreads({threads, threads});
      try {
        project.parseFileAtPathAndDelegate(bundle, nullptr);
        ADD_FAILURE() << item;
      } catch (const TooFewDescriptors& failure) {
        EXPECT_NE(std::string(failure.what()).find(item + ": Too many open files"), std::string::npos)
            << failure.what();
      }
      EXPECT_TRUE(project.files().empty());
    }
  }
}

TEST(ManyThreads, FindAllWithFewDescriptors) {
  const TemporaryFolder folder;
  std::string path;
  for (int level = 0; level < 60; ++level) {
    folder.file(path + "side/x" + std::to_string(level) + ".m", "int a;\n");
    path += "d/";
  }
  folder.file(path + "deepest.m", "int a;\n");
  const std::string bundle = writeProject(folder, {"deepest.m", "x59.m", "x3.m"});
  for (const std::size_t threads : kThreads) {
    for (const std::size_t descriptors : {1U, 2U, 5U, 30U}) {
      const testing::DescriptorLimit limit(descriptors);
      EXPECT_EQ(read(bundle, FileSystem::real(), threads).files.size(), 3U) << threads << " " << descriptors;
    }
  }
}

TEST(ManyThreads, HandAFailureForWantOfMemoryOver) {
  const TemporaryFolder folder;
  const std::string bundle = smallProject(folder);
  const Outcome whole = read(bundle, FileSystem::real(), 1);
  forEachCall([&](std::size_t threads, const auto& isNow) {
    bool failed = false;
    const PlayedFileSystem disk([&](std::string_view, const std::string&) -> DiskError {
      if (!isNow()) return {};
      failed = true;
      throw std::bad_alloc();
    });
    ParseProject project(disk);
    project.setThreads({threads, threads});
    try {
      project.parseFileAtPathAndDelegate(bundle, nullptr);
      // A description that does not fit into memory is a fault of its own.
      EXPECT_TRUE(!failed || project.faults().mayMislead);
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(failed);
      EXPECT_TRUE(project.files().empty());
    }
  });
}

TEST(ManyThreads, AskTheDiskForNothingAfterAStop) {
  const TemporaryFolder folder;
  const std::string bundle = smallProject(folder);
  const Outcome whole = read(bundle, FileSystem::real(), 1);
  forEachCall([&](std::size_t threads, const auto& isNow) {
    std::stop_source stop;
    std::atomic<int> begunAfterwards = 0;
    bool stopped = false;
    const PlayedFileSystem disk([&](std::string_view, const std::string&) {
      if (stop.stop_requested()) ++begunAfterwards;
      if (isNow()) stopped = stop.request_stop();
      return DiskError{};
    });
    ParseProject project(disk);
    project.setThreads({threads, threads});
    project.setStopToken(stop.get_token());
    project.parseFileAtPathAndDelegate(bundle, nullptr);
    // A call that was on its way to the disk when the stop came may still arrive.
    EXPECT_LT(begunAfterwards, static_cast<int>(threads));
    if (!stopped) return;
    EXPECT_EQ(project.faults().count, 0U);
    project.setStopToken({});
    project.parseFileAtPathAndDelegate(bundle, nullptr);
    EXPECT_EQ(outcomeOf(project).files, whole.files);
  });
}

}  // namespace
}  // namespace quillmeter
