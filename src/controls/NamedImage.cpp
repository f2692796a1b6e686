#include "controls/NamedImage.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "controls/Theme.h"

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

QString themedImageName(const QString& name) {
  const QString dark = name + QStringLiteral("_dark");
  const bool hasDark = isDark(themeFor(QGuiApplication::palette())) && QFile::exists(resourcePath(dark));
  return hasDark ? dark : name;
}

QIcon undimmedIcon(const QString& name, QSize size, int room) {
  QIcon icon;
  for (const qreal scale : {1.0, 2.0, 3.0}) {
    QPixmap picture((QSizeF(size) * scale).toSize());
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter(&picture).drawPixmap(0, 0, namedImage(name, size - QSize(room, 0), scale));
    icon.addPixmap(picture, QIcon::Normal);
    icon.addPixmap(picture, QIcon::Disabled);
  }
  return icon;
}

QIcon namedIcon(const QString& name) {
  return QIcon(resourcePath(name));
}

}  // namespace quillmeter
