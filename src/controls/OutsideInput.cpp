#include "controls/OutsideInput.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace quillmeter {

OutsideInput::OutsideInput(QWidget& panel, QList<const QWidget*> partners, QObject* parent)
    : QObject(parent), panel_(panel), partners_(std::move(partners)) {}

void OutsideInput::watch(bool watches) {
  if (std::exchange(watches_, watches) == watches) return;
  if (watches) {
    QCoreApplication::instance()->installEventFilter(this);
  } else {
    QCoreApplication::instance()->removeEventFilter(this);
  }
}

bool OutsideInput::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress = event->type() == QEvent::MouseButtonPress;
  const bool isEscape =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (!isPress && !isEscape) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != panel_.window()) return false;
  if (isPress && isInside(static_cast<QMouseEvent*>(event)->globalPosition().toPoint())) return false;
  Q_EMIT dismissed();
  return isEscape;
}

/// By the point, not by the widget: a press that the panel has no use for goes on to what lies below it.
bool OutsideInput::isInside(QPoint globalPoint) const {
  const auto covers = [globalPoint](const QWidget* widget) {
    return widget->isVisible() && widget->rect().contains(widget->mapFromGlobal(globalPoint));
  };
  return covers(&panel_) || std::any_of(partners_.begin(), partners_.end(), covers);
}

}  // namespace quillmeter
