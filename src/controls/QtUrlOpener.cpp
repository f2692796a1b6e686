#include "controls/QtUrlOpener.h"

#include <QDesktopServices>

namespace quillmeter {

void QtUrlOpener::open(const QUrl& url) {
  QDesktopServices::openUrl(url);
}

}  // namespace quillmeter
