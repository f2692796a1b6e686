#include "app/CustomDragView.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QSysInfo>

#include "app/DropDecision.h"
#include "app/DroppedFiles.h"

namespace quillmeter {
namespace {

DragOffer offerOf(const QDropEvent& event) {
  const QByteArray addresses = event.mimeData()->data(QStringLiteral("text/uri-list"));
  return {.offersGeneric = event.possibleActions().testFlag(Qt::CopyAction),
          .fileName = firstDroppedFile({addresses.constData(), static_cast<std::size_t>(addresses.size())},
                                       QSysInfo::machineHostName().toStdString())};
}

}  // namespace

CustomDragView::CustomDragView(QWidget* parent) : QWidget(parent) {}

void CustomDragView::awakeFromNib() {
  setAcceptDrops(true);
}

std::uint32_t CustomDragView::draggingEntered(const DragOffer& offer) {
  const DragAnswer answer = draggingEnteredAnswer(offer);
  if (delegate_ != nullptr) {
    if (answer.callback == DropCallback::draggingEntered) delegate_->draggingEntered(this);
    if (answer.callback == DropCallback::draggingInvalid) delegate_->draggingInvalid(this);
  }
  return answer.operation;
}

void CustomDragView::draggingExited() {
  if (delegate_ != nullptr) delegate_->draggingExited(this);
}

void CustomDragView::draggingEnded() {
  if (delegate_ != nullptr) delegate_->draggingExited(this);
}

bool CustomDragView::performDragOperation(const DragOffer& offer) {
  const DropAnswer answer = performDragOperationAnswer(offer);
  if (answer.selectedFolder && delegate_ != nullptr) delegate_->fileSelected(*answer.selectedFolder);
  return answer.taken;
}

void CustomDragView::dragEnterEvent(QDragEnterEvent* event) {
  operation_ = draggingEntered(offerOf(*event));
  // Accepted even when it is refused: otherwise the toolkit would not tell when the drag leaves again. What
  // the source sees is the answer to the move that follows at once.
  event->setDropAction(operation_ == kNoDragOperation ? Qt::IgnoreAction : Qt::CopyAction);
  event->accept();
}

void CustomDragView::dragMoveEvent(QDragMoveEvent* event) {
  if (operation_ == kNoDragOperation) {
    event->ignore();
    return;
  }
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void CustomDragView::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
  draggingExited();
}

void CustomDragView::dropEvent(QDropEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(prepareForDragOperation() && performDragOperation(offerOf(*event)));
  draggingEnded();
}

}  // namespace quillmeter
