#pragma once

class QWidget;

namespace quillmeter {

/// What a widget is to people who hear the window instead of seeing it.
enum class AccessibleKind {
  window,       ///< a window of the application
  dialog,       ///< a window beside it
  group,        ///< things that belong together, under the widget's accessible name
  tabList,      ///< holds the tabs
  tab,          ///< a button that shows a page; selected while it is on
  popupButton,  ///< a button that opens and closes a panel, expanded while it is on; or that opens a menu
  choice,       ///< a button that is one of several, of which one is on
  label,        ///< a text that is read as it stands, without its tool tip
  silent,       ///< a text that is read as a part of another one
  notice,       ///< a panel that is read when it appears
};

/// Tells assistive technology what `widget` is, where the toolkit's own guess would mislead. Names and
/// descriptions are the widget's accessible ones or else its text and tool tip; buttons can be pressed. Main
/// thread only; best said before the widget is shown.
void setAccessibleKind(QWidget* widget, AccessibleKind kind);

}  // namespace quillmeter
