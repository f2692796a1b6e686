#pragma once

#include <QWidget>
#include <cstdint>

#include "app/CustomDragViewDelegate.h"

class QDropEvent;

namespace quillmeter {

struct DragOffer;

/// The drop area: takes drags of files and tells its delegate whether a project is among them. Only the first
/// of several dragged items counts. What is dropped is only ever copied from, so that a source that offers to
/// move its files keeps them.
class CustomDragView : public QWidget {
  Q_OBJECT

 public:
  explicit CustomDragView(QWidget* parent = nullptr);
  /// To be called once the interface is loaded: from then on drags are taken.
  void awakeFromNib();

  /// Not owned; may be null.
  [[nodiscard]] CustomDragViewDelegate* delegate() const { return delegate_; }
  void setDelegate(CustomDragViewDelegate* delegate) { delegate_ = delegate; }

  /// A drag has come over the area; gives the drag operation to offer its source.
  std::uint32_t draggingEntered(const DragOffer& offer);
  void draggingExited();
  /// The drag is over. Tells the delegate the same as when it leaves.
  void draggingEnded();
  [[nodiscard]] bool prepareForDragOperation() const { return true; }
  /// The drag is dropped here; gives whether it was taken.
  bool performDragOperation(const DragOffer& offer);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  CustomDragViewDelegate* delegate_ = nullptr;
  std::uint32_t operation_ = 0;  ///< what the drag that is over the area was answered
};

}  // namespace quillmeter
