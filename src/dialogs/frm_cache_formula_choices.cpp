#include "dialogs/frm_cache_formula.h"
#include "dialogs/text_colouring.h"
#include "facade/engine_contract.h"
#include "facade/tm_globals.h"
#include "formula/formula_dialog_fill.h"
#include "formula/resolve_argument.h"
#include "formula/show_formula_value.h"
#include "formula/show_lookup.h"
#include "platform/error_report.h"
#include "platform/tm_win_reg.h"

namespace kxc {

void FrmCacheFormula::cmdCache_Click() {
  reportingErrors("clsBvCubeQueryUI Initialise", [&] {
    CacheFormula& f = gCurrentFormula;
    std::string kind = "Cache";
    const int32_t chosen = ShowLookup(kind, f.Cache, Variant(f.CacheIndex)).toInt32();
    if (chosen == 0) return;
    if (chosen != -1) {
      // All three tests are made, the engine's name included, as the choice is judged.
      const bool emptyBox = c_.txtCache->text().empty();
      const bool otherIndex = f.CacheIndex != chosen;
      int32_t index = chosen;
      const bool otherName = cacheEngine().cachename(byRef(index)).toText() != c_.txtCache->text();
      if (emptyBox || otherIndex || otherName) {
        f.clear();
        index = chosen;
        SelectCache(index);
        EnableCacheControls(true);
        ShowFormulaValue();
        RememberChoice("CacheName", f.Cache);
      }
    }
    recolour(c_.txtCache);
  });
}

void FrmCacheFormula::cmdMeasureIndex_Click() {
  reportingErrors("frmCacheFormula CmdMeasureIndex", [&] {
    CacheFormula& f = gCurrentFormula;
    std::string kind = "Measure";
    std::string cache = ResolveArgument(f.Cache);
    const int32_t chosen = ShowLookup(kind, cache, Variant(f.MeasureIndex)).toInt32();
    if (chosen == -1) return;
    f.MeasureIndex = chosen;
    f.Measure = std::to_string(chosen);
    c_.txtMeasureIndex->setFocus();
    c_.txtMeasureIndex->setText(f.Measure);
    c_.lblMeasureIndexVal->setCaption(
        cacheEngine()
            .MeasureCaption(byVal(ResolveArgument(f.Cache)), byRef(f.MeasureIndex))
            .toText());
    ShowFormulaValue();
    RememberChoice("MeasureIndex", f.Measure);
  });
}

void FrmCacheFormula::txtCache_Change() {
  if (resetting_) return;
  reportingErrors("Txt Cache OnChange", [&] {
    c_.lblCacheVal->setCaption(ResolveArgument(c_.txtCache->text()));
    recolour(c_.txtCache);
  });
}

void FrmCacheFormula::txtMeasureIndex_Change() {
  if (resetting_) return;
  reportingErrors("Txt Measure OnChange", [&] {
    const std::string& text = c_.txtMeasureIndex->text();
    if (!text.empty()) {
      const std::string value = ResolveArgument(text);
      double number = 0;
      if (!value.empty() && parseNumber(value, number)) {
        c_.lblMeasureIndexVal->setCaption(
            cacheEngine()
                .MeasureCaption(byVal(ResolveArgument(gCurrentFormula.Cache)),
                                byVal(Variant(value)))
                .toText());
      } else {
        c_.lblMeasureIndexVal->setCaption("");
      }
    }
    recolour(c_.txtMeasureIndex);
  });
}

}  // namespace kxc
