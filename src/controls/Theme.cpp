#include "controls/Theme.h"

#include "controls/NamedImage.h"

namespace quillmeter {
namespace {

const ThemeColors& lightColors() {
  static const ThemeColors colors{
      .background = QColor(0xF7, 0xFA, 0xFF),
      .card = QColor(0xFF, 0xFF, 0xFF),
      .line = QColor(0xDD, 0xE4, 0xEA),
      .text = QColor(0x26, 0x2D, 0x34),
      .mutedText = QColor(0x56, 0x63, 0x6E),
      .accent = QColor(0x12, 0x5B, 0xB8),
      .accentHover = QColor(0x17, 0x6C, 0xD6),
      .link = QColor(0x12, 0x5B, 0xB8),
      .sidebar = QColor(0x26, 0x2D, 0x34),
      .sidebarText = QColor(0xF2, 0xF6, 0xFA),
      .sidebarHover = QColor(0x3C, 0x44, 0x4C),
      .sidebarLine = QColor(0x56, 0x63, 0x6E),
      .scrollThumb = QColor(0x7C, 0x89, 0x94),
      .inactive = QColor(0xB9, 0xC4, 0xCF),
      .paper = QColor(0xFF, 0xFF, 0xFF),
      .warning = QColor(0xC6, 0x2B, 0x00),
  };
  return colors;
}

const ThemeColors& darkColors() {
  static const ThemeColors colors{
      .background = QColor(0x1B, 0x20, 0x25),
      .card = QColor(0x26, 0x2D, 0x34),
      .line = QColor(0x3C, 0x46, 0x50),
      .text = QColor(0xF2, 0xF6, 0xFA),
      .mutedText = QColor(0xA9, 0xB6, 0xC2),
      .accent = QColor(0x1F, 0x75, 0xDB),
      .accentHover = QColor(0x1A, 0x68, 0xC6),
      .link = QColor(0x7D, 0xB7, 0xFF),
      .sidebar = QColor(0x12, 0x16, 0x1A),
      .sidebarText = QColor(0xF2, 0xF6, 0xFA),
      .sidebarHover = QColor(0x2C, 0x34, 0x3C),
      .sidebarLine = QColor(0x56, 0x63, 0x6E),
      .scrollThumb = QColor(0x7C, 0x89, 0x94),
      .inactive = QColor(0x56, 0x62, 0x6D),
      .paper = QColor(0xFF, 0xFF, 0xFF),
      .warning = QColor(0xFF, 0x7A, 0x52),
  };
  return colors;
}

}  // namespace

const ThemeColors& themeFor(const QPalette& palette) {
  const bool dark =
      palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  return dark ? darkColors() : lightColors();
}

bool isDark(const ThemeColors& theme) {
  return &theme == &darkColors();
}

QString styleSheetFor(const ThemeColors& colors) {
  registerNamedImages();
  QString sheet = QStringLiteral(R"(
QWidget { color: @text; font-size: @bodypx; }
QWidget[role="page"] { background: @background; }
QFrame[role="card"] { background: @card; border: 1px solid @line; border-radius: @radiuspx; }
QWidget[role="sidebar"] { background: @sidebar; }
QFrame[role="popup"] { background: @sidebar; border: 1px solid @sidebarLine; border-radius: @radiuspx; }
QFrame[role="paper"] { background: @paper; border: 1px solid @line; border-radius: @radiuspx; }
QLabel { background: transparent; }
QLabel[role="heading"] { font-size: @headingpx; font-weight: 600; }
QLabel[role="subtitle"] { font-size: @bodypx; color: @mutedText; }
QLabel[role="caption"] { font-size: @captionpx; color: @mutedText; }
QLabel[role="figure"] { font-size: @figurepx; font-weight: 600; }
QLabel[role="display"] { font-size: @displaypx; font-weight: 700; color: @text; }
QPushButton { background: @card; border: 1px solid @line; border-radius: 6px; padding: 7px 14px; outline: none; }
QPushButton:hover { border-color: @accent; }
QPushButton:pressed { background: @background; }
QPushButton[focusRing="true"] { border: 2px solid @accent; padding: 6px 13px; }
QPushButton:checked { background: @accent; border-color: @accent; color: white; }
QPushButton:disabled { color: @mutedText; }
QPushButton:checked:disabled { color: white; }
QPushButton[role="primary"] { background: @accent; border-color: @accent; color: white; font-weight: 600; }
QPushButton[role="primary"]:hover { background: @accentHover; }
/* Filled buttons: clipped so, the fill ends half a border's width inside the ring, which the gap sets off. */
QPushButton[focusRing="true"]:checked, QPushButton[role="primary"][focusRing="true"] {
  border: 4px solid @accent; padding: 4px 11px; background-clip: padding; }
QWidget[role="sidebar"] QPushButton, QFrame[role="popup"] QPushButton {
  background: transparent; border: 2px solid transparent; color: @sidebarText; text-align: left; padding: 8px 12px; }
QWidget[role="sidebar"] QPushButton:hover, QFrame[role="popup"] QPushButton:hover { background: @sidebarHover; }
QWidget[role="sidebar"] QPushButton:pressed { background: @sidebarHover; }
QWidget[role="sidebar"] QPushButton:checked { color: white; }
QFrame[role="popup"] QPushButton:checked, QFrame[role="popup"] QPushButton:pressed { background: @sidebarText; }
QWidget[role="sidebar"] QPushButton:checked { font-weight: 600; background: qlineargradient(x1:0, y1:0, x2:1, y2:0,
  stop:0 @sidebarText, stop:0.028 @sidebarText, stop:0.029 @accent, stop:1 @accent); }
QWidget[role="sidebar"] QPushButton[focusRing="true"], QFrame[role="popup"] QPushButton[focusRing="true"] {
  border: 2px solid @sidebarText; padding: 8px 12px; background-clip: border; }
QFrame[role="popup"] QPushButton[focusRing="true"]:checked, QFrame[role="popup"] QPushButton[focusRing="true"]:pressed {
  border: 2px solid @accent; }
QWidget[role="sidebar"] QLabel, QFrame[role="popup"] QLabel { color: @sidebarText; }
QLabel[role="popupTitle"] { font-weight: 600; }
QLabel[role="popupText"] { font-size: 12px; }
QLabel[role="brand"] { font-size: @headingpx; font-weight: 700; padding-left: 8px; }
QMenu { background: @card; color: @text; border: 1px solid @line; padding: 4px; }
QMenu::item { padding: 8px 16px; border-radius: 6px; background: transparent; }
QMenu::item:selected { background: @accent; color: white; }
QMenu::item:disabled { color: @mutedText; }
QCheckBox { spacing: 8px; padding: 3px; border: 2px solid transparent; border-radius: 6px; background: transparent;
  outline: none; }
QCheckBox[focusRing="true"] { border-color: @accent; }
QCheckBox::indicator { width: 16px; height: 16px; border: 1px solid @mutedText; border-radius: 4px; background: @card; }
QCheckBox::indicator:hover { border-color: @accent; }
QCheckBox::indicator:checked { background: @accent; border-color: @accent; image: url(:/images/check.svg); }
QCheckBox[role="radio"]::indicator { border-radius: 9px; }
QCheckBox[role="radio"]::indicator:checked { image: url(:/images/radio.svg); }
QCheckBox::indicator:disabled { border-color: @line; background: @background; }
QTableView { background: @card; alternate-background-color: @background; border: 1px solid @line;
  border-radius: @radiuspx; padding: 2px; gridline-color: @line; selection-background-color: @accent;
  selection-color: white; }
QTableView[focusRing="true"] { border: 2px solid @accent; padding: 1px; }
QHeaderView { background: @card; }
QHeaderView::section { background: @card; color: @mutedText; border: none; border-bottom: 1px solid @line;
  padding: 6px 2px; font-size: @captionpx; }
QPushButton[role="link"] { color: @link; font-size: @captionpx; background: transparent; padding: 2px;
  border: 2px solid transparent; }
QPushButton[role="link"]:hover { text-decoration: underline; }
QPushButton[role="link"][focusRing="true"] { border: 2px solid @accent; padding: 2px; }
QLabel[role="title"] { font-weight: 600; }
QDialog { background: @card; }
QLineEdit, QComboBox { background: @background; border: 1px solid @mutedText; border-radius: 6px; padding: 5px 8px;
  selection-background-color: @accent; selection-color: white; }
QLineEdit:focus, QComboBox[focusRing="true"] { border: 2px solid @accent; padding: 4px 7px; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow { image: url(:/images/arrow_down.svg); width: 12px; height: 12px; }
QComboBox QAbstractItemView { background: @card; border: 1px solid @line; selection-background-color: @accent;
  selection-color: white; outline: none; }
QToolButton { background: transparent; border: 2px solid transparent; border-radius: 6px; padding: 4px; }
QToolButton:hover { background: @background; border-color: @line; }
QToolButton:checked { background: @background; border-color: @mutedText; }
QToolButton[focusRing="true"] { border-color: @accent; }
QFileDialog QListView, QFileDialog QTreeView { background: @card; alternate-background-color: @background;
  border: 1px solid @line; border-radius: @radiuspx; outline: none; padding: 1px;
  selection-background-color: @accent; selection-color: white; }
QFileDialog QListView[focusRing="true"], QFileDialog QTreeView[focusRing="true"] { border: 2px solid @accent; padding: 0px; }
QFileDialog QListView::item, QFileDialog QTreeView::item { padding: 4px; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QFileDialog QPushButton:default { background: @accent; border-color: @accent; color: white; font-weight: 600; }
QFileDialog QPushButton:default:disabled { background: @card; border-color: @line; color: @mutedText; }
QFileDialog { backward-icon: url(:/images/folder_back.svg); forward-icon: url(:/images/folder_forward.svg);
  filedialog-parent-directory-icon: url(:/images/folder_up.svg);
  filedialog-new-directory-icon: url(:/images/folder_new.svg);
  filedialog-detailedview-icon: url(:/images/view_details.svg);
  filedialog-listview-icon: url(:/images/view_list.svg); }
QSplitter::handle { background: transparent; width: 8px; }
QProgressBar { background: @line; border: none; border-radius: 3px; }
QProgressBar::chunk { background: @accent; border-radius: 3px; width: 40px; }
QScrollBar { background: transparent; border: none; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: @scrollThumb; border-radius: 4px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 32px; }
QScrollBar::handle:horizontal { min-width: 32px; }
QScrollBar::handle:hover, QScrollBar::handle:pressed { background: @mutedText; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QAbstractScrollArea::corner { background: transparent; border: none; }
QToolTip { background: @sidebar; color: @sidebarText; border: 1px solid @line; padding: 4px; }
)");
  const auto put = [&sheet](const char* name, const QString& value) {
    sheet.replace(QLatin1String(name), value);
  };
  // Longer names first, so that no name is replaced inside another.
  put("@sidebarHover", colors.sidebarHover.name());
  put("@sidebarLine", colors.sidebarLine.name());
  put("@scrollThumb", colors.scrollThumb.name());
  put("@sidebarText", colors.sidebarText.name());
  put("@sidebar", colors.sidebar.name());
  put("@accentHover", colors.accentHover.name());
  put("@accent", colors.accent.name());
  put("@background", colors.background.name());
  put("@mutedText", colors.mutedText.name());
  put("@link", colors.link.name());
  put("@paper", colors.paper.name());
  put("@text", colors.text.name());
  put("@card", colors.card.name());
  put("@line", colors.line.name());
  put("@paper", colors.paper.name());
  put("@body", QString::number(kBodySize));
  put("@heading", QString::number(kHeadingSize));
  put("@caption", QString::number(kCaptionSize));
  put("@figure", QString::number(kFigureSize));
  put("@display", QString::number(kDisplaySize));
  put("@radius", QString::number(kCornerRadius));
  return sheet;
}

}  // namespace quillmeter
