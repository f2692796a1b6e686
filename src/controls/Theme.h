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
  QColor sidebar;       ///< the left column and pop-up panels, dark in both themes
  QColor sidebarText;   ///< on `sidebar`
  QColor sidebarHover;  ///< a hovered button on `sidebar`
  QColor paper;         ///< always white: what charts are drawn on
  QColor warning;
};

/// The theme that goes with a palette: dark when its window colour is darker than its text.
[[nodiscard]] const ThemeColors& themeFor(const QPalette& palette);

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

/// The style sheet that all windows share: buttons, check boxes, tables, tool tips, focus rings. Widgets take
/// a part by the dynamic property "role": "page", "card", "paper", "sidebar", "popup", "popupTitle",
/// "popupText", "radio" (a check box that is one of several), "primary" (the main button of a page), "brand"
/// (the product's name), "subtitle", "heading", "caption", "figure", "display".
[[nodiscard]] QString styleSheetFor(const ThemeColors& colors);

}  // namespace quillmeter
