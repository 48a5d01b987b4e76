#include "platform/qt/list_view_widget.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMetaObject>
#include <QMouseEvent>

#include "platform/qt/guarded_call.h"
#include "platform/qt/key_mapping.h"
#include "platform/qt/screen_units.h"

namespace kxc::qt {

using controls::ListChange;

ListViewWidget::ListViewWidget(controls::ListView& list, QWidget* parent)
    : QTreeView(parent), list_(list), model_(list, this) {
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);  // keeps a million rows as cheap as a hundred
  setAllColumnsShowFocus(true);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  header()->setStretchLastSection(true);
  header()->setSectionsMovable(false);
  setModel(&model_);
  multiSelectChanged();
  columnsChanged();
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ListViewWidget::selectionFromQt);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) { currentFromQt(current); });
  // Rows appended and announced later may carry a selection made before they were announced.
  connect(&model_, &QAbstractItemModel::rowsInserted, this, [this] { markSelectionDirty(); });
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { markSelectionDirty(); });
  syncSelection();
}

void ListViewWidget::listChanged(const ListChange& change) {
  if (change.kind == ListChange::Kind::Selection) {
    if (!writingList_) markSelectionDirty();
    return;
  }
  model_.rowsChanged(change);
  if (change.kind != ListChange::Kind::Row) markSelectionDirty();
}

void ListViewWidget::columnsChanged() {
  model_.columnsChanged();
  const auto& headers = list_.columnHeaders();
  const double dpi = logicalDpi(this);
  for (int32_t i = 1; i <= headers.count(); ++i) {
    header()->resizeSection(i - 1, pixelsFromTwips(headers.item(i).width(), dpi));
  }
}

void ListViewWidget::multiSelectChanged() {
  setSelectionMode(list_.multiSelect() ? QAbstractItemView::ExtendedSelection
                                       : QAbstractItemView::SingleSelection);
  markSelectionDirty();
}

void ListViewWidget::markSelectionDirty() {
  selectionDirty_ = true;
  syncLater_.request();
}

void ListViewWidget::syncSelection() {
  model_.flush();
  selectionDirty_ = false;
  QItemSelectionModel* selection = selectionModel();
  if (!selection) return;
  const auto& items = list_.listItems();
  const int rows = std::min(model_.rowCount(), static_cast<int>(items.count()));
  const int lastColumn = model_.columnCount() - 1;
  QItemSelection wanted;
  if (items.selectedCount() > 0) {
    for (int row = 0; row < rows;) {
      if (!items.selected(row + 1)) {
        ++row;
        continue;
      }
      int end = row;
      while (end + 1 < rows && items.selected(end + 2)) ++end;
      wanted.select(model_.index(row, 0), model_.index(end, lastColumn));
      row = end + 1;
    }
  }
  FlagScope ignoring(ignoreQtSelection_);
  selection->select(wanted, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  const int focus = items.focusIndex() - 1;
  if (focus >= 0 && focus < rows) {
    selection->setCurrentIndex(model_.index(focus, 0), QItemSelectionModel::NoUpdate);
  }
}

void ListViewWidget::selectionFromQt(const QItemSelection& selected,
                                     const QItemSelection& deselected) {
  if (ignoreQtSelection_) return;
  FlagScope writing(writingList_);
  auto& items = list_.listItems();
  guarded(list_, [&] {
    const int rows = items.count();
    for (const QItemSelectionRange& range : deselected) {
      for (int row = range.top(); row <= range.bottom() && row < rows; ++row) {
        items.setSelected(row + 1, false);
      }
    }
    for (const QItemSelectionRange& range : selected) {
      for (int row = range.top(); row <= range.bottom() && row < rows; ++row) {
        items.setSelected(row + 1, true);
      }
    }
    const QModelIndex current = currentIndex();
    if (current.isValid() && current.row() < rows) items.setFocusIndex(current.row() + 1);
  });
}

void ListViewWidget::currentFromQt(const QModelIndex& current) {
  if (ignoreQtSelection_ || !current.isValid()) return;
  auto& items = list_.listItems();
  if (current.row() < items.count()) items.setFocusIndex(current.row() + 1);
}

void ListViewWidget::raiseMouse(QMouseEvent* event, bool down) {
  const double tpp = twipsPerPixel(logicalDpi(this));
  const int button = hostMouseButtons(event->button());
  const int shift = hostShiftFlags(event->modifiers());
  const double x = event->position().x() * tpp;
  const double y = event->position().y() * tpp;
  guarded(list_, [&] {
    if (down) {
      list_.mouseDown(button, shift, x, y);
    } else {
      list_.mouseUp(button, shift, x, y);
    }
  });
}

void ListViewWidget::mousePressEvent(QMouseEvent* event) {
  raiseMouse(event, true);
  if (event->button() != Qt::LeftButton) {
    QTreeView::mousePressEvent(event);
    return;
  }
  const QModelIndex index = indexAt(event->position().toPoint());
  {
    // Qt's press sets its anchor, current row and focus; the selection is the list's.
    FlagScope ignoring(ignoreQtSelection_);
    QTreeView::mousePressEvent(event);
  }
  const int shift = hostShiftFlags(event->modifiers());
  const bool onRow = index.isValid() && index.row() < list_.listItems().count();
  guarded(list_, [&] { list_.clickItem(onRow ? index.row() + 1 : 0, shift); });
  syncSelection();
}

void ListViewWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    FlagScope ignoring(ignoreQtSelection_);
    QTreeView::mouseReleaseEvent(event);
  } else {
    QTreeView::mouseReleaseEvent(event);
  }
  if (event->button() == Qt::LeftButton) syncSelection();
  raiseMouse(event, false);
}

void ListViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  raiseMouse(event, true);
  if (event->button() == Qt::LeftButton) guarded(list_, [&] { list_.doubleClick(); });
}

void ListViewWidget::keyPressEvent(QKeyEvent* event) {
  if (const int code = hostKeyCode(event->key(), event->modifiers())) {
    int left = code;
    guarded(list_, [&] { left = list_.keyDown(code, hostShiftFlags(event->modifiers())); });
    if (left == 0) {
      event->accept();
      return;
    }
  }
  QTreeView::keyPressEvent(event);
}

}  // namespace kxc::qt
