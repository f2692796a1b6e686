#include "controls/MessageQueue.h"

#include <utility>

namespace quillmeter {

MessageQueue::MessageQueue(QObject* parent) : QObject(parent) {
  connect(this, &MessageQueue::posted, this, &MessageQueue::runNext, Qt::QueuedConnection);
}

void MessageQueue::post(Message message) {
  {
    const std::lock_guard lock(mutex_);
    messages_.push(std::move(message));
  }
  Q_EMIT posted(QPrivateSignal());
}

void MessageQueue::runNext() {
  Message message;
  {
    const std::lock_guard lock(mutex_);
    message = std::move(messages_.front());
    messages_.pop();
  }
  message();
}

}  // namespace quillmeter
