#pragma once

#include <QColor>

class QPushButton;

/// The colours of a push button's title. A title has one colour while the button is off and may have another
/// one, the alternate colour, while it is on or pressed. The colours survive a change of the title's text and
/// win over the style sheets of the windows around the button; a disabled button keeps the look of its
/// window.
namespace quillmeter {

/// The colour that was given to the button's title; the desktop's colour of button texts when none was given
/// or the title is empty.
[[nodiscard]] QColor textColor(const QPushButton* button);

/// Colours the title. The alternate colour stays as it is; without one the title has this colour in every
/// state.
void setTextColor(QPushButton* button, const QColor& color);

/// Colours the title with `color`, and with `alternateColor` while the button is on or pressed.
void setTextColorAndAlternateColor(QPushButton* button, const QColor& color, const QColor& alternateColor);

}  // namespace quillmeter
