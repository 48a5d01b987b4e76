#include "host/tm_excel.h"

#include "facade/engine_contract.h"
#include "facade/tm_globals.h"
#include "formula/cache_formula_pattern.h"
#include "formula/parse_formula.h"
#include "formula/resolve_argument.h"
#include "formula/show_formula_edit.h"
#include "formula/show_lookup.h"
#include "host/tm_command_bars.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc {

// The application holds its sinks weakly and by shared pointer; this small object is that
// sink and passes the two events the add-in listens to on to its owner.
class TmExcel::EventForwarder : public host::ApplicationEvents {
 public:
  explicit EventForwarder(TmExcel& owner) : owner_(owner) {}
  void sheetBeforeDoubleClick(host::Worksheet& sheet, const host::RangeRef& target,
                              bool& cancel) override {
    owner_.oExcel_SheetBeforeDoubleClick(sheet, target, cancel);
  }
  void workbookAddinUninstall(host::Workbook& workbook) override {
    owner_.oExcel_WorkbookAddinUninstall(workbook);
  }

 private:
  TmExcel& owner_;
};

TmExcel::TmExcel() : forwarder_(std::make_shared<EventForwarder>(*this)) {}

TmExcel::~TmExcel() {
  reportingErrors("TmExcel Class-Terminate", [] { gActiveCell.reset(); });
  hookup_.reset();
}

void TmExcel::Initialise(const host::ApplicationRef& pExcel) {
  reportingErrors("TmExcel Initialise", [&] {
    oExcel_ = pExcel;
    if (oExcel_) {
      hookup_.hook(oExcel_, forwarder_);
    } else {
      hookup_.reset();
    }
  });
}

namespace {

// The add-in workbook whose uninstalling removes the menus; compared case-sensitively.
constexpr const char* kAddInWorkbookName = "Kestra Cache.xla";

std::string withoutDollars(const std::string& address) { return replaceAll(address, "$", ""); }

}  // namespace

// The active cell is looked at rather than the target: they are the same cell for a user's
// double-click, and the formula flows work on the active cell.
void TmExcel::oExcel_SheetBeforeDoubleClick(host::Worksheet&, const host::RangeRef&, bool& cancel) {
  reportingErrors("TmExcel Events-SheetBeforeDoubleClick", [&] {
    if (cancel) return;
    if (!oExcel_) throw RuntimeError(err::kObjectNotSet);
    host::RangeRef active = oExcel_->activeCell();
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
    Variant chosen = ShowLookup(kind, cache, active->value());
    if (chosen.toDouble() != -1) active->setValue(Variant(gLookupSelection));
    cancel = true;
  });
}

void TmExcel::oExcel_WorkbookAddinUninstall(host::Workbook& workbook) {
  ignoringErrors([&] {
    if (workbook.name() != kAddInWorkbookName || !oExcel_) return;
    host::CommandBars& bars = oExcel_->commandBars();
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

host::RangeRef TmExcel::resolve(const std::string& reference) const {
  if (!oExcel_) throw RuntimeError(err::kObjectNotSet);
  return oExcel_->range(reference);
}

bool TmExcel::IsCellRef(const std::string& reference) {
  bool found = false;
  ignoringErrors([&] { found = resolve(reference) != nullptr; });
  return found && !IsNameRange(reference);
}

bool TmExcel::IsNameRange(const std::string& reference) { return !GetNameRange(reference).empty(); }

std::string TmExcel::GetNameRange(const std::string& reference) {
  std::string name;
  ignoringErrors([&] {
    host::RangeRef range = resolve(reference);
    if (range) name = range->name();
  });
  return name;
}

std::string TmExcel::GetCellAddress(const std::string& reference) {
  std::string address;
  ignoringErrors([&] {
    host::RangeRef range = resolve(reference);
    if (range) address = range->address();
  });
  return address;
}

bool TmExcel::HasDependents(const host::RangeRef& cell) {
  bool has = false;
  ignoringErrors([&] {
    if (!cell) return;
    host::RangeRef dependents = cell->directDependents();
    if (dependents) {
      dependents->count();
      has = true;
    }
  });
  return has;
}

}  // namespace kxc
