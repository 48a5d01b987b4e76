// The formula value display: what the formula being built evaluates to, formatted by the engine.
#pragma once

#include <cstdint>
#include <string>

#include "platform/variant.h"
#include "state/engine_contract.h"

namespace kxc {

// Sets the builder's lblResult to the translation of "@FORMULA_VALUE", "  : " and the engine's
// CacheFormatCurrency(CacheIndex, MeasureIndex, value) of gCurrentFormula, where value is
// GetFormulaValue of the resolved cache and measure with one filter per dimension of the cache
// (the resolved argument; "<ALL>" when the argument is empty or missing). The label stays empty
// while the formula has no cache or no measure. Every error is ignored and the next step runs;
// nothing is shown. The result is always Empty.
Variant ShowFormulaValue();

// The engine's CacheGetValueAllAggregationTypes(cache, measure, 16-bit 0, filters 1..20) as a
// double; 0 on any error, without a message. `cache` and `measure` travel by reference.
double GetFormulaValue(std::string& cache, int32_t& measure, DimensionFilters& filters);

}  // namespace kxc
