#pragma once

namespace quillmeter {

/// Whether the desktop blends translucent windows with what lies behind them. On X11 that is the compositing
/// manager's doing, which may come and go; everywhere else it always does. Asks the display's server, so it
/// costs a round trip.
[[nodiscard]] bool desktopBlendsWindows();

}  // namespace quillmeter
