// The transaction drill-down: pending criteria rows, the union of the transactions they match,
// and filling a grid object with those transactions.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "engine/filter_parser.h"
#include "engine/loaded_cache.h"
#include "platform/dispatch.h"

namespace kxc::engine {

// One criteria row as the caller sent it: the cache argument and its dimension filters. The
// filters are read when the drill-down runs, so a bad one is reported then.
struct DrilldownCriteria {
  Variant cache;
  std::vector<Variant> filters;
};

// Rows matching any of the criteria, each once, in transaction order.
std::vector<RowId> unionOfMatches(const LoadedCache& cache,
                                  std::span<const std::vector<MemberFilter>> criteria);

// Rows per SetBlock call: big enough to keep calls few, small enough to keep each text modest.
inline constexpr size_t kGridChunkRows = 4096;

// Empties `grid` and sets its size to no rows and no columns.
void clearGrid(const ObjectRef& grid);

// Fills `grid` (a dispatch object with ClearAll, MaxCols, MaxRows, SetBlock) with the rows:
// column headers in row 0 (dimension captions, measure captions, "Date", "Reference"), then
// one row per transaction: member values, measure values in their display format (blank for
// none), the date and the reference. Tabs and line breaks inside texts become blanks. Errors
// of the grid's members propagate.
void fillGrid(const LoadedCache& cache, std::span<const RowId> rows, const ObjectRef& grid);

}  // namespace kxc::engine
