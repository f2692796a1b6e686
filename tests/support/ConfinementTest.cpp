#include "support/Confinement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <linux/openat2.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <thread>

#include "helpers/TemporaryFolder.h"
#include "support/AtomicFile.h"

namespace quillmeter {
namespace {

using testing::readFile;
using testing::TemporaryFolder;

struct Attempt {
  const char* name;
  std::function<bool()> succeeds;
};

bool opens(const std::string& path, int flags) {
  const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
  if (descriptor >= 0) ::close(descriptor);
  return descriptor >= 0;
}

bool executes(const char* program) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::execl(program, program, static_cast<char*>(nullptr));
    ::_exit(126);
  }
  int status = 0;
  return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Everything that a thread which reads has no business with, in a folder that holds "old" files.
std::vector<Attempt> attemptsIn(const TemporaryFolder& folder) {
  for (const char* name : {"written", "removed", "renamed", "truncated", "linked"})
    folder.file(name, "old");
  folder.folder("removedFolder");
  const auto path = [&folder](const char* name) { return folder / name; };
  return {
      {"write", [=] { return opens(path("written"), O_WRONLY); }},
      {"append", [=] { return opens(path("written"), O_WRONLY | O_APPEND); }},
      {"create", [=] { return opens(path("created"), O_WRONLY | O_CREAT | O_EXCL); }},
      {"remove", [=] { return ::unlink(path("removed").c_str()) == 0; }},
      {"rename", [=] { return ::rename(path("renamed").c_str(), path("elsewhere").c_str()) == 0; }},
      {"link", [=] { return ::link(path("linked").c_str(), path("link").c_str()) == 0; }},
      {"symlink", [=] { return ::symlink("linked", path("symlink").c_str()) == 0; }},
      {"make a folder", [=] { return ::mkdir(path("folder").c_str(), 0700) == 0; }},
      {"make a pipe", [=] { return ::mkfifo(path("pipe").c_str(), 0600) == 0; }},
      {"remove a folder", [=] { return ::rmdir(path("removedFolder").c_str()) == 0; }},
      {"execute", [] { return executes("/bin/true"); }},
  };
}

/// Runs `body` on a thread of its own, which dies confined. Gives what was in force.
Confinement onConfinedThread(const std::function<void()>& body, const FileAccess& access = {}) {
  Confinement result;
  std::thread([&] {
    result = confineThread(access);
    body();
  }).join();
  return result;
}

// The others below are skipped where nothing is in force, so this one is not.
TEST(Confinement, IsInForceAsFarAsTheKernelHasIt) {
  const long version = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
  const Confinement inForce = onConfinedThread([] {});
  EXPECT_EQ(inForce.files, std::max(version, 0L));
#if defined(__x86_64__) || defined(__aarch64__)
  EXPECT_EQ(inForce.network, std::filesystem::exists("/proc/sys/kernel/seccomp/actions_avail"));
#endif
}

TEST(Confinement, ThreadCanReadAndNothingElseWhileOthersCan) {
  const TemporaryFolder folder;
  const auto attempts = attemptsIn(folder);
  if (onConfinedThread([] {}).files == 0) GTEST_SKIP() << "this kernel has no rules for files";
  onConfinedThread([&] {
    EXPECT_TRUE(opens(folder / "written", O_RDONLY));
    EXPECT_TRUE(opens(folder.path(), O_RDONLY | O_DIRECTORY));
    for (const Attempt& attempt : attempts) {
      errno = 0;
      EXPECT_FALSE(attempt.succeeds()) << attempt.name;
      EXPECT_TRUE(errno == EACCES || errno == EXDEV || errno == 0) << attempt.name << errno;
    }
  });
  for (const Attempt& attempt : attempts)
    EXPECT_TRUE(attempt.succeeds()) << attempt.name;
}

TEST(Confinement, FileThatIsReadCannotBeTruncated) {
  const TemporaryFolder folder;
  const std::string path = folder.file("a", "old");
  if (onConfinedThread([] {}).files < 3) GTEST_SKIP() << "this kernel has no rule for truncation";
  onConfinedThread([&] {
    EXPECT_NE(::truncate(path.c_str(), 0), 0);
    EXPECT_FALSE(opens(path, O_RDONLY | O_TRUNC));
    EXPECT_FALSE(opens(path, O_RDONLY | O_TRUNC | O_CREAT));
    EXPECT_FALSE(opens(path, O_RDWR | O_TRUNC));
    EXPECT_FALSE(opens(path, O_ACCMODE | O_TRUNC));
    ::open_how how{.flags = O_RDONLY | O_TRUNC | O_CLOEXEC, .mode = 0, .resolve = 0};
    EXPECT_LT(::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof(how)), 0);
#ifdef SYS_open
    EXPECT_LT(::syscall(SYS_open, path.c_str(), O_RDONLY | O_TRUNC | O_CLOEXEC), 0);
#endif
  });
  EXPECT_EQ(readFile(path), "old");
  EXPECT_EQ(::truncate(path.c_str(), 0), 0);
}

TEST(Confinement, ThreadsOfAConfinedThreadAreConfined) {
  const TemporaryFolder folder;
  bool wrote = true;
  const Confinement inForce = onConfinedThread(
      [&] { std::thread([&] { wrote = opens(folder / "created", O_WRONLY | O_CREAT); }).join(); });
  if (inForce.files == 0) GTEST_SKIP() << "this kernel has no rules for files";
  EXPECT_FALSE(wrote);
}

TEST(Confinement, OutputsCanBeWrittenInTheirFoldersAlone) {
  const TemporaryFolder folder;
  const TemporaryFolder other;
  folder.file("a.csv", "old");
  std::optional<std::string> inside;
  std::optional<std::string> outside;
  bool truncated = false;
  const Confinement inForce = onConfinedThread(
      [&] {
        truncated = opens(folder / "a.csv", O_WRONLY | O_TRUNC);
        inside = writeFileAtomically(folder / "a.csv", "new");
        outside = writeFileAtomically(other / "a.csv", "new");
      },
      {.writableFolders = {folder.path()}, .readable = {}});
  EXPECT_EQ(inside, std::nullopt);
  EXPECT_TRUE(truncated);
  EXPECT_EQ(readFile(folder / "a.csv"), "new");
  if (inForce.files == 0) GTEST_SKIP() << "this kernel has no rules for files";
  EXPECT_EQ(outside, "Permission denied");
}

TEST(Confinement, ReadsNothingButWhatItWasGiven) {
  const TemporaryFolder folder;
  const std::string given = folder.file("given.m", "a");
  const std::string other = folder.file("other.m", "b");
  std::filesystem::create_symlink(given, folder / "link.m");
  folder.file("listed/below.m", "c");
  folder.file("outputs/old.csv", "d");
  const FileAccess access{.writableFolders = {folder / "outputs"},
                          .readable = {{given, folder / "listed", folder / "absent.m"}}};
  if (onConfinedThread([] {}).files == 0) GTEST_SKIP() << "this kernel has no rules for files";
  onConfinedThread(
      [&] {
        EXPECT_TRUE(opens(given, O_RDONLY));
        EXPECT_TRUE(opens(folder / "link.m", O_RDONLY)) << "leads to it";
        EXPECT_TRUE(opens(folder / "listed", O_RDONLY | O_DIRECTORY));
        EXPECT_TRUE(opens(folder / "outputs", O_RDONLY | O_DIRECTORY)) << "leftovers are looked for";
        EXPECT_TRUE(opens("/usr/lib", O_RDONLY | O_DIRECTORY)) << "libraries";
        EXPECT_FALSE(opens(given, O_WRONLY));
        EXPECT_FALSE(opens(other, O_RDONLY));
        EXPECT_FALSE(opens(folder.path(), O_RDONLY | O_DIRECTORY));
        EXPECT_FALSE(opens("/etc/passwd", O_RDONLY));
        EXPECT_EQ(writeFileAtomically(folder / "outputs/old.csv", "new"), std::nullopt);
      },
      access);
  EXPECT_TRUE(opens(other, O_RDONLY));
  EXPECT_EQ(readFile(folder / "outputs/old.csv"), "new");
}

TEST(Confinement, DeniesTheNetwork) {
  bool connected = true;
  const auto canMakeSocket = [](int domain) {
    const int descriptor = ::socket(domain, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor >= 0) ::close(descriptor);
    return descriptor >= 0;
  };
  const Confinement inForce = onConfinedThread(
      [&] { connected = canMakeSocket(AF_INET) || canMakeSocket(AF_INET6) || canMakeSocket(AF_UNIX); });
  if (!inForce.network) GTEST_SKIP() << "this kernel has no filter for the network";
  EXPECT_FALSE(connected);
  EXPECT_TRUE(canMakeSocket(AF_UNIX)) << "the main thread may";
}

TEST(Confinement, IsPutIntoWords) {
  EXPECT_EQ(confinementText({.files = 7, .network = true}),
            "files are only read, by the kernel's rules (Landlock 7); the network is denied (seccomp)");
  EXPECT_EQ(
      confinementText({}),
      "this kernel has no rules for files (Landlock); this kernel has no filter for the network (seccomp)");
}

}  // namespace
}  // namespace quillmeter
