#include "controls/NamedImage.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

/// The linker keeps the pictures in a static library only when something asks for them. (Outside any
/// namespace, as the macro wants it.)
static void registerImages() {
  Q_INIT_RESOURCE(images);
}

namespace quillmeter {
namespace {

QString resourcePath(const QString& name) {
  registerImages();
  return QStringLiteral(":/images/%1.svg").arg(name);
}

QPixmap drawnImage(const QString& name, QSize size, qreal scale) {
  QSvgRenderer renderer(resourcePath(name));
  if (!renderer.isValid()) return {};
  if (size.isEmpty()) size = renderer.defaultSize();
  QPixmap pixmap(QSize(qRound(size.width() * scale), qRound(size.height() * scale)));
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
  return pixmap;
}

}  // namespace

void registerNamedImages() {
  registerImages();
}

QSize namedImageSize(const QString& name) {
  return QSvgRenderer(resourcePath(name)).defaultSize();
}

/// Drawn once and kept by the toolkit for a while: the main screen's outline is cut from the picture that it
/// shows.
QPixmap namedImage(const QString& name, QSize size, qreal scale) {
  const QString key = QStringLiteral("%1 %2x%3@%4").arg(name).arg(size.width()).arg(size.height()).arg(scale);
  QPixmap image;
  if (!QPixmapCache::find(key, &image)) {
    image = drawnImage(name, size, scale);
    QPixmapCache::insert(key, image);
  }
  return image;
}

QIcon namedIcon(const QString& name) {
  return QIcon(resourcePath(name));
}

}  // namespace quillmeter
