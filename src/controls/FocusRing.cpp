#include "controls/FocusRing.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <QVariant>
#include <utility>

namespace quillmeter {
namespace {

constexpr auto kProperty = "focusRing";

void setFocusRing(QWidget* widget, bool shown) {
  widget->setProperty(kProperty, shown);
  // A style sheet looks at properties only when a widget is polished.
  widget->style()->unpolish(widget);
  widget->style()->polish(widget);
  widget->update();
}

}  // namespace

FocusRing::FocusRing(QObject* parent) : QObject(parent) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      if (!watched->isWidgetType()) break;
      byKeyboard_ = true;
      showOn(QApplication::focusWidget());
      break;
    case QEvent::MouseButtonPress:
      if (!watched->isWidgetType()) break;
      byKeyboard_ = false;
      showOn(nullptr);
      break;
    case QEvent::FocusIn:
      if (byKeyboard_ && watched == QApplication::focusWidget()) showOn(QApplication::focusWidget());
      break;
    case QEvent::FocusOut:
      if (watched == shownOn_) showOn(nullptr);
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void FocusRing::showOn(QWidget* widget) {
  if (widget == shownOn_) return;
  const QPointer<QWidget> before = std::exchange(shownOn_, widget);
  if (!before.isNull()) setFocusRing(before, false);
  if (widget != nullptr) setFocusRing(widget, true);
}

bool hasFocusRing(const QWidget* widget) {
  return widget->property(kProperty).toBool();
}

}  // namespace quillmeter
