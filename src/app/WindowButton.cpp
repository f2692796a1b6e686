#include "app/WindowButton.h"

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>

#include "controls/FocusRing.h"
#include "controls/Theme.h"

namespace quillmeter {
namespace {

constexpr int kSide = 16;
constexpr qreal kRing = 2.0;  // room around the disc for the focus ring

}  // namespace

WindowButton::WindowButton(Kind kind, QWidget* parent) : QAbstractButton(parent), kind_(kind) {
  setFixedSize(sizeHint());
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::TabFocus);
}

QSize WindowButton::sizeHint() const {
  return {kSide, kSide};
}

/// Return presses every button of the program.
void WindowButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void WindowButton::paintEvent(QPaintEvent* /*event*/) {
  const ThemeColors& colors = themeFor(QGuiApplication::palette());
  const bool dark = isEnabled() && (isActiveWindow() || underMouse());
  QColor disc = dark ? colors.text : colors.inactive;
  if (isEnabled() && (underMouse() || isDown())) disc = kind_ == Kind::close ? colors.warning : colors.accent;
  if (isDown()) disc = disc.darker(125);

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF circle = QRectF(rect()).adjusted(kRing, kRing, -kRing, -kRing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(disc);
  painter.drawEllipse(circle);
  drawGlyph(painter, circle, colors.card);
  if (hasFocusRing(this)) {
    painter.setPen(QPen(colors.accent, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75));
  }
}

void WindowButton::drawGlyph(QPainter& painter, const QRectF& disc, const QColor& color) const {
  const QPointF middle = disc.center();
  const qreal arm = kind_ == Kind::close ? 2.1 : 2.9;
  painter.setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap));
  if (kind_ == Kind::close) {
    painter.drawLine(middle + QPointF(-arm, -arm), middle + QPointF(arm, arm));
    painter.drawLine(middle + QPointF(-arm, arm), middle + QPointF(arm, -arm));
    return;
  }
  painter.drawLine(middle + QPointF(-arm, 0), middle + QPointF(arm, 0));
  if (kind_ == Kind::zoom) painter.drawLine(middle + QPointF(0, -arm), middle + QPointF(0, arm));
}

/// The toolkit tells a window's children nothing but these two when its window gains or loses the keyboard.
bool WindowButton::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate) update();
  return QAbstractButton::event(event);
}

}  // namespace quillmeter
