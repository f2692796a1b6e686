#include "controls/QtDelayedCalls.h"

#include <QTimer>
#include <utility>

namespace quillmeter {

void QtDelayedCalls::performAfterDelay(QObject* receiver, std::chrono::milliseconds delay,
                                       std::function<void()> message) {
  QTimer::singleShot(delay, receiver, std::move(message));
}

}  // namespace quillmeter
