#include "flows/formula_builder.h"

#include <memory>

#include "dialogs/text_colouring.h"
#include "flows/formula_dialog_fill.h"
#include "flows/show_formula_value.h"
#include "flows/show_lookup.h"
#include "flows/tm_drilldown.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/tm_win_reg.h"
#include "state/add_in_context.h"
#include "state/engine_contract.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

void cmdCache_Click(FrmCacheFormula& dialog) {
  reportingErrors("clsBvCubeQueryUI Initialise", [&] {
    CacheFormula& f = gCurrentFormula;
    std::string kind = "Cache";
    const int32_t chosen = ShowLookup(kind, f.Cache, Variant(f.CacheIndex)).index.toInt32();
    if (chosen == 0) return;
    if (chosen != -1) {
      // All three tests are made, the engine's name included, as the choice is judged.
      const bool emptyBox = dialog.txtCache().text().empty();
      const bool otherIndex = f.CacheIndex != chosen;
      int32_t index = chosen;
      const bool otherName =
          cacheEngine().cachename(byRef(index)).toText() != dialog.txtCache().text();
      if (emptyBox || otherIndex || otherName) {
        f.clear();
        index = chosen;
        SelectCache(index);
        EnableCacheControls(true);
        ShowFormulaValue();
        RememberChoice("CacheName", f.Cache);
      }
    }
    recolour(&dialog.txtCache());
  });
}

void cmdMeasureIndex_Click(FrmCacheFormula& dialog) {
  reportingErrors("frmCacheFormula CmdMeasureIndex", [&] {
    CacheFormula& f = gCurrentFormula;
    std::string kind = "Measure";
    std::string cache = ResolveArgument(f.Cache);
    const int32_t chosen = ShowLookup(kind, cache, Variant(f.MeasureIndex)).index.toInt32();
    if (chosen == -1) return;
    f.MeasureIndex = chosen;
    f.Measure = std::to_string(chosen);
    dialog.txtMeasureIndex().setFocus();
    dialog.txtMeasureIndex().setText(f.Measure);
    dialog.lblMeasureIndexVal().setCaption(
        cacheEngine()
            .MeasureCaption(byVal(ResolveArgument(f.Cache)), byRef(f.MeasureIndex))
            .toText());
    ShowFormulaValue();
    RememberChoice("MeasureIndex", f.Measure);
  });
}

void chooseDimensionMember(FrmCacheFormula& dialog) {
  int32_t dimension = dialog.lvDimensions().selectedItem().index();
  if (LookupDimension(dimension) == -1) return;
  dialog.txtDimensions().setFocus();
  // LookupDimension stored the chosen members as the dimension's argument; the editor and the
  // row show them from there.
  dialog.txtDimensions().setText(gCurrentFormula.Dims(dimension));
  dialog.refreshDimensionRow(dimension);
  ShowFormulaValue();
}

void txtDimensions_Change(FrmCacheFormula& dialog) {
  if (dialog.resetting()) return;
  int32_t row = 0;
  if (!ignoringErrors([&] { row = dialog.lvDimensions().selectedItem().index(); })) return;
  reportingErrors("Txt Dimensions OnChange", [&] {
    CacheFormula& f = gCurrentFormula;
    widenToCacheDimensions(f);
    const std::string text = dialog.txtDimensions().text();
    const std::string value = ResolveArgument(text);
    controls::ListItem item = dialog.lvDimensions().listItems().item(row);
    item.setSubItem(1, text);
    item.setSubItem(2, value);
    dialog.lblDimensionsVal().setCaption(value);
    f.Dims(row) = text;
    dialog.refreshDimensionRow(row);
    ShowFormulaValue();
    recolour(&dialog.txtDimensions());
  });
}

void wireFlows(FrmCacheFormula& dialog) {
  dialog.cmdCache().onClick = [&dialog] { cmdCache_Click(dialog); };
  dialog.cmdMeasureIndex().onClick = [&dialog] { cmdMeasureIndex_Click(dialog); };
  dialog.lvDimensions().onDblClick = [&dialog] {
    ignoringErrors([&] { chooseDimensionMember(dialog); });
  };
  dialog.cmdDimension().onClick = [&dialog] {
    reportingErrors("Cmd Dimension Click", [&] { chooseDimensionMember(dialog); });
  };
  dialog.txtDimensions().onChange = [&dialog] { txtDimensions_Change(dialog); };
  dialog.FilemnuCachMan().onClick = [&dialog] { PopUpMenuClick(dialog, "Manager"); };
  dialog.FilemnuCachTransDrill().onClick = [&dialog] { PopUpMenuClick(dialog, "TransDrill"); };
}

}  // namespace

FrmCacheFormula& frmCacheFormula() {
  return *AddInContext::current().single<FrmCacheFormula>([] {
    auto dialog = std::make_shared<FrmCacheFormula>();
    wireFlows(*dialog);
    return dialog;
  });
}

void PopUpMenuClick(FrmCacheFormula& dialog, const std::string& command) {
  reportingErrors("PopUpMenuClick - FrmCacheFormula", [&] {
    if (command == "Manager") {
      cacheManager().Window(byRef(gCacheEngine));
    } else if (command == "TransDrill") {
      dialog.form().setMousePointer(controls::kPointerHourglass);
      DrilldownClear();
      DrilldownAddCriteria();
      ExecutePopulateTrans();
      dialog.form().setMousePointer(controls::kPointerDefault);
    }
  });
}

}  // namespace kxc
