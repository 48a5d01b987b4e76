#include "facade/cache_ui.h"

#include "events/cache_write_back.h"
#include "flows/show_formula_edit.h"
#include "flows/tm_drilldown.h"
#include "grammar/cache_formula_pattern.h"
#include "grammar/parse_formula.h"
#include "grammar/resolve_argument.h"
#include "language/language.h"
#include "platform/error_report.h"
#include "platform/object_factory.h"
#include "platform/runtime_error.h"
#include "state/engine_contract.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

const host::ApplicationRef& hostApplication() {
  const host::ApplicationRef& app = gExcelSink->oExcel();
  if (!app) throw RuntimeError(err::kObjectNotSet);
  return app;
}

// Parses a qualifying cell's formula into gCurrentFormula and makes sure the engine has its
// cache loaded. The drill-down goes on whatever the engine answers.
void takeCurrentFormula(const std::string& formula) {
  gCurrentFormula = ParseFormula(formula);
  cacheEngine().EnsureCacheLoad(byVal(ResolveArgument(gCurrentFormula.Cache)));
}

void drillSingleCell(const host::ApplicationRef& app) {
  std::string formula = app->activeCell()->formula();
  if (formula.empty()) return;
  if (!isCacheFormula(formula) && !isNegatedCacheFormula(formula)) return;
  takeCurrentFormula(formula);
  DrilldownClear();
  DrilldownAddCriteria();
  ExecutePopulateTrans();
}

// Only the plain form counts here; a negated cache formula among several cells is skipped.
void drillSeveralCells(const host::ApplicationRef& app) {
  DrilldownClear();
  for (const host::RangeRef& cell : app->selection()->cellList()) {
    std::string formula = cell->formula();
    if (formula.empty() || !isCacheFormula(formula)) continue;
    gCurrentFormula.clear();
    takeCurrentFormula(formula);
    DrilldownAddCriteria();
  }
  ExecutePopulateTrans();
}

}  // namespace

Variant CacheUI::Initialise(host::ApplicationRef& xExcel, ObjectRef& mCache) {
  reportingErrors("clsBvCubeQueryUI Initialise", [&] {
    gCacheEngine = mCache;
    gCacheManager = createObject(kCacheManagerProgId);
    host::ApplicationRef application = xExcel;
    gExcelSink->Initialise(application);
    xExcel = application;
  });
  return Variant();
}

std::string CacheUI::ShowFormulaBuilder(std::string& CellFormula) {
  reportingErrors("clsBvCubeQueryUI ShowFormulaBuilder", [&] {
    gActiveCell = hostApplication()->activeCell();
    ShowFormulaEdit(CellFormula);
  });
  return "";
}

void CacheUI::CacheManager() {
  ignoringErrors([] {
    if (!gCacheManager) gCacheManager = createObject(kCacheManagerProgId);
    cacheManager().Window(byRef(gCacheEngine));
  });
}

void CacheUI::Shutdown() {
  ignoringErrors([] { cacheManager().Shutdown(); });
  gCacheManager.reset();
}

std::string CacheUI::ShowLookup() { return ""; }

void CacheUI::StartDrillDownTrans() {
  reportingErrors("CacheUI - StartDrillDownTrans", [] {
    gCurrentFormula.clear();
    const host::ApplicationRef& app = hostApplication();
    int32_t selected = app->rangeSelection()->count();
    if (selected == 1) {
      drillSingleCell(app);
    } else if (selected > 1) {
      drillSeveralCells(app);
    }
  });
}

void CacheUI::ChangeCurrentLang(int16_t& LangId) {
  ignoringErrors([&] { gLanguage->CurrentLanguage(LangId); });
}

void CacheUI::ToggleWriteBack() {
  ignoringErrors([] {
    if (gWriteBack) {
      gWriteBack.reset();
      return;
    }
    gWriteBack = std::make_shared<CacheWriteBack>();
    host::ApplicationRef application = gExcelSink->oExcel();
    gWriteBack->Initialise(application);
  });
}

}  // namespace kxc
