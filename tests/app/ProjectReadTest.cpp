#include "app/ProjectRead.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <future>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "helpers/PlayedFileSystem.h"
#include "helpers/ProjectFixture.h"
#include "helpers/QtWaiting.h"
#include "support/AtomicFile.h"
#include "support/Confinement.h"
#include "xcode/ProjectReaders.h"

namespace quillmeter {
namespace {

using testing::TemporaryFolder;

/// Writes down what a read reports, on the main thread.
struct Record {
  explicit Record(ProjectRead& read) {
    QObject::connect(&read, &ProjectRead::started, &read, [this] { messages.push_back("started"); });
    QObject::connect(&read, &ProjectRead::progress, &read, [this](double fraction) {
      messages.push_back("progress");
      latest = fraction;
    });
    QObject::connect(&read, &ProjectRead::ended, &read,
                     [this](const std::shared_ptr<ProjectReader>& handedOver) {
                       messages.push_back("ended");
                       project = handedOver;
                     });
  }
  [[nodiscard]] bool waitForEnd() const {
    return testing::waitFor([this] { return !messages.empty() && messages.back() == "ended"; });
  }
  std::vector<std::string> messages;
  double latest = -1;
  std::shared_ptr<ProjectReader> project;
};

auto classicReader() {
  return projectReader(ProjectRules::classic);
}

auto readAt(const std::string& bundle) {
  return [bundle](ProjectRead& read) { read.project().parseFileAtPathAndDelegate(bundle, read.delegate()); };
}

std::string projectOf(const TemporaryFolder& folder, int files) {
  std::vector<std::string> names;
  for (int number = 0; number < files; ++number) {
    names.push_back("f" + std::to_string(number) + ".c");
    folder.file(names.back(), "int x;\n// comment\n");
  }
  return testing::writeProject(folder, names);
}

TEST(ProjectRead, MessagesComeInOrderAndTheProjectWithTheLastOne) {
  const TemporaryFolder folder;
  ProjectRead read(classicReader(), readAt(projectOf(folder, 20)));
  const Record record(read);
  read.start();
  ASSERT_TRUE(record.waitForEnd());
  ASSERT_GE(record.messages.size(), 3U);
  EXPECT_EQ(record.messages.front(), "started");
  EXPECT_EQ(std::count(record.messages.begin(), record.messages.end(), "started"), 1);
  EXPECT_EQ(std::count(record.messages.begin(), record.messages.end(), "ended"), 1);
  EXPECT_EQ(record.latest, 1.0);
  ASSERT_NE(record.project, nullptr);
  EXPECT_EQ(record.project->files().size(), 20U);
}

TEST(ProjectRead, ProjectOutlivesItsRead) {
  const TemporaryFolder folder;
  const std::string bundle = projectOf(folder, 3);
  std::shared_ptr<ProjectReader> project;
  {
    ProjectRead read(classicReader(), readAt(bundle));
    const Record record(read);
    read.start();
    ASSERT_TRUE(record.waitForEnd());
    project = record.project;
  }
  EXPECT_EQ(project->files().size(), 3U);
  EXPECT_EQ(project->delegate(), nullptr);
}

TEST(ProjectRead, SingleLineGivesANumberThatIsNone) {
  const TemporaryFolder folder;
  folder.file("App.xcodeproj/project.pbxproj",
              "/* Begin PBXFileReference section */ path = a.c; /* End PBXFileReference section */");
  ProjectRead read(classicReader(), readAt(folder / "App.xcodeproj"));
  const Record record(read);
  read.start();
  ASSERT_TRUE(record.waitForEnd());
  EXPECT_TRUE(record.latest != record.latest);
}

TEST(ProjectRead, ManyReportsAreOvertakenByTheNewest) {
  constexpr int kReports = 100'000;
  ProjectRead read(classicReader(), [](ProjectRead& running) {
    for (int report = 1; report <= kReports; ++report) {
      running.delegate()->progressParsingProject(static_cast<double>(report) / kReports);
    }
  });
  const Record record(read);
  read.start();
  ASSERT_TRUE(record.waitForEnd());
  EXPECT_EQ(record.latest, 1.0);
  EXPECT_LT(record.messages.size(), static_cast<std::size_t>(kReports));
}

TEST(ProjectRead, FailureOnTheThreadEndsTheReadWithoutAProject) {
  ProjectRead read(classicReader(), [](ProjectRead&) { throw std::runtime_error("out of everything"); });
  const Record record(read);
  read.start();
  ASSERT_TRUE(record.waitForEnd());
  EXPECT_EQ(record.project, nullptr);
}

TEST(ProjectRead, ReadsOnAThreadThatCannotWrite) {
  const TemporaryFolder folder;
  const auto canWrite = [&folder] { return writeFileAtomically(folder / "out", "x") == std::nullopt; };
  bool readerCan = true;
  ProjectRead read(classicReader(), [&](ProjectRead&) { readerCan = canWrite(); });
  const Record record(read);
  read.start();
  ASSERT_TRUE(record.waitForEnd());
  EXPECT_TRUE(canWrite()) << "the main thread may";
  Confinement inForce;
  std::thread([&inForce] { inForce = confineThread(); }).join();
  if (inForce.files == 0) GTEST_SKIP() << "this kernel has no rules for files";
  EXPECT_FALSE(readerCan);
}

TEST(ProjectRead, StoppedReadStillEnds) {
  const TemporaryFolder folder;
  const std::string bundle = projectOf(folder, 10);
  std::promise<void> stopped;
  ProjectRead read(classicReader(), [&](ProjectRead& running) {
    stopped.get_future().wait();
    running.project().parseFileAtPathAndDelegate(bundle, running.delegate());
  });
  const Record record(read);
  read.start();
  read.stop();
  stopped.set_value();
  ASSERT_TRUE(record.waitForEnd());
  EXPECT_TRUE(record.project->files().empty());
}

TEST(ProjectRead, DestroyedInTheMiddleItWaitsForTheReaderAndDropsItsMessages) {
  const TemporaryFolder folder;
  const std::string bundle = projectOf(folder, 300);
  for (int time = 0; time < 20; ++time) {
    std::atomic<bool> finished = false;
    {
      ProjectRead read(classicReader(), [&](ProjectRead& running) {
        running.project().parseFileAtPathAndDelegate(bundle, running.delegate());
        finished = true;
      });
      QObject::connect(&read, &ProjectRead::ended, [] { FAIL() << "message of a read that is gone"; });
      read.start();
      std::this_thread::sleep_for(std::chrono::microseconds(200 * time));
    }
    EXPECT_TRUE(finished);
    QCoreApplication::processEvents();
  }
}

/// A disk that hangs from a certain call on until the read that uses it is stopped (or, so that the test ends
/// in any case, for a minute in all).
struct HangingDisk {
  static constexpr int kHangsFrom = 40;
  HangingDisk()
      : disk([this](std::string_view, const std::string&) {
          if (++calls < kHangsFrom) return DiskError{};
          std::call_once(hangs, [this] {
            patience = std::chrono::steady_clock::now() + std::chrono::minutes(1);
            hanging.set_value();
          });
          while (!stop.stop_requested() && std::chrono::steady_clock::now() < patience)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
          return DiskError{};
        }) {}
  std::atomic<int> calls = 0;
  std::once_flag hangs;
  std::chrono::steady_clock::time_point patience;
  std::promise<void> hanging;
  std::stop_token stop;
  testing::PlayedFileSystem disk;
};

TEST(ProjectRead, DestroyedWhileTheDiskHangsItAsksTheDiskForNothingMore) {
  const TemporaryFolder folder;
  const std::string bundle = projectOf(folder, 300);
  HangingDisk hanging;
  {
    ProjectRead read(projectReader(ProjectRules::classic, hanging.disk), readAt(bundle));
    hanging.stop = read.stopToken();
    QObject::connect(&read, &ProjectRead::ended, [] { FAIL() << "message of a read that is gone"; });
    read.start();
    hanging.hanging.get_future().wait();
  }
  // Each thread ends the call that it is in.
  EXPECT_LE(hanging.calls, HangingDisk::kHangsFrom + 32);
}

TEST(ProjectRead, GivenUpItEndsWhileTheDiskHangsAndLeavesAProjectThatWorks) {
  const TemporaryFolder folder;
  const std::string bundle = projectOf(folder, 300);
  HangingDisk hanging;
  ProjectRead read(projectReader(ProjectRules::classic, hanging.disk), readAt(bundle));
  hanging.stop = read.stopToken();
  const Record record(read);
  read.start();
  hanging.hanging.get_future().wait();
  read.stop();
  ASSERT_TRUE(record.waitForEnd());
  EXPECT_LE(hanging.calls, HangingDisk::kHangsFrom + 32);
  ASSERT_NE(record.project, nullptr);
  EXPECT_TRUE(record.project->files().empty());
  EXPECT_EQ(record.project->unreferencedFiles().size(), 300U) << "its clean-up is not stopped";
}

TEST(ProjectRead, EndsWithoutAProjectWhereThereAreTooFewDescriptors) {
  const TemporaryFolder folder;
  const testing::PlayedFileSystem disk([](std::string_view call, const std::string& item) {
    return call == "open" && item.ends_with("f1.c") ? DiskError{EMFILE} : DiskError{};
  });
  ProjectRead read(projectReader(ProjectRules::classic, disk), readAt(projectOf(folder, 3)));
  const Record record(read);
  read.start();
  ASSERT_TRUE(record.waitForEnd());
  EXPECT_EQ(record.project, nullptr);
}

TEST(ProjectRead, NeverStartedItJustGoes) {
  const ProjectRead read(classicReader(), [](ProjectRead&) { FAIL(); });
}

}  // namespace
}  // namespace quillmeter
