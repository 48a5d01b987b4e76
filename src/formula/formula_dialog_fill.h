// Filling the formula builder from the current formula: the cache chosen for a new formula,
// the cache-dependent controls, the dimension rows.
#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/list_view.h"

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

// Adds a row at `rowNumber` of `list` with `key` and `text`, and its two sub-items. Raises what
// the list raises (35602 for a key in use, 35600 for a row number out of range).
void AddDimensionRow(controls::ListView& list, int32_t rowNumber, const std::string& key,
                     const std::string& text, const std::string& subItem1,
                     const std::string& subItem2);

// Refills the builder's dimension grid from gCurrentFormula: a row per dimension argument
// (its text and resolved value), then an empty row per further dimension of `cache` (the
// resolved cache name), at most 20 rows, keys "D1", "D2", ... Raises what the engine raises.
void fillDimensionRows(const std::string& cache);

// The grid row key of row `n`: "D" followed by n.
std::string dimensionRowKey(int32_t n);

// At most this many dimension rows are shown.
inline constexpr int32_t kMaxDimensionRows = 20;

}  // namespace kxc
