#include "flows/formula_dialog_fill.h"

#include "dialogs/builder_grid.h"
#include "flows/formula_builder.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/text_rules.h"
#include "platform/tm_win_reg.h"
#include "state/engine_contract.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

constexpr const char* kRememberedCache = "CacheName";
constexpr const char* kRememberedMeasure = "MeasureIndex";

// The part of selecting a cache that follows naming it: the dimension array and the dialog.
void showSelectedCache() {
  CacheFormula& f = gCurrentFormula;
  f.DimCount = cacheEngine().DimensionCount(byRef(f.Cache)).toInt32();
  // A cache without dimensions has no array to create (an empty one cannot exist).
  if (f.DimCount >= 1) {
    f.redimDims(f.DimCount);
  } else {
    f.eraseDims();
  }

  FrmCacheFormula& dialog = frmCacheFormula();
  dialog.txtCache().setText(f.Cache);
  dialog.lblCacheVal().setCaption(dialog.txtCache().text());
  dialog.txtMeasureIndex().setText("");
  dialog.lblMeasureIndexVal().setCaption("");
  // The grid is emptied before the dimension editor: clearing the editor must not store its
  // old text into a row of the previous cache.
  dialog.lvDimensions().listItems().clear();
  dialog.txtDimensions().setText("");
  dialog.lblDimensions().setCaption("");

  const std::string cache = ResolveArgument(f.Cache);
  int32_t n = 0;
  for (int32_t i = 1; i <= kMaxDimensionRows && i <= f.DimCount; ++i) {
    ++n;
    AddDimensionRow(dialog.lvDimensions(), n, dimensionRowKey(n), dimensionCaption(cache, i), "",
                    "");
  }
}

// The engine's first cache, named by the 16-bit index 1.
void selectFirstCache() {
  gCurrentFormula.CacheIndex = 1;
  gCurrentFormula.Cache = cacheEngine().cachename(byVal(int16_t{1})).toText();
  showSelectedCache();
}

}  // namespace

void EnableCacheControls(bool enabled) {
  FrmCacheFormula& dialog = frmCacheFormula();
  dialog.frDim().setEnabled(enabled);
  dialog.cmdMeasureIndex().setEnabled(enabled);
  dialog.txtMeasureIndex().setEnabled(enabled);
}

void SelectCache(int32_t& index) {
  gCurrentFormula.CacheIndex = index;
  gCurrentFormula.Cache = cacheEngine().cachename(byRef(index)).toText();
  showSelectedCache();
}

int16_t FillFormulaDialog(const std::string&) {
  CacheFormula& f = gCurrentFormula;
  FrmCacheFormula& dialog = frmCacheFormula();
  dialog.txtCache().setText(f.Cache);
  const std::string cache = ResolveArgument(f.Cache);
  dialog.lblCacheVal().setCaption(cache);

  if (f.Measure.empty()) {
    std::string remembered;
    if (GetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, kRememberedMeasure, remembered) ==
            kRegOk &&
        !remembered.empty()) {
      const double number = leadingNumber(remembered);
      f.MeasureIndex = Variant(number).toInt32();
      f.Measure = formatNumber(number);
    }
  }
  dialog.txtMeasureIndex().setText(f.Measure);
  // Without a measure there is no caption to ask for: engines refuse measure 0, and that must
  // not keep a new formula's dialog from being filled.
  dialog.lblMeasureIndexVal().setCaption(
      f.Measure.empty()
          ? std::string()
          : cacheEngine().MeasureCaption(byVal(cache), byRef(f.MeasureIndex)).toText());

  fillDimensionRows(dialog.lvDimensions(), cache);
  return 0;
}

void widenToCacheDimensions(CacheFormula& formula) {
  const int32_t cacheDimensions =
      cacheEngine().DimensionCount(byVal(ResolveArgument(formula.Cache))).toInt32();
  if (cacheDimensions > formula.DimCount) {
    formula.DimCount = cacheDimensions;
    formula.redimDimsPreserve(cacheDimensions);
  }
}

void SelectDefaultCache() {
  ignoringErrors([] {
    std::string name;
    if (GetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, kRememberedCache, name) != kRegOk) {
      if (cacheEngine().CacheCount().toDouble() < 1) {
        EnableCacheControls(false);
        return;
      }
      selectFirstCache();
    } else if (!name.empty()) {
      int32_t index = cacheEngine().EnsureCacheLoad(byRef(name)).toInt32();
      if (index == -1) {
        EnableCacheControls(false);
        return;
      }
      SelectCache(index);
    } else {
      // Unlike a missing name, an empty one does not ask how many caches there are.
      selectFirstCache();
    }
    FillFormulaDialog();
    EnableCacheControls(true);
  });
}

}  // namespace kxc
