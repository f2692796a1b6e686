#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>

namespace quillmeter::bench {

/// Ends the application as soon as a window has been painted for the first time.
class QuitAtFirstPaint final : public QObject {
 public:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    return false;
  }
};

}  // namespace quillmeter::bench
