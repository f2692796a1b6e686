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
  const qreal scale = devicePixelRatioF();
  const QString name = themedImageName(imageName_);
  if (drawn_.isNull() || drawnName_ != name || drawn_.deviceIndependentSize().toSize() != size() ||
      drawn_.devicePixelRatio() != scale) {
    drawnName_ = name;
    drawn_ = namedImage(name, size(), scale);
  }
  QPainter(this).drawPixmap(QPointF(), drawn_);
}

}  // namespace quillmeter
