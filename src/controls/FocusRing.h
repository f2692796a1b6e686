#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace quillmeter {

/// Shows where the keyboard is to those who use it: the widget with the focus has the dynamic property
/// "focusRing" from the moment that a key is pressed until a mouse button is. The windows' style sheet draws
/// the ring by that property; a widget that draws itself asks `hasFocusRing`. One for the application, which
/// it watches for as long as it lives. Main thread only.
class FocusRing final : public QObject {
  Q_OBJECT

 public:
  explicit FocusRing(QObject* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showOn(QWidget* widget);

  bool byKeyboard_ = false;
  QPointer<QWidget> shownOn_;
};

/// Whether the ring is to be drawn around this widget.
[[nodiscard]] bool hasFocusRing(const QWidget* widget);

}  // namespace quillmeter
