#pragma once

#include <QRect>

namespace quillmeter {

/// Where a window opens that would like to be `wanted`: in the middle of a screen's available area, and
/// inside it together with the frame that the window manager is going to put around it.
[[nodiscard]] QRect openingGeometry(QSize wanted, const QRect& available);

}  // namespace quillmeter
