// A report-style list view: column headers, rows with sub-items, single or multiple selection,
// and the click, double-click, mouse and key events of the list.
#pragma once

#include <functional>

#include "platform/controls/column_headers.h"
#include "platform/controls/control.h"
#include "platform/controls/input_codes.h"
#include "platform/controls/list_items.h"

namespace kxc::controls {

class ListView : public Control {
 public:
  ListView();
  std::string_view typeName() const override { return "ListView"; }

  ColumnHeaders& columnHeaders() { return columns_; }
  const ColumnHeaders& columnHeaders() const { return columns_; }
  ListItems& listItems() { return items_; }
  const ListItems& listItems() const { return items_; }

  // The focused row (the row last selected or clicked); 91 "Object variable or With block
  // variable not set" when there is none.
  ListItem selectedItem();

  bool multiSelect() const { return multiSelect_; }
  // Switching multiple selection off keeps only the focused row selected.
  void setMultiSelect(bool on);

  // User actions, for views and tests. Each updates the state, then raises the events.
  // A click on row `index` with `shift` flags (keys::kShift, keys::kCtrl): plain clicks select
  // only that row; with multiple selection Ctrl toggles the row and Shift selects the rows from
  // the focused row to it. Raises onItemClick, then onClick. Index 0 clicks below the rows:
  // nothing is selected, only onClick is raised.
  void clickItem(int32_t index, int shift = 0);
  void doubleClick();
  void mouseDown(int button, int shift, double x, double y);
  void mouseUp(int button, int shift, double x, double y);
  int keyDown(int keyCode, int shift);  // returns the key code the handler left

  std::function<void(ListItem item)> onItemClick;
  std::function<void()> onClick;
  std::function<void()> onDblClick;
  std::function<void(int button, int shift, double x, double y)> onMouseDown;
  std::function<void(int button, int shift, double x, double y)> onMouseUp;
  std::function<void(int& keyCode, int shift)> onKeyDown;

 private:
  friend class ListItems;
  friend class ColumnHeader;
  friend class ColumnHeaders;
  void notifyRows(ListChange change);
  void notifyColumns() { notify(Property::Columns); }

  ColumnHeaders columns_;
  ListItems items_;
  bool multiSelect_ = false;
};

}  // namespace kxc::controls
