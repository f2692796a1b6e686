#pragma once

class QMessageBox;

namespace quillmeter {

/// Makes a box of the toolkit look like every alert of the program: text and buttons on a card without a
/// picture, the buttons in the order in which they were added on every desktop, the default one as the main
/// button. To be called when the box has its buttons, which must be of one role but for a default one.
void giveAlertLook(QMessageBox& box);

}  // namespace quillmeter
