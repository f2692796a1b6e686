#include "controls/MessageQueue.h"

#include <utility>

namespace quillmeter {

MessageQueue::MessageQueue(QObject* parent) : QObject(parent) {
  connect(this, &MessageQueue::posted, this, &MessageQueue::runNext, Qt::QueuedConnection);
}

void MessageQueue::post(Message message) {
  const std::lock_guard lock(mutex_);
  messages_.push_back(std::move(message));
  try {
    Q_EMIT posted(QPrivateSignal());
  } catch (...) {
    // Nobody would come for it, and it would be taken for the next one.
    messages_.pop_back();
    throw;
  }
}

void MessageQueue::runNext() {
  Message message;
  {
    const std::lock_guard lock(mutex_);
    message = std::move(messages_.front());
    messages_.pop_front();
  }
  message();
}

}  // namespace quillmeter
