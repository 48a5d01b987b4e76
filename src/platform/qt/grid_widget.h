// The widget of the grid control: a QTableView over a GridModel, with the selected block, the
// current cell and the column widths kept in step with the grid, and clicks, double clicks and
// mouse buttons raised as the grid's events.
#pragma once

#include <QTableView>

#include "platform/controls/grid.h"
#include "platform/qt/grid_model.h"
#include "platform/qt/queued_once.h"

namespace kxc::qt {

// The user selects one block (contiguous selection); it is written to Grid::setSelection as
// the rectangle Qt selected, or cleared. A block the logic selects is shown by
// syncSelection(), queued like the model's changes. Column widths are in characters of the
// grid's font (its average character width). Ctrl+C copies the block (Grid::copyToClipboard).
// The grid must outlive the widget.
class GridWidget : public QTableView {
 public:
  explicit GridWidget(controls::Grid& grid, QWidget* parent = nullptr);

  GridModel& gridModel() { return model_; }

  void gridChanged(const controls::GridChange& change);
  void fontChanged();  // the character width, and so the column widths, changed

  void syncSelection();
  void applyColumnWidths();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void selectionFromQt();
  void applyColumnWidth(int32_t col);
  void markDirty();
  void raiseMouse(QMouseEvent* event, bool down);

  controls::Grid& grid_;
  GridModel model_;
  bool ignoreQtSelection_ = false;
  bool writingGrid_ = false;
  bool dirty_ = false;
  QueuedOnce syncLater_{this, [this] {
                          if (dirty_) syncSelection();
                        }};
};

}  // namespace kxc::qt
