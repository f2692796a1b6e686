#pragma once

class QFileDialog;

namespace quillmeter {

/// Opens the toolkit's own file dialog at a size that shows its columns, names whole, within the screen, and
/// forbids it to rename and delete, also by its keys. To be called before the dialog is shown.
void giveFileDialogLook(QFileDialog& dialog);

}  // namespace quillmeter
