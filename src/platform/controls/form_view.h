// The view-binding seam: the observer through which a toolkit binding learns what changed in a
// form's model, and through which the form asks it to show a popup menu.
//
// How a binding works with the model:
//  - It builds one widget per control of Form::controls() (by typeName()) and reads the current
//    state from the model. It then attaches itself with Form::setView(this).
//  - The model calls the view after every change made by code (the logic or the engine), once
//    the new state is in place; the view re-reads what it needs. A view must not change the
//    model from inside a notice.
//  - User actions go the other way: the binding calls the model's user-action methods
//    (TextBox::setText, CommandButton::click, ListView::clickItem, Grid::mouseUp, Form::resize,
//    Form::userClose, ...), which update the state and raise the control's events. A change
//    the user made also comes back as a notice; a view ignores notices that match what it shows.
//  - Large lists and grids report row-level changes (ListChange, GridChange) so that a
//    model/view adapter can forward them; a view may also coalesce them and reset.
// Notices arrive on the user-interface thread, synchronously. The form does not own its view;
// a binding detaches (setView(nullptr)) before it goes away.
#pragma once

#include <cstdint>

namespace kxc::controls {

class Control;
class ListView;
class Grid;
class Menu;

enum class Property {
  Caption,
  Text,
  Tag,
  Enabled,
  Visible,
  BackColor,
  Font,
  Geometry,      // left, top, width or height (twips)
  Focus,         // the form's active control
  MultiSelect,   // a list view's multiple-selection switch
  Columns,       // a list view's column headers
  MousePointer,  // the form's pointer (0 default, 11 hourglass)
  Owner,         // the form's owner window
  WindowState,   // normal, minimised, maximised
  Loaded,        // the form was loaded or unloaded
};

// A change to a list view's rows. Rows are 1-based and inclusive.
struct ListChange {
  enum class Kind {
    Reset,      // everything may have changed (Clear)
    Inserted,   // rows first..last are new; later rows moved down
    Removed,    // rows first..last went away; later rows moved up
    Row,        // text, key or sub-items of rows first..last changed
    Selection,  // the selection of rows first..last changed
  };
  Kind kind;
  int32_t first = 0;
  int32_t last = 0;
};

// A change to a grid. Columns and rows are the grid's own numbers (row 0 is the header row).
struct GridChange {
  enum class Kind {
    Reset,      // size or every cell changed (ClearAll, MaxCols, MaxRows)
    Cells,      // the cells of the block col1..col2 by row1..row2 changed
    ColWidth,   // the width of column col1 changed
    Selection,  // the selected block changed (or was cleared)
    Current,    // the current cell (Col, Row) changed
  };
  Kind kind;
  int32_t col1 = 0;
  int32_t row1 = 0;
  int32_t col2 = 0;
  int32_t row2 = 0;
};

class FormView {
 public:
  virtual ~FormView() = default;

  // A property of `control` changed; `control` is null when the property is the form's own.
  virtual void propertyChanged(Control* control, Property property) {
    (void)control;
    (void)property;
  }
  virtual void listChanged(ListView& list, const ListChange& change) {
    (void)list;
    (void)change;
  }
  virtual void gridChanged(Grid& grid, const GridChange& change) {
    (void)grid;
    (void)change;
  }
  // Shows `menu`'s items as a popup at the mouse position and returns when it closes. The
  // view calls Menu::click() on the item the user chose, before returning.
  virtual void popupMenu(Menu& menu) { (void)menu; }
};

}  // namespace kxc::controls
