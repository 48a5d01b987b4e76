#include "dialogs/tm_drilldown.h"

#include <string>

#include "dialogs/transactions_view.h"
#include "facade/engine_contract.h"
#include "facade/tm_globals.h"
#include "formula/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"

namespace kxc {

namespace {

constexpr const char* kAllMembers = "<ALL>";

// The filter for dimension i: a missing argument (error 9) counts as unfiltered.
std::string filterFor(int i) {
  try {
    std::string resolved = ResolveArgument(gCurrentFormula.Dims(i));
    return resolved.empty() ? kAllMembers : resolved;
  } catch (const RuntimeError& e) {
    if (e.number() == err::kSubscript) return kAllMembers;
    throw;
  }
}

}  // namespace

void DrilldownClear() { cacheEngine().DrilldownClear(); }

void DrilldownAddCriteria() {
  int16_t dimensions = 0;
  ignoringErrors([&] {
    dimensions =
        cacheEngine().DimensionCount(byVal(ResolveArgument(gCurrentFormula.Cache))).toInt16();
  });
  DimensionFilters filters;
  for (int i = 1; i <= dimensions && i <= kMaxDimensions; ++i) {
    ignoringErrors([&] { filters[static_cast<std::size_t>(i - 1)] = Variant(filterFor(i)); });
  }
  ignoringErrors([&] {
    cacheEngine().DrilldownAddCriteria(byVal(ResolveArgument(gCurrentFormula.Cache)), filters);
  });
}

void ExecutePopulateTrans() {
  std::string cache = ResolveArgument(gCurrentFormula.Cache);
  std::shared_ptr<TransactionsView> view = transactionsView();
  cacheEngine().ExecutePopulateTrans(byVal(cache), byVal(view->vasTrans()));
  view->sizeColumns();
  view->show();
}

}  // namespace kxc
