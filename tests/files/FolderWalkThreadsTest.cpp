#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <new>
#include <random>
#include <vector>

#include "files/FolderWalk.h"
#include "files/WorkerPool.h"
#include "helpers/DeepTree.h"
#include "helpers/DescriptorLimit.h"
#include "helpers/PlayedFileSystem.h"
#include "helpers/TemporaryFolder.h"
#include "helpers/Unprivileged.h"

/// What a walk gives however many threads make it, and whatever fails meanwhile.
namespace quillmeter {
namespace {

using testing::PlayedFileSystem;
using testing::TemporaryFolder;

constexpr std::size_t kThreads[] = {1, 2, 3, 8, 32};

/// Paths with their types, and the faults.
struct Walked {
  std::vector<std::string> entries;
  std::uint64_t faults = 0;
  std::string firstFault;
  bool wants = false;
  bool operator==(const Walked&) const = default;
};

Walked walked(const std::string& root, const FileSystem& fileSystem, std::size_t threads) {
  WorkerPool pool({threads, threads});
  const FolderWalk walk(root, fileSystem, pool);
  Walked result{{}, walk.faults().count, walk.faults().firstPath, walk.wants().count > 0};
  for (FolderWalk::Index i = 0; i < walk.size(); ++i)
    result.entries.push_back(walk.path(i) + " " + std::to_string(static_cast<int>(walk.type(i))));
  return result;
}

/// A tree of folders, files, links and folders that may not be read, out of a number.
void makeTree(const TemporaryFolder& folder, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<std::string> folders = {""};
  for (int i = 0; i < 150; ++i) {
    const std::string name = folders[random() % folders.size()] + "n" + std::to_string(random() % 60);
    switch (random() % 4) {
      case 0:
        if (!std::filesystem::exists(folder / name)) folder.file(name);
        break;
      case 1:
        ::symlink(folder.path().c_str(), (folder / name).c_str());
        break;
      default:
        if (::mkdir((folder / name).c_str(), 0755) == 0) folders.push_back(name + "/");
    }
  }
  for (std::size_t i = 1; i < folders.size(); ++i)
    if (random() % 10 == 0) ::chmod((folder / folders[i]).c_str(), 0);
}

void openTree(const std::string& root) {
  ::chmod(root.c_str(), 0755);
  for (const auto& entry : std::filesystem::directory_iterator(root))
    if (entry.is_directory() && !entry.is_symlink()) openTree(entry.path());
}

TEST(FolderWalkThreads, GiveTheSameWhateverTheirNumber) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    const TemporaryFolder folder;
    makeTree(folder, seed);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    {
      const testing::Unprivileged unprivileged;
      const Walked expected = walked(folder.path(), FileSystem::real(), 1);
      EXPECT_GT(expected.entries.size(), 10U);
      for (const std::size_t threads : kThreads)
        EXPECT_EQ(walked(folder.path(), FileSystem::real(), threads), expected) << seed << " " << threads;
    }
    openTree(folder.path());
  }
}

TEST(FolderWalkThreads, CountAFolderThatMayNotBeRead) {
  const TemporaryFolder folder;
  folder.file("a/x.m");
  folder.file("b/x.m");
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod((folder / "b").c_str(), 0), 0);
  {
    const testing::Unprivileged unprivileged;
    const FolderWalk walk(folder.path());
    EXPECT_EQ(walk.faults().count, 1U);
    EXPECT_EQ(walk.faults().firstPath, folder / "b");
    EXPECT_FALSE(walk.faults().mayMislead);
  }
  ASSERT_EQ(::chmod((folder / "b").c_str(), 0755), 0);
}

std::string smallTree(const TemporaryFolder& folder) {
  for (const char* file : {"a/b/c/x.m", "a/b/y.m", "a/z.m", "d/e/x.m", "d/f/x.m", "g/x.m", "h.m"})
    folder.file(file);
  return folder.path();
}

/// A disk on which one call fails, counted over all threads.
PlayedFileSystem failingAt(int failing, DiskError error, std::atomic<int>& calls) {
  return PlayedFileSystem([failing, error, &calls](std::string_view, const std::string&) {
    return calls++ == failing ? error : DiskError{};
  });
}

TEST(FolderWalkThreads, TellOfEveryCallThatFails) {
  const TemporaryFolder folder;
  const std::string root = smallTree(folder);
  const Walked whole = walked(root, FileSystem::real(), 1);
  for (const std::size_t threads : kThreads) {
    for (int failing = 0;; ++failing) {
      std::atomic<int> calls = 0;
      const Walked result = walked(root, failingAt(failing, {EIO}, calls), threads);
      if (calls <= failing) break;
      EXPECT_EQ(result.faults, 1U) << failing;
      EXPECT_LE(result.entries.size(), whole.entries.size());
    }
  }
}

TEST(FolderWalkThreads, ListAFolderAgainThatFailedForWantOfDescriptors) {
  const TemporaryFolder folder;
  const std::string root = smallTree(folder);
  const Walked whole = walked(root, FileSystem::real(), 1);
  for (const std::size_t threads : kThreads) {
    for (int failing = 0; failing < 10; ++failing) {
      std::atomic<int> opens = 0;
      const PlayedFileSystem disk([&](std::string_view call, const std::string&) {
        return call.starts_with("openListing") && opens++ == failing ? DiskError{EMFILE} : DiskError{};
      });
      EXPECT_EQ(walked(root, disk, threads), whole) << failing;
    }
  }
}

TEST(FolderWalkThreads, SayWhenThereAreNoDescriptorsAtAll) {
  const TemporaryFolder folder;
  smallTree(folder);
  const PlayedFileSystem disk([](std::string_view, const std::string& item) {
    return item == "e" || item.ends_with("/e") ? DiskError{ENFILE} : DiskError{};
  });
  for (const std::size_t threads : kThreads) {
    WorkerPool pool({threads, threads});
    const FolderWalk walk(folder.path(), disk, pool);
    EXPECT_EQ(walk.wants().count, 1U);
    EXPECT_EQ(walk.wants().firstPath, folder / "d/e");
    EXPECT_TRUE(walk.faults().mayMislead);
  }
}

TEST(FolderWalkThreads, MakeDoWithFewDescriptors) {
  const TemporaryFolder folder;
  std::string path;
  for (int level = 0; level < 60; ++level) {
    for (const char* side : {"a", "b", "c"})
      folder.file(path + side + "/x.m");
    path += "d/";
  }
  const Walked whole = walked(folder.path(), FileSystem::real(), 1);
  EXPECT_EQ(whole.entries.size(), 60U * 7U - 1U);
  for (const std::size_t threads : kThreads) {
    for (const std::size_t descriptors : {1U, 2U, 8U, 30U}) {
      const testing::DescriptorLimit limit(descriptors);
      EXPECT_EQ(walked(folder.path(), FileSystem::real(), threads), whole) << threads << " " << descriptors;
    }
  }
}

TEST(FolderWalkThreads, HandAFailureForWantOfMemoryOver) {
  const TemporaryFolder folder;
  const std::string root = smallTree(folder);
  for (const std::size_t threads : kThreads) {
    for (int failing = 0;; ++failing) {
      std::atomic<int> calls = 0;
      const PlayedFileSystem disk([&](std::string_view, const std::string&) -> DiskError {
        if (calls++ == failing) throw std::bad_alloc();
        return {};
      });
      WorkerPool pool({threads, threads});
      try {
        const FolderWalk walk(root, disk, pool);
        ASSERT_LE(calls, failing);
        break;
      } catch (const std::bad_alloc&) {
      }
    }
  }
}

TEST(FolderWalkThreads, AskForTypesThatAListDoesNotSay) {
  const TemporaryFolder folder;
  folder.file("a/x.m");
  ASSERT_EQ(::symlink("a", (folder / "l").c_str()), 0);

  class Untold final : public FileSystem {
    [[nodiscard]] Result<bool> doListSome(const Descriptor& handle, FolderListing& listing) const override {
      const auto more = real().listSome(handle, listing);
      for (auto& entry : listing.entries())
        entry.type = EntryType::unknown;
      return more;
    }
  };
  EXPECT_EQ(walked(folder.path(), Untold(), 2), walked(folder.path(), FileSystem::real(), 2));
}

}  // namespace
}  // namespace quillmeter
