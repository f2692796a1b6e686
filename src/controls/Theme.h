#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

/// The one palette, type scale and spacing grid of the windows (docs/design.md shows them in use).
namespace quillmeter {

/// Colours by role, for a light or a dark desktop.
struct ThemeColors {
  QColor background;  ///< behind everything in the right-hand area
  QColor card;        ///< raised surfaces that hold figures, tables and forms
  QColor line;        ///< hairlines and card borders
  QColor text;
  QColor mutedText;  ///< captions; at least 4.5 : 1 on `card` and `background`
  QColor accent;     ///< the on state, links, focus; white text on it is readable
  QColor accentHover;
  QColor link;          ///< texts that lead to the web; at least 4.5 : 1 on `card`
  QColor sidebar;       ///< the left column and pop-up panels, dark in both themes
  QColor sidebarText;   ///< on `sidebar`
  QColor sidebarHover;  ///< a hovered button on `sidebar`
  QColor sidebarLine;   ///< the edge of a pop-up panel
  QColor scrollThumb;   ///< of scroll bars; at least 3 : 1 on `card` and `background`
  QColor inactive;      ///< a window button whose window is inactive, or that is disabled
  QColor paper;         ///< always white: what charts are drawn on
  QColor warning;
};

/// The theme that goes with a palette: dark when its window colour is darker than its text.
[[nodiscard]] const ThemeColors& themeFor(const QPalette& palette);

[[nodiscard]] bool isDark(const ThemeColors& theme);

/// Points of the type scale, as pixels at 1 ×.
inline constexpr int kCaptionSize = 13;
inline constexpr int kBodySize = 14;
inline constexpr int kHeadingSize = 18;
inline constexpr int kFigureSize = 28;
inline constexpr int kDisplaySize = 64;

/// Steps of the spacing grid in pixels at 1 ×; margins and gaps are multiples of the first.
inline constexpr int kSpace = 4;
inline constexpr int kGap = 8;
inline constexpr int kPadding = 16;
inline constexpr int kMargin = 24;
inline constexpr int kCornerRadius = 8;

/// The style sheet that all windows share, the toolkit's own dialogs among them: buttons, fields, lists,
/// check boxes, tables, scroll bars, tool tips, focus rings (see FocusRing.h). Widgets take a part by the
/// dynamic property "role": "page", "card", "paper" (what a chart is drawn on), "sidebar", "popup", "popupTitle",
/// "popupText", "radio" (a check box that is one of several), "primary" (the main button of a page), "link", "brand" (the product's name), "title" (of a window without a frame),
/// "subtitle", "heading", "caption", "figure", "display".
[[nodiscard]] QString styleSheetFor(const ThemeColors& colors);

}  // namespace quillmeter
