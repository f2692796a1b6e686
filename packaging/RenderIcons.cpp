#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

/// Draws an SVG picture in a square of pixels, with the renderer that the application shows it with:
/// `render_icons PICTURE.svg SIZE ICON.png …`, any number of sizes. Gives 1 when it cannot.
namespace {

bool draw(QSvgRenderer& picture, int size, const QString& path) {
  QImage image(size, size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  picture.render(&painter);
  painter.end();
  return image.save(path, "PNG");
}

}  // namespace

int main(int argc, char** argv) {
  QSvgRenderer picture(QFile::decodeName(argc > 1 ? argv[1] : ""));
  if (!picture.isValid()) return 1;
  for (int at = 2; at + 1 < argc; at += 2) {
    const int size = QByteArray(argv[at]).toInt();
    if (size <= 0 || !draw(picture, size, QFile::decodeName(argv[at + 1]))) return 1;
  }
  return 0;
}
