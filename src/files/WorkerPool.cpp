#include "files/WorkerPool.h"

#include <sched.h>

#include <algorithm>
#include <utility>

namespace quillmeter {
namespace {

constexpr std::size_t kMostThreads = 32;
/// How many tasks there must be for each thread that works before another is woken for those that come one by
/// one: a thread that was woken for a single one would mostly find it gone.
constexpr std::size_t kWorthWaking = 4;

/// Moves the calling thread away from a processor, where there is another, and then lets it go wherever it
/// could before. Left alone, the system often lets a thread that lives for milliseconds wait for the
/// processor of the one that made it.
void leaveProcessor(int processor) {
  cpu_set_t processors;
  if (processor < 0 || ::sched_getaffinity(0, sizeof(processors), &processors) != 0) return;
  cpu_set_t others = processors;
  CPU_CLR(static_cast<std::size_t>(processor), &others);
  if (CPU_COUNT(&others) == 0) return;
  ::sched_setaffinity(0, sizeof(others), &others);
  ::sched_setaffinity(0, sizeof(processors), &processors);
}

}  // namespace

WorkerPool::Size WorkerPool::usualSize() {
  cpu_set_t processors;
  const bool known = ::sched_getaffinity(0, sizeof(processors), &processors) == 0;
  const auto usable = known ? static_cast<std::size_t>(CPU_COUNT(&processors))
                            : std::size_t{std::thread::hardware_concurrency()};
  return {std::clamp<std::size_t>(usable, 1, kMostThreads), kMostThreads};
}

WorkerPool::~WorkerPool() {
  drop();
  std::unique_lock lock(mutex_);
  isEnding_ = true;
  helpersWake_.notify_all();
  while (!helpers_.empty()) {
    std::thread helper = std::move(helpers_.back());
    helpers_.pop_back();
    lock.unlock();
    helper.join();
    lock.lock();
  }
}

/// Waiting for each other is nothing that more threads would help against, so it does not count as waiting.
void WorkerPool::lockUncounted(std::unique_lock<std::mutex>& lock) {
  if (lock.try_lock()) return;
  lock.lock();
  ownGauge().restart();
}

/// Of the calling thread, which holds the lock.
WaitGauge& WorkerPool::ownGauge() {
  const auto gauge = gauges_.find(std::this_thread::get_id());
  return gauge == gauges_.end() ? ownersGauge_ : *gauge->second;
}

std::unique_lock<std::mutex> WorkerPool::locked() {
  std::unique_lock lock(mutex_, std::defer_lock);
  lockUncounted(lock);
  return lock;
}

void WorkerPool::add(Task task) {
  std::unique_lock lock = locked();
  tasks_.push_back(std::move(task));
  callHelp(lock, tasks_.size() / (kWorthWaking * (started_ - idle_)));
}

void WorkerPool::addFirst(std::vector<Task> tasks) {
  std::unique_lock lock = locked();
  for (Task& task : tasks)
    tasks_.push_front(std::move(task));
  callHelp(lock, tasks_.size() - 1);  // the caller does one of them itself
}

/// Wakes up to `wanted` threads that have nothing to do. When all have, starts one, unless there are enough.
void WorkerPool::callHelp(std::unique_lock<std::mutex>& lock, std::size_t wanted) {
  if (ownerWaits_) ownerWakes_.notify_one();
  if (isAlone_) return;
  for (std::size_t i = std::min(idle_, wanted); i > 0; --i)
    helpersWake_.notify_one();
  if (idle_ == 0 && tasks_.size() > 1 && mayStart(size_.atFirst)) startThread(lock);
}

void WorkerPool::workUntil(const std::function<bool()>& isDone) {
  std::unique_lock lock = locked();
  for (;;) {
    if (failure_) {
      ownerWaits_ = true;
      ownerWakes_.wait(lock, [this] { return running_ == 0; });
      ownerWaits_ = false;
      tasks_.clear();
      std::rethrow_exception(std::exchange(failure_, nullptr));
    }
    if (isDone()) return;
    if (!tasks_.empty()) {
      doNext(lock, ownersGauge_);
      continue;
    }
    ownerWaits_ = true;
    ownerWakes_.wait(lock);
    ownerWaits_ = false;
    ownersGauge_.restart();
  }
}

void WorkerPool::workUntilIdle() {
  workUntil([this] { return tasks_.empty() && running_ == 0; });
}

void WorkerPool::workAlone() {
  std::unique_lock lock(mutex_);
  isAlone_ = true;
  canStartMore_ = false;
  ownerWaits_ = true;
  ownerWakes_.wait(lock, [this] { return running_ == 0; });
  ownerWaits_ = false;
}

void WorkerPool::drop() noexcept {
  std::unique_lock lock(mutex_);
  tasks_.clear();
  ownerWaits_ = true;
  // Tasks that end may have added others meanwhile.
  ownerWakes_.wait(lock, [this] {
    tasks_.clear();
    return running_ == 0;
  });
  ownerWaits_ = false;
  failure_ = nullptr;
}

std::size_t WorkerPool::threads() const {
  const std::lock_guard lock(mutex_);
  return started_;
}

void WorkerPool::help() {
  std::unique_lock lock(mutex_);
  WaitGauge gauge;
  gauges_.emplace(std::this_thread::get_id(), &gauge);
  while (!isEnding_) {
    if (!tasks_.empty() && !isAlone_) {
      doNext(lock, gauge);
      continue;
    }
    ++idle_;
    helpersWake_.wait(lock);
    --idle_;
    gauge.restart();
  }
  gauges_.erase(std::this_thread::get_id());
}

/// Does one task without the lock. Brings another thread when this one waited for most of the last while.
void WorkerPool::doNext(std::unique_lock<std::mutex>& lock, WaitGauge& gauge) {
  Task task = std::move(tasks_.front());
  tasks_.pop_front();
  ++running_;
  lock.unlock();
  std::exception_ptr failure;
  try {
    task();
    task = nullptr;
  } catch (...) {
    failure = std::current_exception();
  }
  const bool waited = gauge.findsWaiting();
  lockUncounted(lock);
  --running_;
  if (failure && !failure_) {
    failure_ = failure;
    tasks_.clear();
  }
  if (ownerWaits_) ownerWakes_.notify_one();
  if (waited && !tasks_.empty() && mayStart(size_.atMost)) startThread(lock);
}

bool WorkerPool::mayStart(std::size_t most) const {
  return canStartMore_ && started_ < most;
}

void WorkerPool::startThread(std::unique_lock<std::mutex>& lock) {
  const int processor = started_ < size_.atFirst ? ::sched_getcpu() : -1;
  ++started_;
  try {
    helpers_.reserve(size_.atMost);
    lock.unlock();
    std::thread helper([this, processor] {
      leaveProcessor(processor);
      help();
    });
    lock.lock();
    ownGauge().restart();  // the system may have had to wait for something, to make a thread
    helpers_.push_back(std::move(helper));
  } catch (const std::exception&) {
    // No thread, or no memory for one: the others do its work.
    if (!lock.owns_lock()) lock.lock();
    --started_;
    canStartMore_ = false;
  }
}

}  // namespace quillmeter
