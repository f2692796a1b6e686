#pragma once

#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QWidget>
#include <functional>

#include "app/Compositor.h"

namespace quillmeter {

class CustomShapeWindowFrameView;

/// A window without border or background: its content alone gives it its shape. Between the window and the
/// content that its users set lies an invisible frame view, which moves the window; users never meet it.
///
/// Where the desktop blends windows, the transparent parts of the content are simply not there. Where it does
/// not (X11 without a compositor), the window is cut to the outline that it is given by `setOutline`.
class CustomShapeWindow : public QWidget {
  Q_OBJECT

 public:
  /// `styleMask` is not taken: the window is borderless whatever is asked for.
  explicit CustomShapeWindow(const QRect& contentRect, Qt::WindowFlags styleMask = {},
                             QWidget* parent = nullptr);

  /// Resizes the window so that its content gets this size.
  void setContentSize(const QSize& size);
  /// Puts `view` into the window in place of the content before, which is left without a parent. The window
  /// owns the view; it fills the window and grows and shrinks with it. The view that is there already changes
  /// nothing.
  void setContentView(QWidget* view);
  /// The content that was set, not the frame view; null before.
  [[nodiscard]] QWidget* contentView() const { return childContentView_; }

  /// A hook for redrawing when the window becomes or stops being the main window.
  virtual void mainWindowChanged() {}
  [[nodiscard]] bool canBecomeKeyWindow() const { return true; }
  [[nodiscard]] bool canBecomeMainWindow() const { return true; }
  /// The content fills the frame: the same size at the origin.
  [[nodiscard]] QRect contentRectForFrameRect(const QRect& frameRect) const;
  /// No border and no title bar: the same rectangle.
  [[nodiscard]] static QRect frameRectForContentRectStyleMask(const QRect& contentRect,
                                                              Qt::WindowFlags styleMask);

  /// What the window is cut to while the desktop does not blend windows, in the window's coordinates. Asked
  /// for only when it comes to that.
  void setOutline(std::function<QRegion()> outline);

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void applyOutline();

  QPointer<QWidget> childContentView_;
  CustomShapeWindowFrameView* frameView_ = nullptr;  ///< a child of the window
  std::function<QRegion()> outline_;
  bool isCut_ = false;
  CompositorWatch compositorWatch_;
};

/// The part of a picture that is opaque enough to belong to a window that cannot be translucent.
[[nodiscard]] QRegion outlineOfPicture(const QImage& picture);

}  // namespace quillmeter
