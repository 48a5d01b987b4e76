#include "events/tm_excel_events.h"

#include "events/tm_command_bars.h"
#include "flows/show_formula_edit.h"
#include "flows/show_lookup.h"
#include "grammar/cache_formula_pattern.h"
#include "grammar/parse_formula.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"
#include "state/engine_contract.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

// The add-in workbook whose uninstalling removes the menus; compared case-sensitively.
constexpr const char* kAddInWorkbookName = "Kestra Cache.xla";

std::string withoutDollars(const std::string& address) { return replaceAll(address, "$", ""); }

}  // namespace

// The active cell is looked at rather than the target: they are the same cell for a user's
// double-click, and the formula flows work on the active cell.
void TmExcelEvents::oExcel_SheetBeforeDoubleClick(host::Worksheet&, const host::RangeRef&,
                                                  bool& cancel) {
  reportingErrors("TmExcel Events-SheetBeforeDoubleClick", [&] {
    if (cancel) return;
    const host::ApplicationRef& app = oExcel();
    if (!app) throw RuntimeError(err::kObjectNotSet);
    host::RangeRef active = app->activeCell();
    std::string formula = active->formula();
    if (isCacheFormula(formula)) {
      gActiveCell = active;
      ShowFormulaEdit(formula);
      cancel = true;
      return;
    }
    if (!HasDependents(active)) return;

    const std::string activeAddress = withoutDollars(active->address());
    int32_t position = 0;
    std::string cache;
    for (const host::RangeRef& dependent : active->directDependents()->cellList()) {
      std::string dependentFormula = dependent->formula();
      if (!isCacheFormula(dependentFormula)) continue;
      CacheFormula parsed = ParseFormula(dependentFormula);
      gCurrentFormula = parsed;
      cache = ResolveArgument(parsed.Cache);
      cacheEngine().EnsureCacheLoad(byRef(cache));
      for (int32_t i = 1; i <= parsed.DimCount && position == 0; ++i) {
        if (withoutDollars(GetCellAddress(parsed.Dims(i))) == activeAddress) position = i;
      }
      if (position != 0) break;
    }
    if (position == 0) return;

    std::string kind = "Dim" + std::to_string(position);
    LookupChoice chosen = ShowLookup(kind, cache, active->value());
    if (chosen.index.toDouble() != -1) active->setValue(Variant(chosen.selection));
    cancel = true;
  });
}

void TmExcelEvents::oExcel_WorkbookAddinUninstall(host::Workbook& workbook) {
  ignoringErrors([&] {
    const host::ApplicationRef& app = oExcel();
    if (workbook.name() != kAddInWorkbookName || !app) return;
    host::CommandBars& bars = app->commandBars();
    // Each bar on its own: a missing "Cell" bar must not keep the menu in bar 1.
    ignoringErrors([&] {
      host::BarRef cellBar = bars.item("Cell");
      if (cellBar) DeleteMenu(cellBar);
    });
    ignoringErrors([&] {
      host::BarRef menuBar = bars.item(1);
      if (menuBar) DeleteMenu(menuBar);
    });
  });
}

}  // namespace kxc
