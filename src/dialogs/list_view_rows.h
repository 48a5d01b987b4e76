// The rows of a list view as the selection codec sees them.
#pragma once

#include "dialogs/selection_codec.h"
#include "platform/controls/list_view.h"

namespace kxc {

// Maps the codec's row operations onto a list view's items (by 1-based index). Selecting a row
// follows the list's own rules: without multiple selection it unselects the previous row.
// Holds a reference: the list must outlive it.
class ListViewRows : public SelectionRows {
 public:
  explicit ListViewRows(controls::ListView& list) : items_(list.listItems()) {}
  int32_t count() const override { return items_.count(); }
  std::string_view text(int32_t row) const override { return items_.text(row); }
  bool selected(int32_t row) const override { return items_.selected(row); }
  void setSelected(int32_t row, bool on) override { items_.setSelected(row, on); }

 private:
  controls::ListItems& items_;
};

}  // namespace kxc
