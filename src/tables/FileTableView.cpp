#include "tables/FileTableView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "controls/Theme.h"

namespace quillmeter {
namespace {

/// A header whose sort arrow stands above the text: narrow columns have no room beside it.
class FileTableHeader final : public QHeaderView {
 public:
  explicit FileTableHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSortIndicatorShown(false);
  }

 protected:
  void paintSection(QPainter* painter, const QRect& section, int number) const override {
    // The toolkit leaves the painter with a clip that lets nothing through.
    painter->save();
    QHeaderView::paintSection(painter, section, number);
    painter->restore();
    if (number == sortIndicatorSection()) paintArrow(painter, section);
  }

 private:
  /// Down for an ascending order, as the desktop's own lists have it.
  void paintArrow(QPainter* painter, const QRect& section) const {
    constexpr double halfWidth = 4.5;
    constexpr double height = 5;
    const bool isDown = sortIndicatorOrder() == Qt::AscendingOrder;
    const QPointF tip(section.center().x() + 0.5, section.top() + 2 + (isDown ? height : 0));
    const QPointF corner(halfWidth, isDown ? -height : height);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(themeFor(palette()).text);
    painter->drawPolygon(QPolygonF({tip, tip + corner, tip + QPointF(-corner.x(), corner.y())}));
    painter->restore();
  }
};

}  // namespace

FileTableView::FileTableView(QWidget* parent) : QTableView(parent), model_(new FileTableModel(this)) {
  setHorizontalHeader(new FileTableHeader(this));
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
  header->setSortIndicator(-1, Qt::AscendingOrder);
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
  setContextMenuPolicy(Qt::ActionsContextMenu);
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
  const std::vector<int> fitted = uniformWidths(table().columns(), widths_, viewport()->width());
  for (int i = 0; i < model_->columnCount(); ++i)
    setColumnWidth(i, fitted[static_cast<std::size_t>(i)]);
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

/// The delegate does not hear of a mouse button that is let go beside the rows.
void FileTableView::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  if (delegate_ != nullptr) delegate_->letGo();
  viewport()->update();
}

void FileTableView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  const bool comesByTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (!comesByTab || !currentIndex().isValid() || selectionModel()->hasSelection()) return;
  selectRow(currentIndex().row());
}

}  // namespace quillmeter
