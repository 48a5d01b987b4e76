#include "platform/qt/grid_model.h"

#include <QMetaObject>
#include <algorithm>

#include "platform/qt/qt_text.h"

namespace kxc::qt {

using controls::GridChange;

QString columnLetters(int col) {
  QString letters;
  for (int n = col; n > 0; n = (n - 1) / 26) letters.prepend(QChar(u'A' + (n - 1) % 26));
  return letters;
}

GridModel::GridModel(controls::Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid), rows_(grid.maxRows()), cols_(grid.maxCols()) {}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : cols_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_ || index.column() >= cols_) return {};
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  return toQString(grid_.cellText(index.column() + 1, index.row() + 1));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || section < 0) return {};
  if (orientation == Qt::Horizontal) {
    if (section >= cols_) return {};
    const std::string& text = grid_.cellText(section + 1, 0);
    return text.empty() ? columnLetters(section + 1) : toQString(text);
  }
  if (section >= rows_) return {};
  const std::string& text = grid_.cellText(0, section + 1);
  return text.empty() ? QString::number(section + 1) : toQString(text);
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

void GridModel::schedule() { flushLater_.request(); }

void GridModel::gridChanged(const GridChange& change) {
  if (change.kind == GridChange::Kind::Reset) {
    reset_ = true;
    schedule();
  } else if (change.kind == GridChange::Kind::Cells) {
    if (dirty_) {
      col1_ = std::min(col1_, change.col1);
      row1_ = std::min(row1_, change.row1);
      col2_ = std::max(col2_, change.col2);
      row2_ = std::max(row2_, change.row2);
    } else {
      col1_ = change.col1;
      row1_ = change.row1;
      col2_ = change.col2;
      row2_ = change.row2;
      dirty_ = true;
    }
    schedule();
  }
}

bool GridModel::flush() {
  if (!reset_ && !dirty_) return false;
  const int rows = grid_.maxRows();
  const int cols = grid_.maxCols();
  if (reset_ || rows < rows_ || cols < cols_) {
    beginResetModel();
    rows_ = rows;
    cols_ = cols;
    reset_ = dirty_ = false;
    endResetModel();
    return true;
  }
  if (cols > cols_) {
    beginInsertColumns(QModelIndex(), cols_, cols - 1);
    cols_ = cols;
    endInsertColumns();
  }
  if (rows > rows_) {
    beginInsertRows(QModelIndex(), rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  }
  dirty_ = false;
  if (row1_ == 0 && cols_ > 0) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
  if (col1_ == 0 && rows_ > 0) emit headerDataChanged(Qt::Vertical, 0, rows_ - 1);
  const int top = std::max(row1_, 1) - 1;
  const int left = std::max(col1_, 1) - 1;
  const int bottom = std::min<int>(row2_, rows_) - 1;
  const int right = std::min<int>(col2_, cols_) - 1;
  if (top <= bottom && left <= right) emit dataChanged(index(top, left), index(bottom, right));
  return true;
}

}  // namespace kxc::qt
