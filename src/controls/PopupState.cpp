#include "controls/PopupState.h"

namespace quillmeter {

void PopupState::open() {
  isOpen_ = true;
  ++changes_;
}

PopupState::Hiding PopupState::close() {
  isOpen_ = false;
  return ++changes_;
}

}  // namespace quillmeter
