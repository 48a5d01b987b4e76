// frmTransactions: the transaction drill-down window, whose grid vasTrans the cache engine
// fills, with copying, select-all and a size rule, built on the control model.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/controls/command_button.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/menu.h"
#include "platform/dispatch.h"
#include "state/translation.h"

namespace kxc {

// Events: load translates the form, then sets the caption from "@TRANS_DRILLDWN" and the popup
// items from "@&COPY" and "@SELECT_ALL&"; resize (not while minimised) snaps a form narrower
// or lower than 4300 twips back to 10050 by 6795, else makes the grid 300 twips narrower and
// 700 twips lower than the form; releasing the right mouse button over the grid shows popMenu
// (Copy, SelectAll); Copy clears the clipboard and copies the grid's selected block; SelectAll
// selects column 1, row 1 to the last column and row; cmdCancel unloads the form. Handlers
// ignore their errors statement by statement.
//
// `translator` is not owned and must outlive the dialog. User-interface thread only.
class FrmTransactions {
 public:
  // Column widths set by sizeColumns, in characters.
  static constexpr double kMinColWidth = 4;
  static constexpr double kMaxColWidth = 50;
  static constexpr int32_t kSizingRows = 100;  // data rows looked at per column

  explicit FrmTransactions(FormTranslator& translator);
  FrmTransactions(const FrmTransactions&) = delete;
  FrmTransactions& operator=(const FrmTransactions&) = delete;

  controls::Form& form() { return form_; }
  controls::Grid& vasTrans() { return vasTrans_; }
  // The grid as the dispatch object the engine fills; it stays usable after the dialog goes.
  ObjectRef vasTransObject();
  controls::CommandButton& cmdCancel() { return cmdCancel_; }
  controls::Menu& popMenu() { return popMenu_; }

  // Sizes columns 1 to MaxCols: each gets the character count of the longest of its header and
  // its first kSizingRows rows, plus 2, within kMinColWidth..kMaxColWidth.
  void sizeColumns();

 private:
  void load();
  void resized();
  void runGridCommand(std::string_view command);

  FormTranslator& translator_;
  controls::Form form_{"frmTransactions"};
  controls::Grid& vasTrans_;
  controls::CommandButton& cmdCancel_;
  controls::Menu& popMenu_;
  controls::Menu& copy_;
  controls::Menu& selectAll_;
};

}  // namespace kxc
