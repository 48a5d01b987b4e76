// Filling the formula builder from the current formula: the cache chosen for a new formula,
// the cache-dependent controls, the dimension rows.
#pragma once

#include <cstdint>
#include <string>

#include "state/cache_formula.h"

namespace kxc {

// The cache of a new formula. With no "CacheName" remembered: the engine's first cache, or,
// when the engine has none, the cache-dependent controls disabled. With a remembered name:
// that cache when the engine loads it, else the controls disabled. With an empty remembered
// name: the first cache, without asking how many there are. A chosen cache is selected
// (SelectCache), the dialog filled and the controls enabled. Errors end it silently.
void SelectDefaultCache();

// Enabled of frDim, cmdMeasureIndex and txtMeasureIndex, in this order. Raises what the
// controls raise.
void EnableCacheControls(bool enabled);

// Fills the builder from gCurrentFormula: the cache and its resolved value, the measure (the
// remembered "MeasureIndex" when the formula has none: MeasureIndex its rounded leading number,
// Measure that number written without rounding) with its caption (none while there is no
// measure), and one grid row per
// dimension argument, then an empty row per further dimension of the cache, at most 20 rows.
// `cacheValue` is not read. Always returns 0; raises what the engine or host raises.
int16_t FillFormulaDialog(const std::string& cacheValue = {});

// Makes the cache at `index` the current one: CacheIndex, Cache (the engine's cachename of the
// index, by reference), DimCount and an empty dimension array; Measure and MeasureIndex stay.
// The builder shows the cache, its measure and dimension editors are cleared and the grid gets
// one empty row per dimension (at most 20). Raises what the engine raises.
void SelectCache(int32_t& index);

// Widens `formula`'s DimCount and dimension array (keeping its arguments) to the dimension count
// of its resolved cache when that is larger. Raises what the engine raises.
void widenToCacheDimensions(CacheFormula& formula);

}  // namespace kxc
