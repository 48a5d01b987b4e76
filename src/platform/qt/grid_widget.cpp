#include "platform/qt/grid_widget.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMetaObject>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "platform/qt/guarded_call.h"
#include "platform/qt/key_mapping.h"
#include "platform/qt/screen_units.h"

namespace kxc::qt {

using controls::GridChange;

GridWidget::GridWidget(controls::Grid& grid, QWidget* parent)
    : QTableView(parent), grid_(grid), model_(grid, this) {
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setWordWrap(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  setModel(&model_);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { selectionFromQt(); });
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] {
    applyColumnWidths();
    markDirty();
  });
  connect(&model_, &QAbstractItemModel::columnsInserted, this,
          [this](const QModelIndex&, int first, int last) {
            for (int col = first; col <= last; ++col) applyColumnWidth(col + 1);
          });
  applyColumnWidths();
  syncSelection();
}

void GridWidget::gridChanged(const GridChange& change) {
  switch (change.kind) {
    case GridChange::Kind::Reset:
    case GridChange::Kind::Cells:
      model_.gridChanged(change);
      break;
    case GridChange::Kind::ColWidth:
      model_.flush();
      applyColumnWidth(change.col1);
      break;
    case GridChange::Kind::Selection:
    case GridChange::Kind::Current:
      if (!writingGrid_) markDirty();
      break;
  }
}

void GridWidget::fontChanged() {
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  applyColumnWidths();
}

void GridWidget::applyColumnWidth(int32_t col) {
  if (col < 1 || col > model_.columnCount()) return;
  const double chars = grid_.colWidth(col);
  setColumnWidth(col - 1, static_cast<int>(std::lround(chars * fontMetrics().averageCharWidth())) +
                              8);  // cell padding
}

void GridWidget::applyColumnWidths() {
  for (int col = 1; col <= model_.columnCount(); ++col) applyColumnWidth(col);
}

void GridWidget::markDirty() {
  dirty_ = true;
  syncLater_.request();
}

void GridWidget::syncSelection() {
  model_.flush();
  dirty_ = false;
  QItemSelectionModel* selection = selectionModel();
  if (!selection) return;
  const int rows = model_.rowCount();
  const int cols = model_.columnCount();
  QItemSelection wanted;
  if (auto block = grid_.selection()) {
    const int top = std::max(block->row1, 1) - 1;
    const int left = std::max(block->col1, 1) - 1;
    const int bottom = std::min<int>(block->row2, rows) - 1;
    const int right = std::min<int>(block->col2, cols) - 1;
    if (top <= bottom && left <= right) {
      wanted.select(model_.index(top, left), model_.index(bottom, right));
    }
  }
  FlagScope ignoring(ignoreQtSelection_);
  selection->select(wanted, QItemSelectionModel::ClearAndSelect);
  const int col = grid_.col() - 1;
  const int row = grid_.row() - 1;
  if (col >= 0 && row >= 0 && col < cols && row < rows) {
    selection->setCurrentIndex(model_.index(row, col), QItemSelectionModel::NoUpdate);
  }
}

void GridWidget::selectionFromQt() {
  if (ignoreQtSelection_) return;
  FlagScope writing(writingGrid_);
  const QItemSelection selected = selectionModel()->selection();
  guarded(grid_, [&] {
    if (selected.isEmpty()) {
      grid_.clearSelection();
      return;
    }
    int top = selected.first().top(), left = selected.first().left();
    int bottom = selected.first().bottom(), right = selected.first().right();
    for (const QItemSelectionRange& range : selected) {
      top = std::min(top, range.top());
      left = std::min(left, range.left());
      bottom = std::max(bottom, range.bottom());
      right = std::max(right, range.right());
    }
    grid_.setSelection(left + 1, top + 1, right + 1, bottom + 1);
  });
}

void GridWidget::raiseMouse(QMouseEvent* event, bool down) {
  const double tpp = twipsPerPixel(logicalDpi(this));
  const int button = hostMouseButtons(event->button());
  const int shift = hostShiftFlags(event->modifiers());
  const double x = event->position().x() * tpp;
  const double y = event->position().y() * tpp;
  guarded(grid_, [&] {
    if (down) {
      grid_.mouseDown(button, shift, x, y);
    } else {
      grid_.mouseUp(button, shift, x, y);
    }
  });
}

void GridWidget::mousePressEvent(QMouseEvent* event) {
  raiseMouse(event, true);
  QTableView::mousePressEvent(event);
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && index.isValid()) {
    FlagScope writing(writingGrid_);
    guarded(grid_, [&] { grid_.clickCell(index.column() + 1, index.row() + 1); });
  }
}

void GridWidget::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  raiseMouse(event, false);
}

void GridWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  raiseMouse(event, true);
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && index.isValid()) {
    guarded(grid_, [&] { grid_.doubleClickCell(index.column() + 1, index.row() + 1); });
  }
}

void GridWidget::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    guarded(grid_, [&] { grid_.copyToClipboard(); });
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
  // Keyboard moves change the current cell; the grid's Col and Row follow it.
  const QModelIndex current = currentIndex();
  if (current.isValid() &&
      (current.column() + 1 != grid_.col() || current.row() + 1 != grid_.row())) {
    FlagScope writing(writingGrid_);
    guarded(grid_, [&] {
      grid_.setCol(current.column() + 1);
      grid_.setRow(current.row() + 1);
    });
  }
}

}  // namespace kxc::qt
