#pragma once

#include <QString>

class QWindow;

namespace quillmeter {

/// What another program is handed so that the desktop lets its window come to the front: on X11 a startup id
/// that carries the time of the user's last deed in `window` (may be null), as the freedesktop startup
/// notification protocol names it. Empty where there is none to give: on other desktops, without a
/// window, and before the user did anything. `number` makes it this program's only one. Main thread only.
[[nodiscard]] QString startupId(const QWindow* window, quint64 number);

}  // namespace quillmeter
