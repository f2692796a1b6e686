#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

namespace quillmeter {

/// Messages to the thread that the queue lives on, posted from any thread and run there one by one, in the
/// order of posting, each on a turn of the event loop of its own.
///
/// What a message holds crosses over under a lock of ours; the toolkit is only asked to wake the receiver up.
/// So the thread sanitizer, which cannot see the locks inside the toolkit, can vouch for everything that is
/// handed over.
///
/// Nobody may post any more once the queue is being destroyed; messages that still wait are dropped with it.
class MessageQueue final : public QObject {
  Q_OBJECT

 public:
  using Message = std::function<void()>;

  explicit MessageQueue(QObject* parent = nullptr);

  /// Any thread; never waits for the receiver. `message` must not be empty. It may destroy the queue.
  /// When there is no memory for it, throws and posts nothing.
  void post(Message message);

 Q_SIGNALS:
  /// Not for others: wakes the receiver.
  void posted(QPrivateSignal);

 private:
  void runNext();

  std::mutex mutex_;
  std::deque<Message> messages_;  ///< guarded by the mutex
};

}  // namespace quillmeter
