#pragma once

#include <QPoint>
#include <QPointF>
#include <QWidget>
#include <optional>

namespace quillmeter {

/// Fills the shaped window behind its content, draws nothing, and moves the window with the mouse: every
/// press that no control wants ends up here.
class CustomShapeWindowFrameView : public QWidget {
  Q_OBJECT

 public:
  explicit CustomShapeWindowFrameView(QWidget* parent = nullptr);

 protected:
  /// Clears what is to be drawn, so that only the content shows.
  void paintEvent(QPaintEvent* event) override;
  /// From the press to the release of the left button the window keeps the distance to the mouse that it had
  /// at the press. Where the desktop need not let a window place itself (Wayland, and X11 on top of it), the
  /// press asks the desktop to move it.
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  struct Press {
    QPointF mouse;  ///< on the screen
    QPoint window;  ///< the window's position
  };
  std::optional<Press> press_;
};

}  // namespace quillmeter
