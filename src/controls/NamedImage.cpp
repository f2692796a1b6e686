#include "controls/NamedImage.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
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

/// What `draw` gives, kept by the toolkit for a while under `key`. The same picture from there has the same
/// key in the toolkit's own caches, too; pictures made anew for each window would fill them.
template <class Draw>
QPixmap keptPicture(const QString& key, const Draw& draw) {
  QPixmap picture;
  if (!QPixmapCache::find(key, &picture)) {
    picture = draw();
    QPixmapCache::insert(key, picture);
  }
  return picture;
}

QString keyOf(const QString& name, QSize size, qreal scale) {
  return QStringLiteral("%1 %2x%3@%4").arg(name).arg(size.width()).arg(size.height()).arg(scale);
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

QPixmap drawnWithRoom(const QString& name, QSize size, int room, qreal scale) {
  QPixmap picture((QSizeF(size) * scale).toSize());
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter(&picture).drawPixmap(0, 0, namedImage(name, size - QSize(room, 0), scale));
  return picture;
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
  return keptPicture(keyOf(name, size, scale), [&] { return drawnImage(name, size, scale); });
}

QString themedImageName(const QString& name) {
  const QString dark = name + QStringLiteral("_dark");
  const bool hasDark = isDark(themeFor(QGuiApplication::palette())) && QFile::exists(resourcePath(dark));
  return hasDark ? dark : name;
}

QIcon undimmedIcon(const QString& name, QSize size, int room) {
  QIcon icon;
  for (const qreal scale : {1.0, 2.0, 3.0}) {
    const QPixmap picture = keptPicture(keyOf(name, size, scale) + QStringLiteral("+%1").arg(room),
                                        [&] { return drawnWithRoom(name, size, room, scale); });
    icon.addPixmap(picture, QIcon::Normal);
    icon.addPixmap(picture, QIcon::Disabled);
  }
  return icon;
}

QIcon namedIcon(const QString& name) {
  static QHash<QString, QIcon> icons;
  auto known = icons.find(name);
  if (known == icons.end()) known = icons.insert(name, QIcon(resourcePath(name)));
  return *known;
}

}  // namespace quillmeter
