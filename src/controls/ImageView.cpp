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
  drawn_ = QPixmap();
  update();
}

void ImageView::paintEvent(QPaintEvent* /*event*/) {
  const qreal scale = devicePixelRatioF();
  if (drawn_.isNull() || drawn_.deviceIndependentSize().toSize() != size() ||
      drawn_.devicePixelRatio() != scale) {
    drawn_ = namedImage(imageName_, size(), scale);
  }
  QPainter(this).drawPixmap(QPointF(), drawn_);
}

}  // namespace quillmeter
