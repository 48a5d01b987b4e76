#include "flows/show_formula_value.h"

#include "flows/formula_builder.h"
#include "grammar/parse_formula.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "state/tm_globals.h"
#include "state/translation.h"

namespace kxc {

namespace {

constexpr const char* kUnfiltered = "<ALL>";

// The filter of dimension `i`: the resolved argument, "<ALL>" when the argument is empty (and
// so is its value) or when the formula has no argument `i` (the subscript error 9).
Variant dimensionFilter(int32_t i) {
  try {
    const std::string& text = gCurrentFormula.Dims(i);
    std::string resolved = ResolveArgument(text);
    if (resolved.empty() && text.empty()) return Variant(kUnfiltered);
    return Variant(resolved);
  } catch (const RuntimeError& e) {
    if (e.number() == err::kSubscript) return Variant(kUnfiltered);
    throw;
  }
}

}  // namespace

double GetFormulaValue(std::string& cache, int32_t& measure, DimensionFilters& filters) {
  double value = 0;
  bool ok = ignoringErrors([&] {
    value = cacheEngine()
                .CacheGetValueAllAggregationTypes(byRef(cache), byRef(measure), filters)
                .toDouble();
  });
  return ok ? value : 0;
}

Variant ShowFormulaValue() {
  controls::Label& result = frmCacheFormula().lblResult();
  ignoringErrors([&] { result.setCaption(""); });
  if (gCurrentFormula.Cache.empty() || gCurrentFormula.Measure.empty()) return Variant();

  int16_t dimensions = 0;
  ignoringErrors([&] {
    dimensions =
        cacheEngine().DimensionCount(byVal(ResolveArgument(gCurrentFormula.Cache))).toInt16();
  });
  DimensionFilters filters;
  for (int32_t i = 1; i <= dimensions; ++i) {
    ignoringErrors([&] {
      Variant filter = dimensionFilter(i);
      if (i <= kMaxDimensionArguments) filters[static_cast<std::size_t>(i - 1)] = filter;
    });
  }

  std::string cacheName = ResolveArgument(gCurrentFormula.Cache);
  std::string measureText = ResolveArgument(gCurrentFormula.Measure);
  std::string prefix;
  ignoringErrors([&] { prefix = flowText("@FORMULA_VALUE") + "  : "; });
  double value = 0;
  ignoringErrors([&] {
    int32_t measure = Variant(measureText).toInt32();
    value = GetFormulaValue(cacheName, measure, filters);
  });
  std::string formatted;
  ignoringErrors([&] {
    formatted = cacheEngine()
                    .CacheFormatCurrency(byRef(gCurrentFormula.CacheIndex),
                                         byRef(gCurrentFormula.MeasureIndex), byVal(value))
                    .toText();
  });
  ignoringErrors([&] { result.setCaption(prefix + formatted); });
  return Variant();
}

}  // namespace kxc
