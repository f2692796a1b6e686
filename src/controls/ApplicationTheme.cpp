#include "controls/ApplicationTheme.h"

#include <QApplication>
#include <QEvent>

#include "controls/Theme.h"

namespace quillmeter {

ApplicationTheme::ApplicationTheme(QObject* parent) : QObject(parent) {
  apply();
  qApp->installEventFilter(this);
}

ApplicationTheme::~ApplicationTheme() {
  qApp->setStyleSheet(QString());
}

bool ApplicationTheme::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) apply();
  return QObject::eventFilter(watched, event);
}

void ApplicationTheme::apply() {
  const ThemeColors& theme = themeFor(QGuiApplication::palette());
  // Setting a style sheet changes palettes in its turn.
  if (theme_ == &theme) return;
  theme_ = &theme;
  qApp->setStyleSheet(styleSheetFor(theme));
}

}  // namespace quillmeter
