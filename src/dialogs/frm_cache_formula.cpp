#include "dialogs/frm_cache_formula.h"

#include "dialogs/frm_cache_formula_sink.h"
#include "dialogs/reference_toggle.h"
#include "grammar/write_cache_formula.h"
#include "platform/error_report.h"
#include "platform/object_factory.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"
#include "state/translation.h"

namespace kxc {

namespace {

constexpr const char* kNoCacheMessage = "Invalid value. Please select a valid cache.";
constexpr const char* kNoMeasureMessage = "Invalid value. Please select a valid measure.";

// Sets a caption from a translation key, ignoring failures as the load handler does.
template <class Target>
void translateCaption(Target& target, const char* key, const char* param = nullptr) {
  ignoringErrors([&] {
    std::optional<Variant> substitution;
    if (param) substitution = Variant(param);
    target.setCaption(flowText(key, substitution));
  });
}

}  // namespace

FrmCacheFormula::FrmCacheFormula()
    : form_("frmCacheFormula"), sink_(std::make_shared<SelectionSink>(*this)) {
  buildControls();
  wireEvents();
  applyDesignState();
}

FrmCacheFormula::~FrmCacheFormula() { lExcel_.reset(); }

void FrmCacheFormula::buildControls() {
  using namespace controls;
  form_.setCaption("Cache Formula");
  form_.resize(7560, 6600);

  c_.frCache = &form_.add<Frame>("frCache");
  c_.frCache->setCaption("");
  c_.frCache->move(120, 120, 7215, 1215);
  c_.lblCache = &form_.add<Label>("lblCache");
  c_.lblCache->setCaption("Cache");
  c_.lblCache->setTag("@KES_CACHE");
  c_.lblCache->move(240, 300, 1455, 255);
  c_.txtCache = &form_.add<TextBox>("txtCache");
  c_.txtCache->move(1800, 270, 2415, 315);
  c_.cmdCache = &form_.add<CommandButton>("cmdCache");
  c_.cmdCache->setCaption("...");
  c_.cmdCache->move(4260, 270, 375, 315);
  c_.lblCacheVal = &form_.add<Label>("lblCacheVal");
  c_.lblCacheVal->move(4740, 300, 2475, 255);
  c_.lblMeasureIndex = &form_.add<Label>("lblMeasureIndex");
  c_.lblMeasureIndex->setCaption("Measure Index");
  c_.lblMeasureIndex->setTag("@CUBE_MEASURE_X");
  c_.lblMeasureIndex->move(240, 780, 1455, 255);
  c_.txtMeasureIndex = &form_.add<TextBox>("txtMeasureIndex");
  c_.txtMeasureIndex->move(1800, 750, 2415, 315);
  c_.cmdMeasureIndex = &form_.add<CommandButton>("cmdMeasureIndex");
  c_.cmdMeasureIndex->setCaption("...");
  c_.cmdMeasureIndex->move(4260, 750, 375, 315);
  c_.lblMeasureIndexVal = &form_.add<Label>("lblMeasureIndexVal");
  c_.lblMeasureIndexVal->move(4740, 780, 2475, 255);

  c_.frDim = &form_.add<Frame>("frDim");
  c_.frDim->setCaption("Dimension");
  c_.frDim->move(120, 1440, 7215, 3855);
  c_.lblDimensions = &form_.add<Label>("lblDimensions");
  c_.lblDimensions->move(240, 1740, 1455, 255);
  // Translated like the frame's caption until a grid row names the dimension.
  c_.lblDimensions->setTag("@KCUBE_DIMENS");
  c_.txtDimensions = &form_.add<TextBox>("txtDimensions");
  c_.txtDimensions->move(1800, 1710, 2415, 315);
  c_.cmdDimension = &form_.add<CommandButton>("cmdDimension");
  c_.cmdDimension->setCaption("...");
  c_.cmdDimension->move(4260, 1710, 375, 315);
  c_.lvDimensions = &form_.add<ListView>("lvDimensions");
  c_.lvDimensions->move(240, 2160, 6975, 3015);
  c_.lblDimensionsVal = &form_.add<Label>("lblDimensionsVal");
  c_.lblDimensionsVal->move(4740, 1740, 2475, 255);

  c_.lblResult = &form_.add<Label>("lblResult");
  c_.lblResult->move(120, 5460, 4575, 255);
  c_.cmdOk = &form_.add<CommandButton>("cmdOk");
  c_.cmdOk->setCaption("&OK");
  c_.cmdOk->setTag("@OK&");
  c_.cmdOk->setDefault(true);
  c_.cmdOk->move(4800, 5400, 1215, 375);
  c_.cmdCancel = &form_.add<CommandButton>("cmdCancel");
  c_.cmdCancel->setCaption("&Cancel");
  c_.cmdCancel->setTag("@CANCEL&");
  c_.cmdCancel->setCancel(true);
  c_.cmdCancel->move(6120, 5400, 1215, 375);

  c_.Filemnu = &form_.addMenu("Filemnu", "File");
  c_.FilemnuCachMan = &form_.addMenu("FilemnuCachMan", "Cache Manager", c_.Filemnu);
  c_.FilemnuCachTransDrill =
      &form_.addMenu("FilemnuCachTransDrill", "Cache Transaction Drilldown", c_.Filemnu);
  c_.fileSepar = &form_.addMenu("fileSepar", "-", c_.Filemnu);
  c_.FilemnuExit = &form_.addMenu("FilemnuExit", "Exit", c_.Filemnu);
  c_.Helpmnu = &form_.addMenu("Helpmnu", "Help");
  c_.AboutmnuHelp = &form_.addMenu("AboutmnuHelp", "Cache Formula Help", c_.Helpmnu);
}

void FrmCacheFormula::wireEvents() {
  form_.onLoad = [this] { Form_Load(); };
  form_.onQueryUnload = [this](int& cancel, int mode) { Form_QueryUnload(cancel, mode); };
  form_.onUnload = [this](int&) { Form_Unload(); };

  c_.txtCache->onChange = [this] { txtCache_Change(); };
  c_.txtMeasureIndex->onChange = [this] { txtMeasureIndex_Change(); };
  for (controls::TextBox* box : {c_.txtCache, c_.txtMeasureIndex, c_.txtDimensions}) {
    box->onKeyDown = [box](int& keyCode, int shift) { toggleReference(*box, keyCode, shift); };
  }

  c_.lvDimensions->onItemClick = [this](controls::ListItem item) { lvDimensions_ItemClick(item); };
  c_.lvDimensions->onClick = [this] { ignoringErrors([&] { c_.txtDimensions->setFocus(); }); };

  c_.cmdOk->onClick = [this] { cmdOk_Click(); };
  c_.cmdCancel->onClick = [this] { cmdCancel_Click(); };
  c_.FilemnuExit->onClick = [this] { cmdCancel_Click(); };
  c_.AboutmnuHelp->onClick = [this] { AboutmnuHelp_Click(); };
}

// A form loads with its controls as designed; the handlers stay quiet while they are reset.
void FrmCacheFormula::applyDesignState() {
  resetting_ = true;
  c_.lvDimensions->listItems().clear();
  c_.lvDimensions->columnHeaders().clear();
  for (controls::TextBox* box : {c_.txtCache, c_.txtMeasureIndex, c_.txtDimensions}) {
    box->setText("");
    box->setBackColor(controls::kColorWhite);
  }
  for (controls::Label* label :
       {c_.lblCacheVal, c_.lblMeasureIndexVal, c_.lblDimensionsVal, c_.lblResult}) {
    label->setCaption("");
  }
  c_.lblDimensions->setCaption("Dimensions");
  for (controls::Control* control : form_.controls()) control->setEnabled(true);
  form_.setMousePointer(controls::kPointerDefault);
  resetting_ = false;
}

void FrmCacheFormula::Form_Load() {
  ignoringErrors([&] { applyDesignState(); });
  ignoringErrors([&] { layOutDimensionColumns(); });
  ignoringErrors([&] { lExcel_.hook(gExcelSink->oExcel(), sink_); });
  ignoringErrors([&] { translateWholeForm(form_); });
  setCaptions();
}

void FrmCacheFormula::setCaptions() {
  translateCaption(form_, "@FORMULA%", "@KES_CACHE");
  translateCaption(*c_.lblMeasureIndex, "@CUBE_MEASURE_X");
  translateCaption(*c_.frDim, "@KCUBE_DIMENS");
  translateCaption(*c_.cmdOk, "@OK&");
  translateCaption(*c_.cmdCancel, "@CANCEL&");
  translateCaption(*c_.Filemnu, "@FILE&");
  translateCaption(*c_.FilemnuCachMan, "@MANAGER% &M", "@KXC_CACHE");
  translateCaption(*c_.FilemnuCachTransDrill, "@TRANS_DRILLDWN &D");
  translateCaption(*c_.FilemnuExit, "@EXIT&");
  translateCaption(*c_.Helpmnu, "@HELP&");
  translateCaption(*c_.AboutmnuHelp, "@HELP &H");
}

// The window's close button counts as Cancel. WriteCacheFormula then unloads the form by
// code, so this close itself is held back.
void FrmCacheFormula::Form_QueryUnload(int& cancel, int unloadMode) {
  if (unloadMode != controls::kUnloadByUser) return;
  cancel = 1;
  cmdCancel_Click();
}

void FrmCacheFormula::Form_Unload() {
  ignoringErrors([&] { form_.setOwner(originOwner_); });
  lExcel_.reset();
}

void FrmCacheFormula::cmdOk_Click() {
  reportingErrors("frmCacheFormula CmdOk", [&] {
    if (c_.txtCache->text().empty()) {
      services().messageBox(kNoCacheMessage, mb::kExclamation, "Error");
      c_.txtCache->setFocus();
      return;
    }
    if (c_.txtMeasureIndex->text().empty()) {
      services().messageBox(kNoMeasureMessage, mb::kExclamation, "Error");
      c_.txtMeasureIndex->setFocus();
      return;
    }
    cancelled_ = false;
    gCurrentFormula.Cache = c_.txtCache->text();
    gCurrentFormula.Measure = c_.txtMeasureIndex->text();
    // The grid is shown once more from the formula before the form goes; an engine that does
    // not know the typed cache must not keep the formula from being written.
    ignoringErrors([&] { refillDimensionGrid(); });
    form_.unload();
    WriteCacheFormula(cancelled_);
  });
}

// Cancelling unloads the form before WriteCacheFormula forgets the cell.
void FrmCacheFormula::cmdCancel_Click() {
  cancelled_ = true;
  ignoringErrors([&] { form_.unload(); });
  ignoringErrors([&] { WriteCacheFormula(cancelled_); });
}

void FrmCacheFormula::AboutmnuHelp_Click() {
  const bool shown = ignoringErrors([] {
    ObjectRef help = createObject(kHelpLibraryProgId);
    invoke(help, "Help", {Argument::byValue(Variant("KXC"))});
  });
  if (shown) return;
  ignoringErrors([] { services().openWithDesktop(libraryFolder() + "/" + kHelpFileName); });
}

}  // namespace kxc
