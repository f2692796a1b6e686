#pragma once

#include <QPixmap>
#include <QPushButton>

class QVariantAnimation;

namespace quillmeter {

/// A round picture button whose picture can pulse: it grows from its own size to 1.7 times that in a second,
/// shrinks back and starts again, about its centre. The picture looks the same when the button is disabled.
/// While the button is hidden the pulse rests. Main thread only.
class PulsingButton : public QPushButton {
  Q_OBJECT

 public:
  explicit PulsingButton(QWidget* parent = nullptr);

  /// The named picture, drawn at `side` points when it does not pulse.
  void setPicture(const QString& name, int side);

  /// Starts the pulse from its beginning.
  void startPulse();
  /// Ends it; the picture has its own size again.
  void stopPulse();
  [[nodiscard]] bool isPulsing() const { return pulsing_; }
  /// How much larger than its own size the picture is now.
  [[nodiscard]] double pictureScale() const { return pictureScale_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QString pictureName_;
  int side_ = 0;
  QPixmap picture_;  ///< drawn for the largest scale of the pulse
  QVariantAnimation* pulse_;
  bool pulsing_ = false;
  double pictureScale_ = 1;
};

}  // namespace quillmeter
