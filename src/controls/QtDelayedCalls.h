#pragma once

#include "controls/Services.h"

namespace quillmeter {

/// Delayed messages on the toolkit's timers, which also fire while an alert or a panel runs its own loop.
class QtDelayedCalls final : public DelayedCalls {
 public:
  void performAfterDelay(QObject* receiver, std::chrono::milliseconds delay,
                         std::function<void()> message) override;
};

}  // namespace quillmeter
