// A Qt table model over a list view's column arrays: rows and columns are read straight from
// the control model, and its row changes are forwarded as Qt's insert, remove and reset
// signals.
#pragma once

#include <QAbstractTableModel>

#include "platform/controls/form_view.h"
#include "platform/controls/list_view.h"
#include "platform/qt/queued_once.h"

namespace kxc::qt {

// Row r (0-based) is the list's row r + 1; column 0 is the row's text, column n its sub-item n.
// There is always at least one column. The model keeps the row count it has announced, so it
// stays consistent with its signals although the list changes before it is told:
//  - rows appended at the end are held back and announced together by flush(), which runs
//    from the event loop (queued on the first held-back row) or when the owner calls it;
//    a million rows added one by one cost one insert signal;
//  - removing rows at the end is forwarded as a removal, a changed row as dataChanged;
//  - rows inserted or removed in the middle reset the model: the list has moved its rows
//    before the model hears of it, so no insert or remove signal could describe the rows Qt
//    saw before and after truthfully.
// Reading a row the list no longer has gives an empty value. The list must outlive the
// model. User-interface thread only.
class ListViewModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit ListViewModel(controls::ListView& list, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  controls::ListView& list() const { return list_; }

  // A change of the list's rows (selection changes are the view's business and ignored).
  void rowsChanged(const controls::ListChange& change);
  // The column headers changed (count, texts or alignment).
  void columnsChanged();
  // Announces the rows held back; true when there were any.
  bool flush();
  bool hasPendingRows() const { return pending_ > 0; }

 private:
  int headerCount() const;
  void schedule();

  controls::ListView& list_;
  int rows_ = 0;     // rows announced
  int pending_ = 0;  // rows appended but not yet announced
  int columns_ = 1;
  QueuedOnce flushLater_{this, [this] { flush(); }};
};

}  // namespace kxc::qt
