#pragma once

#include <QString>

namespace quillmeter {

/// A text for a tool tip that shows it as it is, its own line breaks and blanks too, in lines of at most
/// `lineLength` UTF-16 code units. A tool tip would take what looks like markup for markup, and a file name
/// may look like that.
[[nodiscard]] QString toolTipText(const QString& text, qsizetype lineLength);

}  // namespace quillmeter
