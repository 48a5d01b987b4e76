// A Qt table model over the grid control: cells are read straight from the grid; row 0 gives
// the column headings and column 0 the row headings.
#pragma once

#include <QAbstractTableModel>

#include "platform/controls/form_view.h"
#include "platform/controls/grid.h"
#include "platform/qt/queued_once.h"

namespace kxc::qt {

// Qt's cell (r, c) is the grid's cell (c + 1, r + 1). Headings the grid leaves empty are
// column letters (A, B, ..., Z, AA, ...) and row numbers. Changes are collected and announced
// together by flush() (queued on the first change, or called by the owner): growth of the grid
// as inserted rows and columns, written cells as one dataChanged over the block they span,
// and a reset when the grid was cleared or shrank. The grid must outlive the model.
// User-interface thread only.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridModel(controls::Grid& grid, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  // A Reset or Cells change of the grid; other kinds are the view's business.
  void gridChanged(const controls::GridChange& change);
  // Announces what was collected; true when anything was.
  bool flush();
  bool hasPending() const { return reset_ || dirty_; }

  controls::Grid& grid() const { return grid_; }

 private:
  void schedule();

  controls::Grid& grid_;
  int rows_ = 0;
  int cols_ = 0;
  bool reset_ = false;
  bool dirty_ = false;
  int32_t col1_ = 0, row1_ = 0, col2_ = 0, row2_ = 0;  // written block, the grid's numbers
  QueuedOnce flushLater_{this, [this] { flush(); }};
};

// The heading of column `col` (1-based) when the grid has none: "A", ..., "Z", "AA", ...
QString columnLetters(int col);

}  // namespace kxc::qt
