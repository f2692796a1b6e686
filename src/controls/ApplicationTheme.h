#pragma once

#include <QObject>

#include "controls/FocusRing.h"

namespace quillmeter {

struct ThemeColors;

/// Gives the whole application its look for as long as it lives: the one style sheet, in the theme that goes
/// with the desktop's colours and follows them, and the focus rings. Windows, the toolkit's own dialogs and
/// tool tips take it from the application object. Main thread only.
class ApplicationTheme final : public QObject {
  Q_OBJECT

 public:
  explicit ApplicationTheme(QObject* parent = nullptr);
  ~ApplicationTheme() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void apply();

  const ThemeColors* theme_ = nullptr;  ///< the one whose style sheet is set
  FocusRing focusRing_;
};

}  // namespace quillmeter
