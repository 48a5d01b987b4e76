#include "dialogs/frm_cache_formula.h"
#include "dialogs/text_colouring.h"
#include "facade/engine_contract.h"
#include "facade/tm_globals.h"
#include "formula/flow_translation.h"
#include "formula/formula_dialog_fill.h"
#include "formula/resolve_argument.h"
#include "formula/show_formula_value.h"
#include "formula/show_lookup.h"
#include "platform/error_report.h"

namespace kxc {

void FrmCacheFormula::layOutDimensionColumns() {
  controls::ColumnHeaders& columns = c_.lvDimensions->columnHeaders();
  columns.clear();
  columns.add(0, "1a", flowText("@DIMENSION_NAME"), 2400);
  columns.add(0, "2a", flowText("@FILTER"), 2400);
  columns.add(0, "3a", flowText("@VALUE"), 2100);
}

void FrmCacheFormula::refreshDimensionRow(int32_t row) {
  controls::ListItems& items = c_.lvDimensions->listItems();
  if (row < 1 || row > items.count()) return;
  const std::string& argument = gCurrentFormula.Dims(row);
  controls::ListItem item = items.item(row);
  item.setSubItem(1, argument);
  item.setSubItem(2, ResolveArgument(argument));
}

void FrmCacheFormula::refillDimensionGrid() {
  fillDimensionRows(ResolveArgument(gCurrentFormula.Cache));
}

void FrmCacheFormula::lvDimensions_ItemClick(controls::ListItem item) {
  ignoringErrors([&] {
    c_.lblDimensions->setCaption(item.text());
    c_.lblDimensionsVal->setCaption(item.subItem(2));
    c_.txtDimensions->setText(item.subItem(1));
    c_.txtDimensions->setFocus();
    recolour(c_.txtDimensions);
  });
}

void FrmCacheFormula::chooseDimensionMember() {
  int32_t dimension = c_.lvDimensions->selectedItem().index();
  if (LookupDimension(dimension) == -1) return;
  c_.txtDimensions->setFocus();
  // LookupDimension stored the chosen members as the dimension's argument; the editor and the
  // row show them from there.
  c_.txtDimensions->setText(gCurrentFormula.Dims(dimension));
  refreshDimensionRow(dimension);
  ShowFormulaValue();
}

void FrmCacheFormula::cmdDimension_Click() {
  reportingErrors("Cmd Dimension Click", [&] { chooseDimensionMember(); });
}

void FrmCacheFormula::txtDimensions_Change() {
  if (resetting_) return;
  int32_t row = 0;
  if (!ignoringErrors([&] { row = c_.lvDimensions->selectedItem().index(); })) return;
  reportingErrors("Txt Dimensions OnChange", [&] {
    CacheFormula& f = gCurrentFormula;
    const int32_t cacheDimensions =
        cacheEngine().DimensionCount(byVal(ResolveArgument(f.Cache))).toInt32();
    if (cacheDimensions > f.DimCount) {
      f.DimCount = cacheDimensions;
      f.redimDimsPreserve(cacheDimensions);
    }
    const std::string text = c_.txtDimensions->text();
    const std::string value = ResolveArgument(text);
    controls::ListItem item = c_.lvDimensions->listItems().item(row);
    item.setSubItem(1, text);
    item.setSubItem(2, value);
    c_.lblDimensionsVal->setCaption(value);
    f.Dims(row) = text;
    refreshDimensionRow(row);
    ShowFormulaValue();
    recolour(c_.txtDimensions);
  });
}

}  // namespace kxc
