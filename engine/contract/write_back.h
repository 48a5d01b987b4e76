// Planning a write-back: the adjusting transactions that make a measure's aggregate at some
// coordinates become exactly a typed number.
#pragma once

#include <vector>

#include "engine/contract/cache_backend.h"
#include "engine/contract/filter_parser.h"

namespace kxc::engine {

// The rows to add so that `aggregation` of `measure` (0-based) over the rows matching `filters`
// becomes `target`.
//
// Leaf coordinates (every dimension narrowed to one member) get one row at those members, even
// where no transaction exists yet. Aggregated coordinates spread the change over the member
// combinations that have transactions in the selection: in proportion to their current values
// when those do not add up to zero, evenly otherwise.
//
// Sum: each row holds the cell's difference. Average: each row holds the value that brings
// the cell's average to its share of the target, so the overall average is exactly `target`.
// Count, min and max cannot be set by adding transactions and raise 30006, as does an
// aggregated selection without transactions. Returns no rows when nothing changes.
// The current values come from `cache` (one aggregate for a leaf, the cells otherwise).
std::vector<AdjustingRow> planWriteBack(CacheHandle& cache, int measure, Aggregation aggregation,
                                        const std::vector<MemberFilter>& filters, double target);

}  // namespace kxc::engine
