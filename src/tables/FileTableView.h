#pragma once

#include <QTableView>
#include <vector>

#include "tables/FileTableDelegate.h"
#include "tables/FileTableModel.h"

namespace quillmeter {

class FileTableHeader;

/// The ways in which a table can mark its selected rows, with the numbers that the design has for them.
enum class SelectionHighlightStyle { regular = 0, sourceList = 1 };

/// The table of files as both panels show it. Rows are selected whole. A click on a header sorts; the columns
/// share the width evenly and can be resized by hand; from the header, which the Tab key reaches, the arrow
/// keys and the space bar sort; Return reveals the current row's file, typing finds a name, and Copy puts the
/// selected rows on the clipboard. Nothing of it outlives the view.
class FileTableView final : public QTableView {
  Q_OBJECT

 public:
  explicit FileTableView(QWidget* parent = nullptr);

  void setRevealButtonLook(RevealButtonLook look);

  /// How selected rows are marked: as in a source list, which is over their whole width and in the accent
  /// colour.
  [[nodiscard]] SelectionHighlightStyle selectionHighlightStyle() const { return highlightStyle_; }
  void setSelectionHighlightStyle(SelectionHighlightStyle style) { highlightStyle_ = style; }

  /// Replaces columns and rows, and forgets selection, sort arrow and widths changed by hand.
  void setTable(FileTable table);
  [[nodiscard]] const FileTable& table() const { return model_->table(); }

  /// What stands in the middle of the table while it has no rows.
  void setEmptyText(const QString& text);
  [[nodiscard]] const QString& emptyText() const { return emptyText_; }

  /// Sorts as a click on the header of a column does.
  void sortByColumnHeader(int column);

  /// Finds the next file whose name begins with what was typed, ignoring letter case.
  void keyboardSearch(const QString& search) override;

 Q_SIGNALS:
  /// The user wants to see the file of this row in the file browser.
  void revealRequested(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  /// Who comes with the keyboard finds a row selected.
  void focusInEvent(QFocusEvent* event) override;

 private:
  void addActions();
  void copySelectedRows();
  void sortByHeader(int section, Qt::SortOrder order);
  void keepWidth(int section, int width);
  void fitHeader();
  void fitColumns();
  [[nodiscard]] std::vector<FileTableColumn> readableColumns() const;
  [[nodiscard]] int scrollValueShowing(int section) const;

  FileTableModel* model_;
  FileTableHeader* header_;
  FileTableDelegate* delegate_ = nullptr;
  SelectionHighlightStyle highlightStyle_ = SelectionHighlightStyle::regular;
  QString emptyText_;
  QString longestName_;
  QStringList longestNumbers_;
  std::vector<int> widths_;  ///< of the columns before they share the view's width
  bool isFitting_ = false;
  int sortedSection_ = -1;
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

}  // namespace quillmeter
