#pragma once

#include <QTableView>
#include <vector>

#include "tables/FileTableDelegate.h"
#include "tables/FileTableModel.h"

namespace quillmeter {

/// The table of files as both panels show it. Rows are selected whole. A click on a header sorts; the columns
/// share the width evenly and can be resized by hand; Return reveals the current row's file, typing finds a
/// name, and Copy puts the selected rows on the clipboard. Nothing of it outlives the view.
class FileTableView final : public QTableView {
  Q_OBJECT

 public:
  explicit FileTableView(QWidget* parent = nullptr);

  void setRevealButtonLook(RevealButtonLook look);

  /// Replaces columns and rows, and forgets selection, sort arrow and widths changed by hand.
  void setTable(FileTable table);
  [[nodiscard]] const FileTable& table() const { return model_->table(); }

  /// What stands in the middle of the table while it has no rows.
  void setEmptyText(const QString& text);
  [[nodiscard]] const QString& emptyText() const { return emptyText_; }

  /// Finds the next file whose name begins with what was typed, ignoring letter case.
  void keyboardSearch(const QString& search) override;

 Q_SIGNALS:
  /// The user wants to see the file of this row in the file browser.
  void revealRequested(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  /// Who comes with the keyboard finds a row selected.
  void focusInEvent(QFocusEvent* event) override;

 private:
  void addActions();
  void copySelectedRows();
  void sortByHeader(int section, Qt::SortOrder order);
  void keepWidth(int section, int width);
  void fitHeader();
  void fitColumns();

  FileTableModel* model_;
  FileTableDelegate* delegate_ = nullptr;
  QString emptyText_;
  std::vector<int> widths_;  ///< of the columns before they share the view's width
  bool isFitting_ = false;
  int sortedSection_ = -1;
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

}  // namespace quillmeter
