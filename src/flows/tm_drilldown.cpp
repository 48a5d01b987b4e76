#include "flows/tm_drilldown.h"

#include <string>

#include "dialogs/transactions_view.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "state/engine_contract.h"
#include "state/tm_globals.h"

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
  TransactionsView& view = transactionsView();
  cacheEngine().ExecutePopulateTrans(byVal(cache), byVal(view.vasTrans()));
  view.sizeColumns();
  view.show();
}

}  // namespace kxc
