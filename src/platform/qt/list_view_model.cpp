#include "platform/qt/list_view_model.h"

#include <QMetaObject>
#include <algorithm>

#include "platform/qt/qt_text.h"

namespace kxc::qt {

using controls::ListChange;

ListViewModel::ListViewModel(controls::ListView& list, QObject* parent)
    : QAbstractTableModel(parent),
      list_(list),
      rows_(list.listItems().count()),
      columns_(std::max(1, list.columnHeaders().count())) {}

int ListViewModel::headerCount() const { return list_.columnHeaders().count(); }

int ListViewModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int ListViewModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_ || index.column() >= columns_) return {};
  const auto& items = list_.listItems();
  const int32_t row = index.row() + 1;
  if (row > items.count()) return {};
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      if (column == 0) return toQString(items.text(row));
      if (column < headerCount()) return toQString(items.subItem(row, column));
      return QString();
    case Qt::TextAlignmentRole: {
      if (column == 0 || column >= headerCount()) break;  // the first column is always left
      const int alignment = list_.columnHeaders().item(column + 1).alignment();
      const Qt::Alignment horizontal = alignment == controls::kAlignRight    ? Qt::AlignRight
                                       : alignment == controls::kAlignCenter ? Qt::AlignHCenter
                                                                             : Qt::AlignLeft;
      return QVariant::fromValue(horizontal | Qt::AlignVCenter);
    }
    default:
      break;
  }
  return {};
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columns_) return {};
  if (role != Qt::DisplayRole) return {};
  if (section >= headerCount()) return QString();
  return toQString(list_.columnHeaders().item(section + 1).text());
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

void ListViewModel::schedule() { flushLater_.request(); }

bool ListViewModel::flush() {
  if (pending_ == 0) return false;
  beginInsertRows(QModelIndex(), rows_, rows_ + pending_ - 1);
  rows_ += pending_;
  pending_ = 0;
  endInsertRows();
  return true;
}

void ListViewModel::rowsChanged(const ListChange& change) {
  const int first = change.first - 1;  // 0-based
  const int last = change.last - 1;
  const int known = rows_ + pending_;  // rows announced or held back
  switch (change.kind) {
    case ListChange::Kind::Inserted:
      if (first == known && last >= first) {
        pending_ += last - first + 1;
        schedule();
        return;
      }
      break;  // rows before others moved: their texts are already the new ones
    case ListChange::Kind::Removed:
      if (last != known - 1 || first > last) break;
      if (first >= rows_) {  // held back, never announced
        pending_ -= last - first + 1;
        return;
      }
      flush();
      beginRemoveRows(QModelIndex(), first, last);
      rows_ -= last - first + 1;
      endRemoveRows();
      return;
    case ListChange::Kind::Row: {
      // Rows still held back are read afresh when they are announced.
      const int top = std::max(first, 0);
      const int bottom = std::min(last, rows_ - 1);
      if (top <= bottom) emit dataChanged(index(top, 0), index(bottom, columns_ - 1));
      return;
    }
    case ListChange::Kind::Selection:
      return;
    case ListChange::Kind::Reset:
      break;
  }
  // The list changed in the middle before the model heard of it, so the rows Qt knows have
  // already moved: only a reset describes that truthfully.
  beginResetModel();
  rows_ = list_.listItems().count();
  pending_ = 0;
  endResetModel();
}

void ListViewModel::columnsChanged() {
  flush();
  const int columns = std::max(1, headerCount());
  if (columns == columns_) {
    emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
    if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
    return;
  }
  if (columns > columns_) {
    beginInsertColumns(QModelIndex(), columns_, columns - 1);
    columns_ = columns;
    endInsertColumns();
  } else {
    beginRemoveColumns(QModelIndex(), columns, columns_ - 1);
    columns_ = columns;
    endRemoveColumns();
  }
  emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
}

}  // namespace kxc::qt
