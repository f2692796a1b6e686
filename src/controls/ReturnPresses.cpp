#include "controls/ReturnPresses.h"

#include <QPushButton>

namespace quillmeter {

void letReturnPressButtons(const QWidget& window) {
  for (QPushButton* const button : window.findChildren<QPushButton*>())
    button->setAutoDefault(true);
}

}  // namespace quillmeter
