#include "formula/show_formula_edit.h"

#include "dialogs/frm_cache_formula.h"
#include "facade/engine_contract.h"
#include "facade/tm_globals.h"
#include "formula/formula_dialog_fill.h"
#include "formula/parse_formula.h"
#include "formula/resolve_argument.h"
#include "formula/show_formula_value.h"
#include "host/tm_excel.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {

bool holdsFormula(const std::string& formulaText) {
  return !formulaText.empty() && upperCase(formulaText) != "=BV_KXCSUM()";
}

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
    if (holdsFormula(formulaText)) {
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
