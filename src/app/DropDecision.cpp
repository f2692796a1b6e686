#include "app/DropDecision.h"

#include "analysis/ProjectChooser.h"

namespace quillmeter {

DragAnswer draggingEnteredAnswer(const DragOffer& offer) {
  if (!offer.offersGeneric) return {DropCallback::draggingInvalid, kNoDragOperation};
  if (!offer.fileName) return {DropCallback::none, kGenericDragOperation};
  return {holdsProject(*offer.fileName) ? DropCallback::draggingEntered : DropCallback::draggingInvalid,
          kGenericDragOperation};
}

DropAnswer performDragOperationAnswer(const DragOffer& offer) {
  if (!offer.fileName) return {.taken = false, .selectedFolder = std::nullopt};
  return {.taken = true, .selectedFolder = holdsProject(*offer.fileName) ? offer.fileName : std::nullopt};
}

}  // namespace quillmeter
