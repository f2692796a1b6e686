#include "stats/WindowPlacement.h"

#include <QMargins>

namespace quillmeter {

QRect openingGeometry(QSize wanted, const QRect& available) {
  // Nobody knows the frame before the window is shown; this is more than the usual ones take.
  constexpr QMargins frame(8, 36, 8, 8);
  const QRect room = available.marginsRemoved(frame);
  QRect opened(QPoint(), wanted.boundedTo(room.size()));
  opened.moveCenter(room.center());
  return opened;
}

}  // namespace quillmeter
