#include "controls/ImageView.h"

#include <QPainter>

#include "controls/NamedImage.h"

namespace quillmeter {

ImageView::ImageView(QWidget* parent) : QLabel(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImageView::setImageName(const QString& name) {
  if (name == imageName_) return;
  imageName_ = name;
  update();
}

void ImageView::paintEvent(QPaintEvent* /*event*/) {
  const QPixmap picture = namedImage(themedImageName(imageName_), size(), devicePixelRatioF());
  QPainter(this).drawPixmap(QPointF(), picture);
}

}  // namespace quillmeter
