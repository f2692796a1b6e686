#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

#include "helpers/TemporaryFolder.h"
#include "support/AtomicFile.h"
#include "support/WritingSystem.h"

namespace quillmeter {
namespace {

using testing::readFile;
using testing::TemporaryFolder;

/// The disk, but one of its calls fails; optionally one without unnamed files, and with short writes.
class FaultySystem final : public WritingSystem {
 public:
  FaultySystem(int failingCall, int error, bool naming)
      : failingCall_(failingCall), error_(error), naming_(naming) {}

  [[nodiscard]] int calls() const { return calls_; }
  [[nodiscard]] bool failedToRemove() const { return failedToRemove_; }

  [[nodiscard]] int doStatus(const std::string& path, struct stat& status) const override {
    return fails() ? -1 : WritingSystem::doStatus(path, status);
  }
  [[nodiscard]] int doStatusOfOpen(int descriptor, struct stat& status) const override {
    return fails() ? -1 : WritingSystem::doStatusOfOpen(descriptor, status);
  }
  [[nodiscard]] int doAccessForWriting(const std::string& path) const override {
    return fails() ? -1 : WritingSystem::doAccessForWriting(path);
  }
  [[nodiscard]] int doOpenUnnamed(const std::string& folder, mode_t mode) const override {
    if (!naming_) return fails() ? -1 : WritingSystem::doOpenUnnamed(folder, mode);
    errno = EOPNOTSUPP;
    return -1;
  }
  [[nodiscard]] int doOpenNew(const std::string& path, mode_t mode) const override {
    return fails() ? -1 : WritingSystem::doOpenNew(path, mode);
  }
  [[nodiscard]] int doLock(int descriptor) const override {
    return fails() ? -1 : WritingSystem::doLock(descriptor);
  }
  [[nodiscard]] int doSetOwner(int descriptor, uid_t owner, gid_t group) const override {
    return fails() ? -1 : WritingSystem::doSetOwner(descriptor, owner, group);
  }
  [[nodiscard]] int doSetMode(int descriptor, mode_t mode) const override {
    return fails() ? -1 : WritingSystem::doSetMode(descriptor, mode);
  }
  [[nodiscard]] ssize_t doWrite(int descriptor, std::string_view bytes) const override {
    return fails() ? -1 : WritingSystem::doWrite(descriptor, bytes.substr(0, bytes.size() / 2 + 1));
  }
  [[nodiscard]] int doSync(int descriptor) const override {
    return fails() ? -1 : WritingSystem::doSync(descriptor);
  }
  [[nodiscard]] int doLink(int descriptor, const std::string& path) const override {
    return fails() ? -1 : WritingSystem::doLink(descriptor, path);
  }
  [[nodiscard]] int doRename(const std::string& from, const std::string& to) const override {
    return fails() ? -1 : WritingSystem::doRename(from, to);
  }
  int doRemove(const std::string& path) const override {
    if (!fails()) return WritingSystem::doRemove(path);
    failedToRemove_ = true;
    return -1;
  }

 private:
  [[nodiscard]] bool fails() const {
    const bool failing = calls_++ == failingCall_;
    if (failing) errno = error_;
    return failing;
  }

  int failingCall_;
  int error_;
  bool naming_;
  mutable int calls_ = 0;
  mutable bool failedToRemove_ = false;
};

class WritingFaults : public ::testing::TestWithParam<std::tuple<int, bool>> {};

TEST_P(WritingFaults, LeaveTheWholeNewFileOrTheOldOne) {
  const auto [error, naming] = GetParam();
  const std::string content(1000, 'n');
  const std::string reason = std::generic_category().message(error);
  int failures = 0;
  int runs = 0;
  for (int call = 0;; ++call) {
    ++runs;
    const TemporaryFolder folder;
    folder.file("a.csv", "old");
    // A leftover of another process, so that there is something to remove.
    folder.file(".quillmeter-17.part", "left");
    const FaultySystem system(call, error, naming);
    const auto message = writeFileAtomically(folder / "a.csv", content, system);
    EXPECT_EQ(readFile(folder / "a.csv"), message ? "old" : content) << call;
    failures += message ? 1 : 0;
    EXPECT_EQ(message.value_or(reason), reason) << call;
    std::size_t entries = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
      entries += entry.path().filename() == ".quillmeter-17.part" ? 0U : 1U;
    EXPECT_TRUE(entries == 1U || system.failedToRemove()) << call;
    if (error == EINTR) {
      EXPECT_FALSE(std::filesystem::exists(folder / ".quillmeter-17.part")) << call;
    }
    if (system.calls() <= call) break;
  }
  std::printf("[  FAULTS  ] %d runs\n", runs);
  if (error == EINTR) {
    EXPECT_EQ(failures, 0) << "interrupted calls are made again";
  } else {
    EXPECT_GE(failures, 4);
  }
}

INSTANTIATE_TEST_SUITE_P(EachError, WritingFaults,
                         ::testing::Combine(::testing::Values(EIO, ENOSPC, EDQUOT, EACCES, EPERM, EROFS,
                                                              EMFILE, ENOMEM, ENOENT, EEXIST, EINTR,
                                                              EOPNOTSUPP, EWOULDBLOCK),
                                            ::testing::Bool()));

}  // namespace
}  // namespace quillmeter
