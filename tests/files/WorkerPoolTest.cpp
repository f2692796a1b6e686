#include "files/WorkerPool.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace quillmeter {
namespace {

/// Lets threads wait for each other, as far as there are others.
class Meeting {
 public:
  explicit Meeting(int expected) : expected_(expected) {}
  void arrive() {
    std::unique_lock lock(mutex_);
    ++arrived_;
    all_.notify_all();
    all_.wait(lock, [this] { return arrived_ >= expected_; });
  }

 private:
  int expected_;
  int arrived_ = 0;
  std::mutex mutex_;
  std::condition_variable all_;
};

TEST(WorkerPool, DoesEveryTaskOnceWithAnyNumberOfThreads) {
  for (const std::size_t threads : {1U, 2U, 3U, 8U, 32U}) {
    WorkerPool pool({threads, threads});
    std::vector<std::atomic<int>> done(1000);
    for (auto& count : done)
      pool.add([&count] { ++count; });
    pool.workUntilIdle();
    for (const auto& count : done)
      EXPECT_EQ(count, 1);
    EXPECT_LE(pool.threads(), threads);
  }
}

TEST(WorkerPool, OfOneThreadDoesAllOnItsOwnersInOrder) {
  WorkerPool pool({1, 1});
  std::vector<int> order;
  const auto note = [&order](int number) {
    return [&order, number, owner = std::this_thread::get_id()] {
      EXPECT_EQ(std::this_thread::get_id(), owner);
      order.push_back(number);
    };
  };
  pool.add(note(1));
  pool.add(note(2));
  pool.addFirst({note(3), note(4)});
  pool.workUntilIdle();
  EXPECT_EQ(order, (std::vector<int>{4, 3, 1, 2}));
}

TEST(WorkerPool, DoesTasksAtTheSameTime) {
  constexpr int kWorkers = 4;
  WorkerPool pool({kWorkers, kWorkers});
  Meeting meeting(kWorkers);  // would wait for ever for fewer
  for (int i = 0; i < kWorkers; ++i)
    pool.add([&meeting] { meeting.arrive(); });
  pool.workUntilIdle();
  EXPECT_EQ(pool.threads(), kWorkers);
}

TEST(WorkerPool, DoesWhatTasksAdd) {
  WorkerPool pool({3, 3});
  std::atomic<int> count = 0;
  std::function<void(int)> branch = [&](int depth) {
    ++count;
    if (depth == 0) return;
    pool.addFirst({[&branch, depth] { branch(depth - 1); }, [&branch, depth] { branch(depth - 1); }});
  };
  pool.add([&branch] { branch(9); });
  pool.workUntilIdle();
  EXPECT_EQ(count, (1 << 10) - 1);
}

TEST(WorkerPool, WaitsNoLongerThanForWhatItWasAskedFor) {
  WorkerPool pool({1, 1});
  int done = 0;
  for (int i = 0; i < 10; ++i)
    pool.add([&done] { ++done; });
  pool.workUntil([&done] { return done == 3; });
  EXPECT_EQ(done, 3);
}

TEST(WorkerPool, GrowsWhileItsTasksWait) {
  WorkerPool pool({1, 8});
  std::atomic<bool> grown = false;
  std::function<void()> wait = [&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    if (!grown) pool.add(wait);
    grown = pool.threads() == 8;
  };
  for (int i = 0; i < 16; ++i)
    pool.add(wait);
  pool.workUntilIdle();
  EXPECT_EQ(pool.threads(), 8U);
}

TEST(WorkerPool, DoesNotGrowWhileItsTasksWork) {
  WorkerPool pool({1, 8});
  for (int i = 0; i < 50; ++i) {
    pool.add([] {
      const auto begin = std::chrono::steady_clock::now();
      while (std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(1)) {
      }
    });
  }
  pool.workUntilIdle();
  EXPECT_EQ(pool.threads(), 1U);
}

TEST(WorkerPool, DoesNotGrowWhileItsThreadsWaitForEachOther) {
  WorkerPool pool({2, 32});
  std::atomic<int> done = 0;
  for (int i = 0; i < 300'000; ++i) {
    pool.add([&done] { ++done; });
    if (i % 8 == 0) pool.workUntil([] { return true; });
    if (i % 256 == 0) pool.workUntilIdle();
  }
  pool.workUntilIdle();
  EXPECT_EQ(done, 300'000);
#ifndef __SANITIZE_THREAD__  // its library lets threads sleep for each other within their tasks
  // If waiting for a lock counted, there would be 32. One more by chance, on a machine with much else to do,
  // is no harm.
  EXPECT_LE(pool.threads(), 8U);
#endif
}

TEST(WorkerPool, HandsAHelpersFailureToItsOwner) {
  WorkerPool pool({2, 2});
  Meeting meeting(2);
  const auto owner = std::this_thread::get_id();
  const auto task = [&] {
    meeting.arrive();
    if (std::this_thread::get_id() != owner) throw std::bad_alloc();
  };
  pool.add(task);
  pool.add(task);
  EXPECT_THROW(pool.workUntilIdle(), std::bad_alloc);
  int done = 0;
  pool.add([&done] { ++done; });
  pool.workUntilIdle();
  EXPECT_EQ(done, 1) << "goes on after a failure";
}

TEST(WorkerPool, DropsWhatNobodyBeganAfterAFailure) {
  WorkerPool pool({1, 1});
  int done = 0;
  pool.add([] { throw std::runtime_error("first"); });
  pool.add([&done] { ++done; });
  EXPECT_THROW(pool.workUntilIdle(), std::runtime_error);
  pool.workUntilIdle();
  EXPECT_EQ(done, 0);
}

TEST(WorkerPool, AloneLetsNobodyElseWork) {
  WorkerPool pool({4, 4});
  Meeting meeting(4);
  for (int i = 0; i < 4; ++i)
    pool.add([&meeting] { meeting.arrive(); });
  pool.workUntilIdle();
  pool.workAlone();
  std::set<std::thread::id> workers;
  for (int i = 0; i < 200; ++i)
    pool.add([&workers] { workers.insert(std::this_thread::get_id()); });
  pool.workUntilIdle();
  EXPECT_EQ(workers, std::set<std::thread::id>{std::this_thread::get_id()});
}

TEST(WorkerPool, EndsWithTasksThatNobodyBegan) {
  std::atomic<int> done = 0;
  {
    WorkerPool pool({2, 2});
    for (int i = 0; i < 100; ++i)
      pool.add([&done] { ++done; });
  }
  EXPECT_LE(done, 100);
}

TEST(WorkerPool, WorksWithoutTheThreadsThatCannotBeStarted) {
  pthread_attr_t usual;
  ASSERT_EQ(::pthread_getattr_default_np(&usual), 0);
  pthread_attr_t impossible = usual;
  ASSERT_EQ(::pthread_attr_setstacksize(&impossible, std::size_t{1} << 50), 0);
  ASSERT_EQ(::pthread_setattr_default_np(&impossible), 0);  // no room for such a stack
  WorkerPool pool({4, 4});
  int done = 0;
  for (int i = 0; i < 10; ++i)
    pool.add([&done] { ++done; });
  pool.workUntilIdle();
  ASSERT_EQ(::pthread_setattr_default_np(&usual), 0);
  EXPECT_EQ(done, 10);
  EXPECT_EQ(pool.threads(), 1U);
}

}  // namespace
}  // namespace quillmeter
