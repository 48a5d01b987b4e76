// SheetView: the grid of one sheet, turning the user's clicks and edits into the workbook's own
// actions (select, type, double-click) and offering the "Cell" command bar as context menu.
#pragma once

#include <QTableView>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/workbook/grid.h"
#include "platform/workbook/in_memory_application.h"

namespace kxc::workbench {

class SheetModel;

// The areas of a selection address such as "$B$2:$C$4,$E$5" (sheet qualifiers allowed); areas
// that do not read as cells are left out.
std::vector<workbook::Area> parseSelectionAddress(const std::string& address);

// Selecting cells calls application select (the add-in hears SheetSelectionChange); a finished
// edit types the text through the model; a double-click raises SheetBeforeDoubleClick and starts
// in-cell editing only when no handler cancelled it; the context menu shows the "Cell" bar.
// User-interface thread only.
class SheetView : public QTableView {
  Q_OBJECT

 public:
  explicit SheetView(std::shared_ptr<workbook::InMemoryApplication> app, QWidget* parent = nullptr);

  void setSheetModel(SheetModel* model);
  SheetModel* sheetModel() const { return model_; }
  // Shows the application's selection of this sheet (after code changed it) without telling
  // the application again.
  void showApplicationSelection();
  // Runs after a context-menu command, so the window can refresh what the command changed.
  std::function<void()> afterCommand;

 protected:
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void showEvent(QShowEvent* event) override;
  // Delete empties the selected cells, as the spreadsheet's own Delete key does.
  void keyPressEvent(QKeyEvent* event) override;
  // Enter ends an edit and moves one cell down, Tab one cell right (Shift: up, left), without
  // opening the next cell for editing.
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  void pushSelection();

  std::shared_ptr<workbook::InMemoryApplication> app_;
  SheetModel* model_ = nullptr;
  bool syncing_ = false;
};

}  // namespace kxc::workbench
