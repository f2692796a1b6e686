#include "controls/QtDelayedCalls.h"

#include <QTimer>
#include <utility>

namespace quillmeter {

void QtDelayedCalls::performAfterDelay(QObject* receiver, std::chrono::milliseconds delay,
                                       std::function<void()> message) {
  // The toolkit's coarse timers may fire a twentieth early; a delay is a promise not to.
  QTimer::singleShot(delay, Qt::PreciseTimer, receiver, std::move(message));
}

}  // namespace quillmeter
