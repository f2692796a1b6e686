#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "analysis/ParseProject.h"
#include "helpers/ProjectFixture.h"

/// What the reader's thread may touch: its own object and the disk. These are run with the thread sanitizer.
namespace quillmeter {
namespace {

using testing::TemporaryFolder;
using testing::writeProject;

/// Hands the reader's messages to another thread, as a main loop does.
class PostingDelegate final : public ParseProjectDelegate {
 public:
  void progressParsingProjectStarted() override { post(-1); }
  void progressParsingProject(double fraction) override { post(fraction); }
  void progressParsingProjectEnded() override { post(2); }

  /// Every message up to the last one, in the order they were sent.
  std::vector<double> waitForEnd() {
    std::unique_lock lock(mutex_);
    ended_.wait(lock, [this] { return !messages_.empty() && messages_.back() == 2; });
    return messages_;
  }

 private:
  void post(double message) {
    const std::lock_guard lock(mutex_);
    messages_.push_back(message);
    ended_.notify_one();
  }

  std::mutex mutex_;
  std::condition_variable ended_;
  std::vector<double> messages_;
};

std::vector<std::string> manySources(const TemporaryFolder& folder, int count) {
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    names.push_back("file" + std::to_string(i) + ".m");
    folder.file("Sources/" + names.back(), "// one\nint a;\n");
  }
  return names;
}

TEST(ReaderThread, HandsItsResultOverWithTheLastMessage) {
  const TemporaryFolder folder;
  const std::string bundle = writeProject(folder, manySources(folder, 101));
  ParseProject project;
  PostingDelegate delegate;
  std::thread reader([&] { project.parseFileAtPathAndDelegate(bundle, &delegate); });
  const std::vector<double> messages = delegate.waitForEnd();
  // The list is complete and safe to read here, although the thread has not been joined.
  EXPECT_EQ(project.files().size(), 101U);
  reader.join();
  ASSERT_EQ(messages.size(), 103U);
  for (std::size_t i = 1; i < messages.size(); ++i)
    EXPECT_GT(messages[i], messages[i - 1]);
}

TEST(ReaderThread, SharesNothingWithAnotherReader) {
  const TemporaryFolder folder;
  const std::string bundle = writeProject(folder, manySources(folder, 50));
  std::vector<std::thread> readers;
  std::vector<std::size_t> found(4);
  for (std::size_t& count : found) {
    readers.emplace_back([&bundle, &count] {
      ParseProject project;
      PostingDelegate delegate;
      project.parseFileAtPathAndDelegate(bundle, &delegate);
      count = project.files().size();
    });
  }
  for (std::thread& reader : readers)
    reader.join();
  EXPECT_EQ(found, std::vector<std::size_t>(4, 50));
}

TEST(ReaderThread, LeavesAProjectThatManyMayRead) {
  const TemporaryFolder folder;
  ParseProject project;
  project.parseFileAtPathAndDelegate(writeProject(folder, manySources(folder, 50)), nullptr);
  std::vector<std::thread> readers;
  std::vector<std::size_t> counts(4);
  for (std::size_t& count : counts) {
    readers.emplace_back([&project, &count] {
      const std::vector<std::shared_ptr<FileObject>> kept = project.files();
      count = project.getNumberCodeFiles() + kept.size();
    });
  }
  for (std::thread& reader : readers)
    reader.join();
  EXPECT_EQ(counts, std::vector<std::size_t>(4, 100));
}

}  // namespace
}  // namespace quillmeter
