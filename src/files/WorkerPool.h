#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include "files/WaitGauge.h"

namespace quillmeter {

/// Some threads that do tasks together with the one that owns the pool. The owner adds tasks and works on
/// them itself while it waits for what it needs (`workUntil`), so a pool without another thread does all the
/// same.
///
/// The pool is small at first, a thread for each processor, and starts those only when there is work for
/// them. It grows while its threads wait in their tasks rather than work: on a slow disk or share the number
/// of requests on their way counts, not that of the processors. Each thread that finds itself waiting brings
/// one more, so that it doubles about every millisecond. A thread that cannot be started is done without.
///
/// What a task throws ends the owner's next wait; the tasks that nobody has begun are dropped then.
class WorkerPool {
 public:
  using Task = std::function<void()>;

  struct Size {
    std::size_t atFirst = 1;  ///< threads, the owner's included
    std::size_t atMost = 1;
  };
  /// A thread for each processor that this process may use at first, and 32 at most.
  [[nodiscard]] static Size usualSize();

  WorkerPool() : WorkerPool(usualSize()) {}
  explicit WorkerPool(Size size) : size_(size) {}
  /// Drops what nobody has begun, and waits for the rest.
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// Adds a task behind all others. From the owner, who works on tasks afterwards, or from a task.
  void add(Task task);
  /// The same before all others, the last of `tasks` first.
  void addFirst(std::vector<Task> tasks);

  /// Owner only: does tasks, or waits while others do, until `isDone`. That is asked between any two tasks
  /// of anyone; it must not use the pool.
  void workUntil(const std::function<bool()>& isDone);
  /// Owner only: until no task is left.
  void workUntilIdle();
  /// Owner only: from now on nobody but the owner does tasks. Returns once the others have ended theirs.
  void workAlone();
  /// Owner only: drops what nobody has begun, and waits for what somebody has. Throws nothing.
  void drop() noexcept;

  /// How many threads there have been at most, the owner's included.
  [[nodiscard]] std::size_t threads() const;

 private:
  [[nodiscard]] std::unique_lock<std::mutex> locked();
  void lockUncounted(std::unique_lock<std::mutex>& lock);
  [[nodiscard]] WaitGauge& ownGauge();
  void callHelp(std::unique_lock<std::mutex>& lock, std::size_t wanted);
  void help();
  void doNext(std::unique_lock<std::mutex>& lock, WaitGauge& gauge);
  void startThread(std::unique_lock<std::mutex>& lock);
  [[nodiscard]] bool mayStart(std::size_t most) const;

  Size size_;
  mutable std::mutex mutex_;
  std::condition_variable helpersWake_;
  std::condition_variable ownerWakes_;
  std::deque<Task> tasks_;
  std::vector<std::thread> helpers_;
  std::size_t started_ = 1;  ///< threads, the owner's included, also those that are just being started
  std::size_t idle_ = 0;     ///< helpers that wait for a task
  std::size_t running_ = 0;  ///< tasks that somebody does right now
  bool ownerWaits_ = false;
  bool isAlone_ = false;
  bool isEnding_ = false;
  bool canStartMore_ = true;
  std::exception_ptr failure_;
  std::map<std::thread::id, WaitGauge*> gauges_;  ///< of the helpers; each is for its own thread alone
  WaitGauge ownersGauge_;
};

}  // namespace quillmeter
