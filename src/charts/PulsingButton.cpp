#include "charts/PulsingButton.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QVariantAnimation>

#include "controls/NamedImage.h"

namespace quillmeter {
namespace {

constexpr int kHalfPeriodMilliseconds = 1000;
constexpr double kLargest = 1.7;

}  // namespace

PulsingButton::PulsingButton(QWidget* parent) : QPushButton(parent), pulse_(new QVariantAnimation(this)) {
  pulse_->setDuration(2 * kHalfPeriodMilliseconds);
  pulse_->setLoopCount(-1);
  pulse_->setKeyValueAt(0, 1.0);
  pulse_->setKeyValueAt(0.5, kLargest);
  pulse_->setKeyValueAt(1, 1.0);
  connect(pulse_, &QVariantAnimation::valueChanged, this, [this](const QVariant& scale) {
    pictureScale_ = scale.toDouble();
    update();
  });
}

void PulsingButton::setPicture(const QString& name, int side) {
  pictureName_ = name;
  side_ = side;
  picture_ = {};
  update();
}

void PulsingButton::startPulse() {
  pulse_->stop();
  pulsing_ = true;
  if (isVisible()) pulse_->start();
}

void PulsingButton::stopPulse() {
  pulsing_ = false;
  pulse_->stop();
  pictureScale_ = 1;
  update();
}

void PulsingButton::showEvent(QShowEvent* event) {
  QPushButton::showEvent(event);
  if (pulsing_) pulse_->start();
}

void PulsingButton::hideEvent(QHideEvent* event) {
  pulse_->stop();
  QPushButton::hideEvent(event);
}

void PulsingButton::paintEvent(QPaintEvent* /*event*/) {
  const double scale = devicePixelRatioF() * kLargest;
  if (picture_.isNull() || !qFuzzyCompare(picture_.devicePixelRatio(), scale)) {
    picture_ = namedImage(pictureName_, QSize(side_, side_), scale);
  }
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const double shown = side_ * pictureScale_;
  QRectF target(0, 0, shown, shown);
  target.moveCenter(QRectF(rect()).center());
  if (isDown()) painter.setOpacity(0.7);
  painter.drawPixmap(target, picture_, QRectF(picture_.rect()));
  if (!hasFocus()) return;
  painter.setOpacity(1);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
}

}  // namespace quillmeter
