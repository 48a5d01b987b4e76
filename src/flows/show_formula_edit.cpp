#include "flows/show_formula_edit.h"

#include "flows/formula_builder.h"
#include "flows/formula_dialog_fill.h"
#include "flows/show_formula_value.h"
#include "grammar/cache_formula_pattern.h"
#include "grammar/parse_formula.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"
#include "state/engine_contract.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

bool isFailure(const Variant& loaded) {
  double number = 0;
  ignoringErrors([&] { number = loaded.toDouble(); });
  return number == -1;
}

}  // namespace

bool FindWindowByTitle(const std::string& title, WindowHandle& hwnd) {
  hwnd = services().findWindowByTitle(title);
  return hwnd != 0;
}

std::string ShowFormulaEdit(std::string& formulaText) {
  reportingErrors("TmCacheCommon ShowFormulaEdit", [&] {
    FrmCacheFormula& dialog = frmCacheFormula();
    dialog.form().load();
    if (!isEmptyCacheFormula(formulaText)) {
      gCurrentFormula = ParseFormula(formulaText);
      Variant loaded = cacheEngine().EnsureCacheLoad(byVal(ResolveArgument(gCurrentFormula.Cache)));
      if (isFailure(loaded)) {
        gCurrentFormula.clear();
        SelectDefaultCache();
      }
      FillFormulaDialog();
      ShowFormulaValue();
    } else {
      gCurrentFormula.clear();
      SelectDefaultCache();
    }

    const host::ApplicationRef& app = gExcelSink->oExcel();
    if (!app) throw RuntimeError(err::kObjectNotSet);
    WindowHandle hostWindow = 0;
    FindWindowByTitle(app->caption(), hostWindow);
    dialog.OriginOwnerHwnd(dialog.form().setOwner(hostWindow));
    dialog.form().show(0);
  });
  return "";
}

}  // namespace kxc
