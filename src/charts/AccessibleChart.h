#pragma once

#include <QAccessibleWidget>
#include <QList>

namespace quillmeter {

class DrawingCanvasView;

/// A chart as assistive technology sees it: a drawing with a name and a description, and in it each bar or
/// slice with its name and value. A bar can be pressed, which opens its details as a click does. Main thread
/// only.
class AccessibleChart final : public QAccessibleWidget {
 public:
  explicit AccessibleChart(DrawingCanvasView* canvas);
  ~AccessibleChart() override;

  /// Makes canvases tell of themselves this way; to be called before one is shown.
  static void install();
  /// Tells whoever listens that the canvas has other bars or slices now.
  static void partsChanged(DrawingCanvasView& canvas);

  [[nodiscard]] DrawingCanvasView* canvas() const;

  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;
  [[nodiscard]] QAccessible::State state() const override;

 private:
  void forgetParts();

  mutable QList<QAccessible::Id> parts_;  ///< as many as somebody has asked for
};

}  // namespace quillmeter
