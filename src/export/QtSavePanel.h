#pragma once

#include <QString>
#include <memory>

#include "controls/Services.h"

namespace quillmeter {

/// The save dialog as a window-modal sheet.
///
/// The callers give a name without an extension the request's one afterwards, and keep any other extension.
/// QFileDialog's own default suffix would do the first but also ask about the wrong file when the user turns
/// its filters, and its own question about replacing a file comes before a missing extension is appended. So
/// this asks the question itself, about the file that will be written, and opens the dialog again when the
/// user would rather keep that file.
///
/// The dialog begins in the folder of the last answer, at first in the user's documents.
class QtSavePanel final : public SavePanel {
 public:
  void beginSheet(QWidget* window, const SavePanelRequest& request,
                  std::function<void(std::optional<std::string> path)> completion) override;

 private:
  std::shared_ptr<QString> folder_ = std::make_shared<QString>();  ///< shared with the open sheets
};

}  // namespace quillmeter
