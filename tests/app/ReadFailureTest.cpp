#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

#include "app/ProjectRead.h"
#include "helpers/FailingMalloc.h"
#include "helpers/PlayedFileSystem.h"
#include "helpers/ProjectFixture.h"
#include "helpers/QtWaiting.h"
#include "xcode/ProjectReaders.h"

/// The application's read while its disk or its memory fails, once at each place in turn.
namespace quillmeter {
namespace {

using testing::PlayedFileSystem;
using testing::Refusal;
using testing::TemporaryFolder;

constexpr std::array kErrors = {ENOENT, EACCES, EMFILE, ENFILE, EIO, EINTR, ENOMEM, ESTALE};

constexpr long kAll = 1'000'000'000;

/// Ends the refusal of memory with a read: what comes then is the message of its end, which waits for memory.
struct MemoryComesBack {
  std::atomic<long>& requests;
  ~MemoryComesBack() {
    requests = testing::memoryRequests();
    testing::refuseMemoryAfter(kAll, Refusal::one);
  }
};

bool isMissing(int error) {
  return DiskError{error}.kind() == DiskError::Kind::missing;
}

class ReadFailure : public ::testing::TestWithParam<ProjectRules> {
 protected:
  ReadFailure() {
    folder.file("a.m", "// one\nint  a;\n");
    folder.file("Sub/b.h", std::string(100, '\n'));
    folder.file("Sub/picture.png", "1234");
    folder.file("Sub/left.c", "int x;\n");
    bundle = GetParam() == ProjectRules::classic
                 ? testing::writeProject(folder, {"a.m", "b.h", "picture.png", "../gone.m"})
                 : std::string(QUILLMETER_SOURCE_DIR "/samples/Weather/Weather.xcodeproj");
  }

  /// Reads as the application does; gives the project that it would show, if any. Fails when the read hangs.
  std::shared_ptr<ProjectReader> readOn(const FileSystem& disk, const std::function<void()>& before) {
    ProjectRead read(projectReader(GetParam(), disk), [&](ProjectRead& running) {
      const MemoryComesBack afterwards{requests_};
      before();
      running.project().parseFileAtPathAndDelegate(bundle, running.delegate());
    });
    std::shared_ptr<ProjectReader> project;
    bool hasEnded = false;
    QObject::connect(&read, &ProjectRead::ended, &read,
                     [&](const std::shared_ptr<ProjectReader>& handedOver) {
                       project = handedOver;
                       hasEnded = true;
                     });
    read.start();
    EXPECT_TRUE(testing::waitFor([&] { return hasEnded; })) << "it hangs";
    return project;
  }

  /// Names and lines of all files: what the windows show comes down to them.
  static std::string figures(const ProjectReader& project) {
    std::string text;
    for (const auto& file : project.files()) {
      text += file->filePath().value_or("") + " " +
              (file->noLinesTotal() ? file->noLinesTotal()->stringValue() : "-") + "\n";
    }
    return text;
  }

  TemporaryFolder folder;
  std::string bundle;
  std::atomic<long> requests_ = 0;  ///< for memory, of the last read's own thread
};

TEST_P(ReadFailure, OfACallOfTheDiskIsCountedOrDoesNoHarm) {
  const PlayedFileSystem wholeDisk([](std::string_view, const std::string&) { return DiskError{}; });
  const std::string whole = figures(*readOn(wholeDisk, [] {}));
  int runs = 0;
  for (const int error : kErrors) {
    bool failed = true;
    for (int number = 0; failed; ++number, ++runs) {
      std::atomic<int> calls = 0;
      const PlayedFileSystem disk([&](std::string_view, const std::string&) {
        return calls++ == number ? DiskError{error} : DiskError{};
      });
      const auto project = readOn(disk, [] {});
      failed = calls > number;
      if (project == nullptr) continue;
      EXPECT_TRUE(figures(*project) == whole || project->faults().count > 0 ||
                  !project->findings().error.empty() || isMissing(error))
          << "call " << number << " failing with " << error << ":\n"
          << figures(*project);
      ReadFaults faults;
      EXPECT_TRUE(project->unreferencedFiles(faults).size() < 100U) << "the clean-up works";
    }
  }
  std::printf("[  FAULTS  ] %d reads\n", runs);
}

TEST_P(ReadFailure, OfOneOfTheReadersRequestsForMemoryEndsItOrDoesNoHarm) {
  const std::string whole = figures(*readOn(FileSystem::real(), [] {}));
  int runs = 0;
  int without = 0;
  for (const Refusal refusal : {Refusal::one, Refusal::andLater}) {
    static_cast<void>(
        readOn(FileSystem::real(), [&] { testing::refuseMemoryOfThisThreadAfter(kAll, refusal); }));
    const long mostRequests = requests_;
    for (long granted = 0; granted < mostRequests; ++granted, ++runs) {
      const auto project =
          readOn(FileSystem::real(), [&] { testing::refuseMemoryOfThisThreadAfter(granted, refusal); });
      if (project == nullptr) {
        ++without;
      } else {
        EXPECT_TRUE(figures(*project) == whole || project->files().empty()) << granted << ":\n"
                                                                            << figures(*project);
      }
    }
  }
  EXPECT_GT(without, 0);
  std::printf("[ REFUSALS ] %d reads, %d of them without what they needed\n", runs, without);
}

INSTANTIATE_TEST_SUITE_P(Rules, ReadFailure, ::testing::Values(ProjectRules::classic, ProjectRules::current),
                         [](const auto& given) {
                           return given.param == ProjectRules::classic ? "classic" : "current";
                         });

}  // namespace
}  // namespace quillmeter
