// The widget of a list view: a report-style QTreeView over a ListViewModel, with the selection
// kept the same in Qt's selection model and in the control model, and the user's clicks, keys
// and mouse buttons raised as the list's events.
#pragma once

#include <QTreeView>

#include "platform/controls/list_view.h"
#include "platform/qt/list_view_model.h"
#include "platform/qt/queued_once.h"

namespace kxc::qt {

// Selection, both ways:
//  - What Qt selects (keyboard, dragging, Ctrl+A, right button) is written into the list
//    range by range, so selecting a block costs time in its rows, not more.
//  - What the logic selects reaches Qt through syncSelection(), which rebuilds Qt's selection
//    from the list as runs of rows (one range per run). Selection notices only mark the view
//    out of date; the rebuild runs once from the event loop, or at once after a click.
// A left click on a row calls ListView::clickItem with the shift flags (the model decides
// the selection and raises ItemClick and Click); a double click raises DblClick; every button
// raises MouseDown and MouseUp (x and y in twips); keys go to ListView::keyDown first and are
// dropped when the handler zeroes the code. The list must outlive the widget.
class ListViewWidget : public QTreeView {
 public:
  explicit ListViewWidget(controls::ListView& list, QWidget* parent = nullptr);

  ListViewModel& listModel() { return model_; }
  controls::ListView& list() const { return list_; }

  // Notices from the form's view.
  void listChanged(const controls::ListChange& change);
  void columnsChanged();      // headers: count, texts, widths
  void multiSelectChanged();  // single or extended selection

  // Makes Qt's selection and current row those of the list, now.
  void syncSelection();
  bool selectionOutOfDate() const { return selectionDirty_; }

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void selectionFromQt(const QItemSelection& selected, const QItemSelection& deselected);
  void currentFromQt(const QModelIndex& current);
  void markSelectionDirty();
  void raiseMouse(QMouseEvent* event, bool down);

  controls::ListView& list_;
  ListViewModel model_;
  bool ignoreQtSelection_ = false;  // Qt's selection is being set from the list
  bool writingList_ = false;        // the list is being set from Qt's selection
  bool selectionDirty_ = false;
  QueuedOnce syncLater_{this, [this] {
                          if (selectionDirty_) syncSelection();
                        }};
};

}  // namespace kxc::qt
