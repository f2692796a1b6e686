#pragma once

#include "controls/Services.h"

namespace quillmeter {

/// Alerts as message boxes: plain text, the buttons from left to right in the order given whatever the
/// desktop's custom is, the first one the default that Enter presses. Esc and the window's close button
/// answer nothing, except that they press a single button.
class QtAlerts final : public Alerts {
 public:
  std::optional<int> runModal(QWidget* parent, const QString& message, const QStringList& buttons) override;
};

}  // namespace quillmeter
