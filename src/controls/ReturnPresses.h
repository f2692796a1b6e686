#pragma once

class QWidget;

namespace quillmeter {

/// Lets Return and Enter press every push button inside `window` that has the focus, as the space bar does.
/// The toolkit does so in its dialogs only.
void letReturnPressButtons(const QWidget& window);

}  // namespace quillmeter
