#include "sheet_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <algorithm>

#include "command_bar_menus.h"
#include "platform/error_report.h"
#include "platform/workbook/reference_syntax.h"
#include "sheet_delegate.h"
#include "sheet_model.h"

namespace kxc::workbench {

std::vector<workbook::Area> parseSelectionAddress(const std::string& address) {
  std::vector<workbook::Area> areas;
  size_t start = 0;
  while (start <= address.size()) {
    // Commas inside quoted sheet names do not separate areas.
    size_t end = start;
    bool quoted = false;
    while (end < address.size() && (quoted || address[end] != ',')) {
      if (address[end] == '\'') quoted = !quoted;
      ++end;
    }
    auto syntax = workbook::parseReference(std::string_view(address).substr(start, end - start));
    if (syntax && !syntax->isName) areas.push_back(syntax->area);
    start = end + 1;
  }
  return areas;
}

SheetView::SheetView(std::shared_ptr<workbook::InMemoryApplication> app, QWidget* parent)
    : QTableView(parent), app_(std::move(app)) {
  setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  horizontalHeader()->setDefaultSectionSize(96);
  verticalHeader()->setDefaultSectionSize(verticalHeader()->minimumSectionSize() + 4);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setContextMenuPolicy(Qt::DefaultContextMenu);
  // The delegate draws the grid lines, leaving out those a long text runs across.
  setShowGrid(false);
  setItemDelegate(new SheetDelegate(this));
}

void SheetView::setSheetModel(SheetModel* model) {
  model_ = model;
  syncing_ = true;
  setModel(model);
  syncing_ = false;
  showApplicationSelection();
}

void SheetView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (!syncing_) pushSelection();
}

void SheetView::pushSelection() {
  if (!model_ || !selectionModel()) return;
  const QItemSelection selection = selectionModel()->selection();
  if (selection.isEmpty()) return;
  // The current cell's area goes first: the application makes the first cell active.
  std::string reference;
  for (const QItemSelectionRange& range : selection) {
    std::string area = model_->reference(range.top(), range.left(), range.bottom(), range.right());
    if (range.contains(currentIndex())) {
      reference = reference.empty() ? area : area + "," + reference;
    } else {
      reference += (reference.empty() ? "" : ",") + area;
    }
  }
  reportingErrors("Workbench Select", [&] { app_->select(reference); });
}

void SheetView::showApplicationSelection() {
  if (!model_ || !selectionModel()) return;
  if (app_->activeWorkbookName() != model_->workbookName() ||
      app_->activeSheetName() != model_->sheetName()) {
    return;
  }
  std::string address;
  ignoringErrors([&] { address = app_->selectionAddress(); });
  const auto areas = parseSelectionAddress(address);
  if (areas.empty()) return;
  QItemSelection selection;
  const int lastRow = model_->rowCount() - 1;
  const int lastColumn = model_->columnCount() - 1;
  for (const workbook::Area& a : areas) {
    const int top = a.top - 1, left = a.left - 1;
    if (top > lastRow || left > lastColumn) continue;
    selection.select(model_->index(top, left), model_->index(std::min(a.bottom - 1, lastRow),
                                                             std::min(a.right - 1, lastColumn)));
  }
  if (selection == selectionModel()->selection()) return;
  syncing_ = true;
  const QModelIndex active = model_->index(areas.front().top - 1, areas.front().left - 1);
  selectionModel()->setCurrentIndex(active, QItemSelectionModel::NoUpdate);
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  // Before the window is shown the viewport has no real size yet, and scrolling then would
  // hide the sheet's top-left corner; showEvent brings the active cell into view instead.
  if (isVisible()) scrollTo(active);
  syncing_ = false;
}

void SheetView::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  if (currentIndex().isValid()) scrollTo(currentIndex());
}

void SheetView::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Delete || event->modifiers() != Qt::NoModifier ||
      state() == EditingState || !model_) {
    QTableView::keyPressEvent(event);
    return;
  }
  reportingErrors("Workbench Delete", [&] { app_->clearSelection(); });
  if (afterCommand) afterCommand();
}

void SheetView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const bool shift = QApplication::keyboardModifiers() & Qt::ShiftModifier;
  int rowStep = 0;
  int columnStep = 0;
  switch (hint) {
    case QAbstractItemDelegate::SubmitModelCache:  // Enter or Return
      rowStep = shift ? -1 : 1;
      break;
    case QAbstractItemDelegate::EditNextItem:  // Tab
      columnStep = 1;
      break;
    case QAbstractItemDelegate::EditPreviousItem:  // Shift+Tab
      columnStep = -1;
      break;
    default:
      break;
  }
  QTableView::closeEditor(editor,
                          rowStep == 0 && columnStep == 0 ? hint : QAbstractItemDelegate::NoHint);
  if ((rowStep == 0 && columnStep == 0) || !model_) return;
  const QModelIndex from = currentIndex();
  const QModelIndex to = model_->index(from.row() + rowStep, from.column() + columnStep);
  if (!to.isValid()) return;
  selectionModel()->setCurrentIndex(to, QItemSelectionModel::ClearAndSelect);
  scrollTo(to);
}

void SheetView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  if (!index.isValid() || !model_) {
    QTableView::mouseDoubleClickEvent(event);
    return;
  }
  bool cancelled = true;
  reportingErrors("Workbench DoubleClick", [&] {
    cancelled = app_->doubleClick(model_->reference(index.row(), index.column()));
  });
  if (afterCommand) afterCommand();
  if (!cancelled) edit(index);
}

void SheetView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  host::BarRef bar;
  ignoringErrors([&] { bar = app_->commandBars().item(std::string("Cell")); });
  if (!bar) return;
  fillMenu(menu, bar->controls(), [this](const host::ControlRef& control) {
    reportingErrors("Workbench RunControl", [&] { app_->runControl(control); });
    if (afterCommand) afterCommand();
  });
  if (menu.isEmpty()) return;
  menu.exec(event->globalPos());
}

}  // namespace kxc::workbench
