#include "controls/CustomProgressIndicator.h"

#include <QFontDatabase>
#include <QPaintEvent>
#include <QPainter>
#include <QTimerEvent>
#include <cmath>

#include "controls/NamedImage.h"
#include "controls/ProgressBarGeometry.h"
#include "controls/ThreeSlice.h"
#include "support/Number.h"

namespace quillmeter {
namespace {

constexpr int kFrameMilliseconds = 33;
constexpr int kStepsAWay = 36;            // frames from one end to the other
constexpr float kWandererMiddle = 40.0F;  // between its caps
const QColor kLabelColor(72, 83, 92);
constexpr int kLabelSize = 16;

QFont labelFont() {
  QFont font;
  font.setFamilies({QStringLiteral("Helvetica Neue"), QStringLiteral("Nimbus Sans"),
                    QStringLiteral("Liberation Sans"), QStringLiteral("sans-serif")});
  font.setBold(true);
  font.setPixelSize(kLabelSize);
  return font;
}

}  // namespace

CustomProgressIndicator::CustomProgressIndicator(QWidget* parent) : QProgressBar(parent) {
  setTextVisible(false);
  publishValue();
}

QSize CustomProgressIndicator::sizeHint() const {
  return namedImageSize(QStringLiteral("loader_empty"));
}

void CustomProgressIndicator::setDoubleValue(double value) {
  doubleValue_ = value;
  publishValue();
  if (!indeterminate_) update();
}

void CustomProgressIndicator::setMinValue(double value) {
  minValue_ = value;
  publishValue();
  update();
}

void CustomProgressIndicator::setMaxValue(double value) {
  maxValue_ = value;
  publishValue();
  update();
}

void CustomProgressIndicator::setIndeterminate(bool indeterminate) {
  indeterminate_ = indeterminate;
  step_ = 0;
  publishValue();
  updateAnimation();
  update();
}

/// The toolkit's own whole numbers serve assistive technology only; an empty range says "busy".
void CustomProgressIndicator::publishValue() {
  const QSignalBlocker blocker(this);
  if (indeterminate_) {
    setRange(0, 0);
    return;
  }
  const double span = maxValue_ - minValue_;
  setRange(0, 100);
  setValue(clampedToInt32(span > 0 ? std::fmin(100.0, 100.0 * (doubleValue_ - minValue_) / span) : 0.0));
}

QPixmap CustomProgressIndicator::imageLeftCapWidthMiddleWidthRightCapWidth(const QPixmap& image,
                                                                           float leftCapWidth,
                                                                           float middleWidth,
                                                                           float rightCapWidth) {
  const QSizeF size = image.deviceIndependentSize();
  const qreal scale = image.devicePixelRatio();
  const ThreeSlice slices =
      threeSlice(static_cast<float>(size.width()), leftCapWidth, middleWidth, rightCapWidth);
  if (!(slices.width > 0) || size.isEmpty()) return {};

  QPixmap result(clampedToInt32(std::ceil(static_cast<qreal>(slices.width) * scale)), image.height());
  result.setDevicePixelRatio(scale);
  result.fill(Qt::transparent);
  QPainter painter(&result);
  for (const Slice& slice : {slices.left, slices.middle, slices.right}) {
    if (!slice.isDrawn()) continue;
    painter.drawPixmap(
        QRectF(static_cast<qreal>(slice.targetX), 0, static_cast<qreal>(slice.targetWidth), size.height()),
        image,
        QRectF(static_cast<qreal>(slice.sourceX) * scale, 0, static_cast<qreal>(slice.sourceWidth) * scale,
               image.height()));
  }
  return result;
}

void CustomProgressIndicator::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const qreal scale = devicePixelRatioF();
  painter.drawPixmap(QPointF(), namedImage(themedImageName(QStringLiteral("loader_empty")), {}, scale));
  const QPixmap full = namedImage(QStringLiteral("loader_full"), {}, scale);
  if (indeterminate_) {
    drawWanderer(painter, full);
  } else {
    drawBar(painter, full);
  }
}

void CustomProgressIndicator::drawBar(QPainter& painter, const QPixmap& full) const {
  const ProgressBarGeometry bar = progressBarGeometry(doubleValue_, maxValue_);
  painter.drawPixmap(QPointF(), imageLeftCapWidthMiddleWidthRightCapWidth(full, kProgressBarCap,
                                                                          bar.middleWidth, kProgressBarCap));
  painter.setFont(labelFont());
  painter.setPen(kLabelColor);
  const QRectF line(0, kProgressBarLabelTop, bar.filledWidth, kProgressBarLabelHeight);
  painter.setClipRect(line);
  painter.drawText(line, Qt::AlignHCenter | Qt::AlignTop, QString::fromStdString(bar.label));
}

void CustomProgressIndicator::drawWanderer(QPainter& painter, const QPixmap& full) const {
  const QPixmap piece =
      imageLeftCapWidthMiddleWidthRightCapWidth(full, kProgressBarCap, kWandererMiddle, kProgressBarCap);
  const double turn = M_PI * step_ / kStepsAWay;
  const double room = kProgressBarWidth - piece.deviceIndependentSize().width();
  painter.drawPixmap(QPointF(room * (1.0 - std::cos(turn)) / 2.0, 0), piece);
}

void CustomProgressIndicator::timerEvent(QTimerEvent* event) {
  if (event->timerId() != animation_.timerId()) {
    QProgressBar::timerEvent(event);
    return;
  }
  step_ = (step_ + 1) % (2 * kStepsAWay);
  update();
}

void CustomProgressIndicator::showEvent(QShowEvent* event) {
  QProgressBar::showEvent(event);
  updateAnimation();
}

void CustomProgressIndicator::hideEvent(QHideEvent* event) {
  QProgressBar::hideEvent(event);
  updateAnimation();
}

void CustomProgressIndicator::updateAnimation() {
  if (indeterminate_ && isVisible()) {
    animation_.start(kFrameMilliseconds, this);
  } else {
    animation_.stop();
  }
}

}  // namespace quillmeter
