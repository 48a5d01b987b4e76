// Finding the transactions that match a set of dimension filters and aggregating a measure over
// them. The smallest filtered posting list drives the walk; every other filtered dimension is
// probed through its member column, so the work is proportional to the smallest list.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/accumulator.h"
#include "engine/filter_parser.h"
#include "engine/loaded_cache.h"

namespace kxc::engine {

// Calls visit(row) once for every row matching all filters (one per dimension). Rows arrive in
// ascending order within each member of the driving dimension, not overall.
template <typename Visit>
void forEachMatchingRow(const LoadedCache& cache, const std::vector<MemberFilter>& filters,
                        Visit&& visit);

// The accumulated values of `measure` (0-based) over the matching rows; answers from the
// precomputed total when no dimension is filtered.
Accumulator aggregate(const LoadedCache& cache, int measure,
                      const std::vector<MemberFilter>& filters);

// The matching rows in ascending order.
std::vector<RowId> matchingRows(const LoadedCache& cache, const std::vector<MemberFilter>& filters);

// --- implementation ---

namespace detail {

struct Probe {
  const uint8_t* column;  // raw member column of `width` bytes per row
  int width;
  std::vector<uint8_t> allowed;  // indexed by member number
  double share = 1;              // fraction of the members allowed
};

struct MatchPlan {
  int driver = -1;  // dimension whose posting lists are walked; -1 when nothing is filtered
  std::vector<Probe> probes;
};

MatchPlan planMatch(const LoadedCache& cache, const std::vector<MemberFilter>& filters);

}  // namespace detail

template <typename Visit>
void forEachMatchingRow(const LoadedCache& cache, const std::vector<MemberFilter>& filters,
                        Visit&& visit) {
  detail::MatchPlan plan = detail::planMatch(cache, filters);
  if (plan.driver < 0) {
    for (RowId r = 0; r < cache.rowCount(); ++r) visit(r);
    return;
  }
  for (int32_t member : filters[plan.driver].members) {
    for (RowId r : cache.postings(plan.driver, member)) {
      bool ok = true;
      for (const auto& p : plan.probes) {
        if (!p.allowed[MemberColumn::at(p.column, p.width, r)]) {
          ok = false;
          break;
        }
      }
      if (ok) visit(r);
    }
  }
}

}  // namespace kxc::engine
