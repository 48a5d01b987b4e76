#include "dialogs/builder_grid.h"
#include "dialogs/frm_cache_formula.h"
#include "dialogs/text_colouring.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "state/tm_globals.h"
#include "state/translation.h"

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
  fillDimensionRows(*c_.lvDimensions, ResolveArgument(gCurrentFormula.Cache));
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

}  // namespace kxc
