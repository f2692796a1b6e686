#include "controls/NSButtonWithHover.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>

#include "controls/FocusRing.h"
#include "controls/NamedImage.h"

namespace quillmeter {

/// Watches the mouse come and go for the button that owns it.
class NSButtonWithHover::TrackingArea final : public QObject {
 public:
  explicit TrackingArea(NSButtonWithHover& owner) : owner_(owner) { owner.installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Enter && owner_.isActiveWindow()) owner_.mouseEntered();
    if (event->type() == QEvent::Leave) owner_.mouseExited();
    return false;
  }

 private:
  NSButtonWithHover& owner_;
};

NSButtonWithHover::NSButtonWithHover(QWidget* parent)
    : QPushButton(parent), imageName_(QStringLiteral("btn_open_project_normal")) {
  updateTrackingAreas();
}

NSButtonWithHover::~NSButtonWithHover() = default;

void NSButtonWithHover::updateTrackingAreas() {
  trackingArea_.reset();
  trackingArea_ = std::make_unique<TrackingArea>(*this);
}

void NSButtonWithHover::setImageName(const QString& name) {
  imageName_ = name;
  update();
}

QSize NSButtonWithHover::sizeHint() const {
  return namedImageSize(imageName_);
}

void NSButtonWithHover::mouseEntered() {
  setImageName(QStringLiteral("btn_open_project_hover"));
}

void NSButtonWithHover::mouseExited() {
  mouseHasLeft_ = true;
  setImageName(QStringLiteral("btn_open_project_normal"));
}

void NSButtonWithHover::mousePressEvent(QMouseEvent* event) {
  QPushButton::mousePressEvent(event);
  if (event->button() != Qt::LeftButton) return;
  tracksClick_ = true;
  mouseHasLeft_ = false;
}

void NSButtonWithHover::mouseReleaseEvent(QMouseEvent* event) {
  const bool endsClick = tracksClick_ && event->button() == Qt::LeftButton;
  const QPointer<NSButtonWithHover> self(this);
  const QPoint mouse = QCursor::pos();
  QPushButton::mouseReleaseEvent(event);  // sends the action, which may take long, or the button with it
  if (self.isNull() || event->button() != Qt::LeftButton) return;
  tracksClick_ = false;
  // While a panel blocks the window nobody tells it that the mouse has gone.
  if (QCursor::pos() != mouse && !rect().contains(mapFromGlobal(QCursor::pos()))) mouseHasLeft_ = true;
  setImageName(endsClick && !mouseHasLeft_ ? QStringLiteral("btn_open_project_press")
                                           : QStringLiteral("btn_open_project_normal"));
}

void NSButtonWithHover::showEvent(QShowEvent* event) {
  QPushButton::showEvent(event);
  updateTrackingAreas();
}

/// A mouse over a button that goes has left it.
void NSButtonWithHover::hideEvent(QHideEvent* event) {
  QPushButton::hideEvent(event);
  mouseExited();
}

void NSButtonWithHover::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool changed =
      isDown() && buttonType_ == ButtonType::momentaryChange && !alternateImageName_.isEmpty();
  if (!isEnabled()) painter.setOpacity(0.5);
  painter.drawPixmap(QPointF(),
                     namedImage(changed ? alternateImageName_ : imageName_, size(), devicePixelRatioF()));
  painter.setPen(Qt::white);
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
  if (hasFocusRing(this)) {
    const qreal inset = 4.5;
    const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
  }
}

}  // namespace quillmeter
