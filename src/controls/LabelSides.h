#pragma once

class QWidget;

namespace quillmeter {

/// Keeps the texts of all labels inside `page` on the side where reading begins, whatever the direction of
/// reading is and becomes. The toolkit leaves English texts on the left also where everything around them is
/// mirrored.
void keepLabelsWhereReadingBegins(QWidget* page);

}  // namespace quillmeter
