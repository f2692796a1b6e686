#include "tables/FileTableModel.h"

#include <QFile>
#include <limits>
#include <utility>

#include "controls/NamedImage.h"

namespace quillmeter {
namespace {

int clampedCount(std::size_t count) {
  constexpr std::size_t limit = std::numeric_limits<int>::max();
  return static_cast<int>(count < limit ? count : limit);
}

}  // namespace

void FileTableModel::setTable(FileTable table) {
  beginResetModel();
  table_ = std::move(table);
  endResetModel();
}

int FileTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : clampedCount(table_.rows().size());
}

int FileTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : clampedCount(table_.columns().size());
}

QVariant FileTableModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const FileTableColumn& shown = column(index.column());
  switch (role) {
    case Qt::DisplayRole:
      if (!shown.showsText()) return {};
      return tableText(table_.cellText(row, static_cast<std::size_t>(index.column())));
    case Qt::DecorationRole:
      if (!shown.showsPicture()) return {};
      return namedIcon(tableText(table_.iconName(row)));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue((shown.isLeftAligned() ? Qt::AlignLeft : Qt::AlignHCenter) |
                                 Qt::AlignVCenter);
    case Qt::AccessibleTextRole:
      if (shown.showsButton()) return tr("Show in file browser");
      if (!shown.showsPicture()) return {};
      return tableText(table_.rows()[row]->getFileExtension().value_or(std::string()));
    default:
      return {};
  }
}

QVariant FileTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return tableText(column(section).header);
    case Qt::AccessibleDescriptionRole:
      return tableText(column(section).explanation);
    case Qt::ToolTipRole:
      return column(section).toolTip.empty() ? QVariant() : QVariant(tableText(column(section).toolTip));
    case Qt::TextAlignmentRole:
      return int{Qt::AlignCenter} | int{Qt::TextWordWrap};
    default:
      return {};
  }
}

void FileTableModel::sort(int columnNumber, Qt::SortOrder order) {
  if (columnNumber < 0 || columnNumber >= columnCount() || !column(columnNumber).isSortable()) return;
  Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
  const auto oldRows = table_.sort(static_cast<std::size_t>(columnNumber), order == Qt::AscendingOrder);
  std::vector<int> newRows(oldRows.size());
  for (std::size_t row = 0; row < oldRows.size(); ++row)
    newRows[oldRows[row]] = static_cast<int>(row);
  const QModelIndexList before = persistentIndexList();
  QModelIndexList after;
  after.reserve(before.size());
  for (const QModelIndex& kept : before)
    after.append(index(newRows[static_cast<std::size_t>(kept.row())], kept.column()));
  changePersistentIndexList(before, after);
  Q_EMIT layoutChanged({}, VerticalSortHint);
}

const FileTableColumn& FileTableModel::column(int number) const {
  return table_.columns()[static_cast<std::size_t>(number)];
}

QString tableText(std::string_view text) {
  return QFile::decodeName(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace quillmeter
