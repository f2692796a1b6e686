#pragma once

#include <QBasicTimer>
#include <QPixmap>
#include <QProgressBar>

namespace quillmeter {

/// The progress bar: a picture of an empty bar, a picture of a full one cut to the value, and the percentage
/// in the filled part. While indeterminate it keeps its value to itself and shows a piece of the full bar
/// that wanders through the empty one.
///
/// Values are doubles, which the toolkit's bar does not know; a value that is not a number is kept and drawn
/// as 0 %.
class CustomProgressIndicator : public QProgressBar {
  Q_OBJECT

 public:
  explicit CustomProgressIndicator(QWidget* parent = nullptr);

  [[nodiscard]] double doubleValue() const { return doubleValue_; }
  void setDoubleValue(double value);
  [[nodiscard]] double minValue() const { return minValue_; }
  void setMinValue(double value);
  [[nodiscard]] double maxValue() const { return maxValue_; }
  void setMaxValue(double value);
  [[nodiscard]] bool isIndeterminate() const { return indeterminate_; }
  void setIndeterminate(bool indeterminate);

  /// A copy of `image` (its widths in points) whose ends keep their widths and whose middle is `middleWidth`
  /// wide; as high as `image`, at its device pixel ratio. Null when the widths add up to nothing.
  [[nodiscard]] static QPixmap imageLeftCapWidthMiddleWidthRightCapWidth(const QPixmap& image,
                                                                         float leftCapWidth,
                                                                         float middleWidth,
                                                                         float rightCapWidth);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void drawBar(QPainter& painter, const QPixmap& full) const;
  void drawWanderer(QPainter& painter, const QPixmap& full) const;
  void updateAnimation();
  void publishValue();

  double doubleValue_ = 0.0;
  double minValue_ = 0.0;
  double maxValue_ = 100.0;
  bool indeterminate_ = false;
  int step_ = 0;
  QBasicTimer animation_;
};

}  // namespace quillmeter
