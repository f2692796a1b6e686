#pragma once

#include <QFrame>

class QGraphicsOpacityEffect;
class QPropertyAnimation;

namespace quillmeter {

/// A panel with an opacity that can change at once or by a fade of 0.3 seconds. Whether the panel is visible
/// to the toolkit is the owner's business; a panel of opacity 0 is merely not seen. Main thread only.
class FadingPanel : public QFrame {
  Q_OBJECT

 public:
  explicit FadingPanel(QWidget* parent = nullptr);

  /// The opacity that the panel has or is fading to, between 0 and 1; 1 for a new panel.
  [[nodiscard]] double alphaValue() const { return alphaValue_; }
  /// The opacity seen at this moment.
  [[nodiscard]] double shownAlpha() const;

  /// Sets the opacity at once; a running fade ends.
  void setAlphaValue(double alpha);
  /// Fades from what is seen now to `alpha`.
  void animateAlphaValue(double alpha);

 Q_SIGNALS:
  /// A fade has ended at opacity 0.
  void fadedOut();

 private:
  QGraphicsOpacityEffect* effect_;
  QPropertyAnimation* fade_;
  double alphaValue_ = 1;
};

}  // namespace quillmeter
