#pragma once

#include <QAbstractButton>

namespace quillmeter {

/// One of the three standard window buttons, drawn by ourselves, since a window without a border gets none
/// from the desktop. Dark while its window is active, faint while it is not; keeps one size.
class WindowButton final : public QAbstractButton {
  Q_OBJECT

 public:
  enum class Kind { close, minimize, zoom };

  WindowButton(Kind kind, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void drawGlyph(QPainter& painter, const QRectF& disc, const QColor& color) const;

  Kind kind_;
};

}  // namespace quillmeter
