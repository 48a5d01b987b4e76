// Finding the transactions that match a set of dimension filters and aggregating a measure over
// them. The smallest filtered posting list drives the walk; every other filtered dimension is
// probed through its member column, so the work is proportional to the smallest list.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/contract/accumulator.h"
#include "engine/contract/filter_parser.h"
#include "engine/embedded/loaded_cache.h"

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

// Rows matching any of the criteria, each once, in transaction order.
std::vector<RowId> unionOfMatches(const LoadedCache& cache,
                                  std::span<const std::vector<MemberFilter>> criteria);

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

namespace detail {

// Walks the driver's rows; the first probe, which rejects most rows, is tested inline with its
// width fixed at compile time, the others in a loop.
template <int Width, typename Visit>
void walk(const std::vector<RowId>& rows, const MatchPlan& plan, Visit& visit) {
  const Probe& first = plan.probes.front();
  const uint8_t* column = first.column;
  const uint8_t* allowed = first.allowed.data();
  const size_t others = plan.probes.size();
  for (RowId r : rows) {
    if (!allowed[MemberColumn::at(column, Width, r)]) continue;
    bool ok = true;
    for (size_t i = 1; i < others; ++i) {
      const Probe& p = plan.probes[i];
      if (!p.allowed[MemberColumn::at(p.column, p.width, r)]) {
        ok = false;
        break;
      }
    }
    if (ok) visit(r);
  }
}

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
    const std::vector<RowId>& rows = cache.postings(plan.driver, member);
    if (plan.probes.empty()) {
      for (RowId r : rows) visit(r);
      continue;
    }
    switch (plan.probes.front().width) {
      case 1:
        detail::walk<1>(rows, plan, visit);
        break;
      case 2:
        detail::walk<2>(rows, plan, visit);
        break;
      default:
        detail::walk<4>(rows, plan, visit);
        break;
    }
  }
}

}  // namespace kxc::engine
