// frmCacheFormula: the formula builder dialog on the control model: its controls and menus, its
// two fields, and the behaviour it has on its own: loading, captions, typing, colouring,
// reference toggling, cell capture, confirming and cancelling, help. What its lookup buttons,
// dimension editor and menu commands do runs in the flows (flows/formula_builder.h).
#pragma once

#include <memory>
#include <string>

#include "platform/controls/command_button.h"
#include "platform/controls/form.h"
#include "platform/controls/frame.h"
#include "platform/controls/label.h"
#include "platform/controls/list_view.h"
#include "platform/controls/menu.h"
#include "platform/controls/text_box.h"
#include "platform/host/application.h"
#include "platform/services.h"

namespace kxc {

// The help library object tried first by the Help menu, and the help file opened when it is
// missing (in libraryFolder()).
inline constexpr const char* kHelpLibraryProgId = "TmBvEg10.TamrelLibrary";
inline constexpr const char* kHelpFileName = "mod_KXC.chm";

// The dialog in which the user composes one cache formula. Everything the user chooses lives in
// gCurrentFormula; the dialog itself keeps only Cancelled and the owner it had before the edit
// flow re-parented it. The add-in context has one instance (frmCacheFormula()); the formula edit
// flow loads it, fills it and shows it modeless, and every close path ends in
// WriteCacheFormula.
//
// Controls are built at construction with the names a view lays them out by; their design
// state (empty texts, white boxes, everything enabled, no grid rows) is restored whenever the
// form loads. While loaded, the dialog listens to the host application's selection changes
// (held by gExcelSink) and writes a reference to the clicked cell into its focused text box.
//
// Handlers never raise: they report errors with their location strings ("Txt Cache OnChange",
// "Txt Measure OnChange", "frmCacheFormula CmdOk") or ignore them as each handler's comment
// says. User-interface thread only.
class FrmCacheFormula {
 public:
  FrmCacheFormula();
  ~FrmCacheFormula();
  FrmCacheFormula(const FrmCacheFormula&) = delete;
  FrmCacheFormula& operator=(const FrmCacheFormula&) = delete;

  controls::Form& form() { return form_; }

  // The controls, by the names the dialog logic and the views use.
  controls::Frame& frCache() { return *c_.frCache; }
  controls::Label& lblCache() { return *c_.lblCache; }
  controls::TextBox& txtCache() { return *c_.txtCache; }
  controls::CommandButton& cmdCache() { return *c_.cmdCache; }
  controls::Label& lblCacheVal() { return *c_.lblCacheVal; }
  controls::Label& lblMeasureIndex() { return *c_.lblMeasureIndex; }
  controls::TextBox& txtMeasureIndex() { return *c_.txtMeasureIndex; }
  controls::CommandButton& cmdMeasureIndex() { return *c_.cmdMeasureIndex; }
  controls::Label& lblMeasureIndexVal() { return *c_.lblMeasureIndexVal; }
  controls::Frame& frDim() { return *c_.frDim; }
  controls::Label& lblDimensions() { return *c_.lblDimensions; }
  controls::TextBox& txtDimensions() { return *c_.txtDimensions; }
  controls::CommandButton& cmdDimension() { return *c_.cmdDimension; }
  controls::ListView& lvDimensions() { return *c_.lvDimensions; }
  controls::Label& lblDimensionsVal() { return *c_.lblDimensionsVal; }
  controls::Label& lblResult() { return *c_.lblResult; }
  controls::CommandButton& cmdOk() { return *c_.cmdOk; }
  controls::CommandButton& cmdCancel() { return *c_.cmdCancel; }
  controls::Menu& Filemnu() { return *c_.Filemnu; }
  controls::Menu& FilemnuCachMan() { return *c_.FilemnuCachMan; }
  controls::Menu& FilemnuCachTransDrill() { return *c_.FilemnuCachTransDrill; }
  controls::Menu& fileSepar() { return *c_.fileSepar; }
  controls::Menu& FilemnuExit() { return *c_.FilemnuExit; }
  controls::Menu& Helpmnu() { return *c_.Helpmnu; }
  controls::Menu& AboutmnuHelp() { return *c_.AboutmnuHelp; }

  // True when the dialog was last closed without confirming; false after OK. Keeps its value
  // across unloads (false before the first close).
  bool Cancelled() const { return cancelled_; }
  // The owner the dialog window had before the edit flow made the host window its owner;
  // given back when the form unloads.
  void OriginOwnerHwnd(WindowHandle owner) { originOwner_ = owner; }

  // True while the controls return to their design state; change handlers stay quiet then.
  bool resetting() const { return resetting_; }

  // The dimension grid's row `row` (1-based) shown again from gCurrentFormula: its filter and
  // resolved value. Rows the grid does not have are left alone; raises what the host raises.
  void refreshDimensionRow(int32_t row);
  // The whole grid refilled from gCurrentFormula for its resolved cache.
  void refillDimensionGrid();

 private:
  class SelectionSink;
  struct Controls {
    controls::Frame* frCache;
    controls::Label* lblCache;
    controls::TextBox* txtCache;
    controls::CommandButton* cmdCache;
    controls::Label* lblCacheVal;
    controls::Label* lblMeasureIndex;
    controls::TextBox* txtMeasureIndex;
    controls::CommandButton* cmdMeasureIndex;
    controls::Label* lblMeasureIndexVal;
    controls::Frame* frDim;
    controls::Label* lblDimensions;
    controls::TextBox* txtDimensions;
    controls::CommandButton* cmdDimension;
    controls::ListView* lvDimensions;
    controls::Label* lblDimensionsVal;
    controls::Label* lblResult;
    controls::CommandButton* cmdOk;
    controls::CommandButton* cmdCancel;
    controls::Menu* Filemnu;
    controls::Menu* FilemnuCachMan;
    controls::Menu* FilemnuCachTransDrill;
    controls::Menu* fileSepar;
    controls::Menu* FilemnuExit;
    controls::Menu* Helpmnu;
    controls::Menu* AboutmnuHelp;
  };

  void buildControls();
  void wireEvents();
  void applyDesignState();

  // Life cycle (frm_cache_formula.cpp).
  void Form_Load();
  void Form_QueryUnload(int& cancel, int unloadMode);
  void Form_Unload();
  void cmdOk_Click();
  void cmdCancel_Click();
  void AboutmnuHelp_Click();
  void setCaptions();

  // Typing the cache and the measure (frm_cache_formula_typing.cpp).
  void txtCache_Change();
  void txtMeasureIndex_Change();

  // Dimension grid (frm_cache_formula_dimensions.cpp).
  void lvDimensions_ItemClick(controls::ListItem item);
  void layOutDimensionColumns();

  // Cell capture (frm_cache_formula_capture.cpp).
  void lExcel_SheetSelectionChange(const host::RangeRef& target);

  controls::Form form_;
  Controls c_{};
  bool cancelled_ = false;
  bool resetting_ = false;  // the change handlers stay quiet while the design state returns
  WindowHandle originOwner_ = 0;
  std::shared_ptr<SelectionSink> sink_;
  host::EventHookup lExcel_;
};

}  // namespace kxc
