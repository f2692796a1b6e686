#include "tables/FileTableView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <numeric>
#include <utility>

#include "controls/Theme.h"
#include "tables/AccessibleFileTable.h"
#include "tables/FileTableHeader.h"

namespace quillmeter {
namespace {

/// Room beside the text of a cell or header.
constexpr int kCellPadding = 2 * kGap;
/// A name is worth at least this much of a table's width, and at most that much.
constexpr int kShortName = 100;
constexpr int kLongName = 360;

/// The width of the widest word of a header, which is broken into lines at its blanks.
int widestWord(const QString& header, const QFontMetrics& metrics) {
  int widest = 0;
  for (const QString& word : header.split(QLatin1Char(' ')))
    widest = std::max(widest, metrics.horizontalAdvance(word));
  return widest;
}

/// The longest of a table's names by its bytes, which is the widest or nearly so.
QString longestName(const FileList& files) {
  std::string longest;
  for (const auto& file : files) {
    const auto name = file->fileName().value_or(std::string());
    if (name.size() > longest.size()) longest = name;
  }
  return tableText(longest);
}

/// The longest text of a column of numbers; a table of many files is known well enough by its first ones.
QString longestNumber(const FileTable& table, std::size_t column) {
  constexpr std::size_t looked = 1000;
  std::string longest;
  for (std::size_t row = 0; row < std::min(table.rows().size(), looked); ++row) {
    const std::string text = table.cellText(row, column);
    if (text.size() > longest.size()) longest = text;
  }
  return tableText(longest);
}

}  // namespace

FileTableView::FileTableView(QWidget* parent)
    : QTableView(parent), model_(new FileTableModel(this)), header_(new FileTableHeader(this)) {
  AccessibleFileTable::install();
  setHorizontalHeader(header_);
  setTabOrder(header_, this);
  connect(header_, &FileTableHeader::currentSectionChanged, this, [this](int section) {
    if (section < model_->columnCount()) horizontalScrollBar()->setValue(scrollValueShowing(section));
  });
  setModel(model_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setTextElideMode(Qt::ElideMiddle);
  setWordWrap(false);
  setShowGrid(false);
  setAlternatingRowColors(true);
  setTabKeyNavigation(false);
  setMouseTracking(true);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(28);

  QHeaderView* header = horizontalHeader();
  header->setMinimumSectionSize(kMinimumColumnWidth);
  header->setHighlightSections(false);
  header->setSectionsClickable(true);
  header->setDefaultAlignment(Qt::AlignCenter | Qt::Alignment(Qt::TextWordWrap));
  connect(header, &QHeaderView::sortIndicatorChanged, this, &FileTableView::sortByHeader);
  connect(header, &QHeaderView::sectionResized, this,
          [this](int section, int /*old*/, int width) { keepWidth(section, width); });
  addActions();
  fitHeader();
}

void FileTableView::setRevealButtonLook(RevealButtonLook look) {
  delegate_ = new FileTableDelegate(look, this);
  connect(delegate_, &FileTableDelegate::revealRequested, this, &FileTableView::revealRequested);
  setItemDelegate(delegate_);
}

void FileTableView::addActions() {
  auto* reveal = new QAction(tr("Show in file browser"), this);
  reveal->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
  connect(reveal, &QAction::triggered, this, [this] {
    if (currentIndex().isValid()) Q_EMIT revealRequested(currentIndex().row());
  });
  auto* copy = new QAction(tr("Copy"), this);
  copy->setShortcut(QKeySequence::Copy);
  connect(copy, &QAction::triggered, this, &FileTableView::copySelectedRows);
  for (QAction* action : {reveal, copy}) {
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setEnabled(false);
    addAction(action);
  }
}

/// Makes room for a line a word of the longest header, which a narrow column may need; two lines at least.
void FileTableView::fitHeader() {
  qsizetype lines = 2;
  for (const FileTableColumn& column : table().columns())
    lines = std::max(lines, tableText(column.header).count(QLatin1Char(' ')) + 1);
  QFont font = horizontalHeader()->font();
  font.setPixelSize(kCaptionSize);
  horizontalHeader()->setMinimumHeight(static_cast<int>(lines) * QFontMetrics(font).height() + kPadding);
  updateGeometries();
}

void FileTableView::setTable(FileTable table) {
  widths_.clear();
  for (const FileTableColumn& column : table.columns())
    widths_.push_back(column.width);
  longestName_ = longestName(table.rows());
  longestNumbers_.clear();
  for (std::size_t i = 0; i < table.columns().size(); ++i) {
    const bool isNumber = table.columns()[i].showsText() && !table.columns()[i].isLeftAligned();
    longestNumbers_ << (isNumber ? longestNumber(table, i) : QString());
  }
  {
    const QScopedValueRollback fitting(isFitting_, true);
    model_->setTable(std::move(table));
  }
  for (QAction* const action : actions())
    action->setEnabled(model_->rowCount() > 0);
  sortedSection_ = -1;
  const QSignalBlocker quiet(horizontalHeader());
  horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  fitHeader();
  fitColumns();
  scrollToTop();
}

void FileTableView::setEmptyText(const QString& text) {
  emptyText_ = text;
  viewport()->update();
}

void FileTableView::sortByColumnHeader(int column) {
  header_->sortBy(column);
}

void FileTableView::sortByHeader(int section, Qt::SortOrder order) {
  if (section < 0) return;
  const auto& columns = table().columns();
  if (!columns[static_cast<std::size_t>(section)].isSortable()) {
    const QSignalBlocker quiet(horizontalHeader());
    horizontalHeader()->setSortIndicator(sortedSection_, sortOrder_);
    return;
  }
  sortedSection_ = section;
  sortOrder_ = order;
  model_->sort(section, order);
}

void FileTableView::keepWidth(int section, int width) {
  if (isFitting_ || static_cast<std::size_t>(section) >= widths_.size()) return;
  const auto& column = table().columns()[static_cast<std::size_t>(section)];
  const int allowed = std::min(width, column.maximumWidth.value_or(width));
  const QScopedValueRollback fitting(isFitting_, true);
  if (allowed != width) setColumnWidth(section, allowed);
  for (int i = 0; i < model_->columnCount(); ++i)
    widths_[static_cast<std::size_t>(i)] = columnWidth(i);
}

void FileTableView::fitColumns() {
  const QScopedValueRollback fitting(isFitting_, true);
  const std::vector<int> fitted = uniformWidths(readableColumns(), widths_, viewport()->width());
  for (int i = 0; i < model_->columnCount(); ++i)
    setColumnWidth(i, fitted[static_cast<std::size_t>(i)]);
}

/// The columns with minimum widths at which headers and names can be read, as long as the view has room for
/// them.
std::vector<FileTableColumn> FileTableView::readableColumns() const {
  std::vector<FileTableColumn> columns = table().columns();
  QFont headerFont = horizontalHeader()->font();
  headerFont.setPixelSize(kCaptionSize);
  const QFontMetrics header(headerFont);
  FileTableColumn* name = nullptr;
  int others = 0;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    FileTableColumn& column = columns[i];
    if (column.identifier == "fileName") {
      name = &column;
      continue;
    }
    if (!column.maximumWidth) {
      const int text =
          std::max(widestWord(tableText(column.header), header),
                   fontMetrics().horizontalAdvance(longestNumbers_.value(static_cast<qsizetype>(i))));
      column.minimumWidth = std::max(column.minimumWidth, text + kGap);
    }
    others += column.minimumWidth;
  }
  const int room = viewport()->width() - others;
  if (name == nullptr || room < kShortName) return table().columns();
  const int wanted = std::min(fontMetrics().horizontalAdvance(longestName_) + kCellPadding, kLongName);
  name->minimumWidth = std::max(name->minimumWidth, std::min(std::max(wanted, kShortName), room));
  return columns;
}

int FileTableView::scrollValueShowing(int section) const {
  const int begin = horizontalHeader()->sectionPosition(section);
  const int end = begin + horizontalHeader()->sectionSize(section);
  return std::clamp(horizontalScrollBar()->value(), end - viewport()->width(), begin);
}

void FileTableView::keyboardSearch(const QString& search) {
  const auto name = table().columnOf("fileName");
  if (!name || model_->rowCount() == 0) return;
  // The search goes through the column of the current cell and begins behind it, so that without a current
  // row the last one makes it begin with the first.
  const int row = currentIndex().isValid() ? currentIndex().row() : model_->rowCount() - 1;
  const auto cell = model_->index(row, static_cast<int>(*name));
  if (currentIndex() != cell) selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
  QTableView::keyboardSearch(search);
}

void FileTableView::copySelectedRows() {
  std::vector<std::size_t> rows;
  const QModelIndexList selected = selectionModel()->selectedRows();
  rows.reserve(static_cast<std::size_t>(selected.size()));
  for (const QModelIndex& index : selected)
    rows.push_back(static_cast<std::size_t>(index.row()));
  if (rows.empty()) return;
  std::sort(rows.begin(), rows.end());
  QApplication::clipboard()->setText(tableText(table().tabSeparated(rows)));
}

void FileTableView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (model_->rowCount() > 0 || emptyText_.isEmpty()) return;
  QPainter painter(viewport());
  painter.setPen(themeFor(palette()).mutedText);
  painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                   Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void FileTableView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (!isFitting_) fitColumns();
}

void FileTableView::mouseMoveEvent(QMouseEvent* event) {
  QTableView::mouseMoveEvent(event);
  if (delegate_ != nullptr && delegate_->pointAt(indexAt(event->position().toPoint()))) viewport()->update();
}

/// The delegate does not hear of a mouse button that is let go beside the rows.
void FileTableView::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  if (delegate_ != nullptr) delegate_->letGo();
  viewport()->update();
}

/// A menu about rows, where there is one: under the pointer, or that of the keyboard.
void FileTableView::contextMenuEvent(QContextMenuEvent* event) {
  const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
  const QModelIndex row = isByMouse ? indexAt(event->pos()) : currentIndex();
  if (!row.isValid()) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions(actions());
  menu->popup(isByMouse ? event->globalPos() : viewport()->mapToGlobal(visualRect(row).center()));
}

void FileTableView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  const bool comesByTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (!comesByTab || !currentIndex().isValid() || selectionModel()->hasSelection()) return;
  selectRow(currentIndex().row());
}

}  // namespace quillmeter
