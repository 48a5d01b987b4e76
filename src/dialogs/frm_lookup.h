// frmLookup: the modal dialog in which the user picks one or several rows of a list (members
// of a dimension, caches, measures), built on the control model.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/controls/command_button.h"
#include "platform/controls/form.h"
#include "platform/controls/list_view.h"
#include "platform/controls/menu.h"
#include "platform/variant.h"
#include "state/translation.h"

namespace kxc {

// Each use: load the form, fill lvList, SetLvHeaders, ListVSingleMode (and the list's own
// multiple-selection switch), MultipleSelectSet, show modally, then read SelectedIndex and
// ChosenSelection. The dialog also leaves the selection text in the lookup selection it was
// given (gLookupSelection), the side record other parts read.
//
// Events: load translates the form and the popup captions and resets SelectedIndex to 0 and
// ListVSingleMode to false; activate focuses lvList; cmdOk and a double-click on lvList store
// the selection text, store the focused row's index in SelectedIndex and hide the form (with
// no focused row SelectedIndex stays as it was); cmdCancel sets SelectedIndex to -1 and hides;
// releasing the right mouse button over lvList shows popMenu (CopyRow, CopyColumn, a
// separator, SelectAll). Handlers ignore their errors statement by statement.
//
// `translator` and `lookupSelection` are not owned and must outlive the dialog. User-interface
// thread only.
class FrmLookup {
 public:
  FrmLookup(FormTranslator& translator, std::string& lookupSelection);
  FrmLookup(const FrmLookup&) = delete;
  FrmLookup& operator=(const FrmLookup&) = delete;

  controls::Form& form() { return form_; }
  controls::ListView& lvList() { return lvList_; }
  controls::CommandButton& cmdOk() { return cmdOk_; }
  controls::CommandButton& cmdCancel() { return cmdCancel_; }
  controls::Menu& popMenu() { return popMenu_; }

  // The row chosen by OK or double-click (1-based), -1 after Cancel, 0 after load.
  int32_t SelectedIndex() const { return selectedIndex_; }
  // The selection text stored by the last OK or double-click; after a load without one, the
  // lookup selection as it stood when the form loaded.
  const std::string& ChosenSelection() const { return chosenSelection_; }

  // Converts the text by the text-to-boolean rule (true and false in any letter case, or a
  // number, non-zero being true) and stores it; any other text raises 13 "Type mismatch".
  // True makes every selected row a piece of its own: no ranges, "<ALL>" kept.
  void ListVSingleMode(std::string_view text);
  bool ListVSingleMode() const { return singleMode_; }

  // Clears lvList's column headers and adds the layout of `mode` (texts translated):
  // 1 name and an empty column, 2 index and name, 3 name and description; widths 2000 and
  // 3000 twips, left-aligned; other modes leave no columns.
  void SetLvHeaders(int32_t mode);

  // Selects the rows of lvList that the selection text names (errors are reported as
  // "FrmLookup MultipleSelectSet"). The second argument is not used. Always returns 0.
  int16_t MultipleSelectSet(const std::string& text, const Variant& unused = {});

 private:
  std::string MultipleSelectGet(std::string& first, std::string& last, bool& singleMode,
                                bool& isRange);
  void RunListCommand(std::string_view command);
  void load();
  void confirm();
  void cancel();

  FormTranslator& translator_;
  std::string& lookupSelection_;
  std::string chosenSelection_;
  controls::Form form_{"frmLookup"};
  controls::ListView& lvList_;
  controls::CommandButton& cmdOk_;
  controls::CommandButton& cmdCancel_;
  controls::Menu& popMenu_;
  controls::Menu& copyRow_;
  controls::Menu& copyColumn_;
  controls::Menu& separator_;
  controls::Menu& selectAll_;
  int32_t selectedIndex_ = 0;
  bool singleMode_ = false;
};

}  // namespace kxc
