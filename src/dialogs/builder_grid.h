// The formula builder's dimension grid: its rows and how they are filled from the current
// formula.
#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/list_view.h"

namespace kxc {

// At most this many dimension rows are shown.
inline constexpr int32_t kMaxDimensionRows = 20;

// The grid row key of row `n`: "D" followed by n.
std::string dimensionRowKey(int32_t n);

// Adds a row at `rowNumber` of `list` with `key` and `text`, and its two sub-items. Raises what
// the list raises (35602 for a key in use, 35600 for a row number out of range).
void AddDimensionRow(controls::ListView& list, int32_t rowNumber, const std::string& key,
                     const std::string& text, const std::string& subItem1,
                     const std::string& subItem2);

// The engine's caption of dimension `dimension` of `cache` (the index as a 16-bit value).
std::string dimensionCaption(const std::string& cache, int32_t dimension);

// Refills `grid` from gCurrentFormula: a row per dimension argument (its text and resolved
// value), then an empty row per further dimension of `cache` (the resolved cache name), at
// most 20 rows, keys "D1", "D2", ... Raises what the engine raises.
void fillDimensionRows(controls::ListView& grid, const std::string& cache);

}  // namespace kxc
