#include "engine/embedded/aggregation.h"

#include <algorithm>
#include <limits>

namespace kxc::engine {

namespace detail {

MatchPlan planMatch(const LoadedCache& cache, const std::vector<MemberFilter>& filters) {
  MatchPlan plan;
  size_t smallest = std::numeric_limits<size_t>::max();
  for (size_t d = 0; d < filters.size(); ++d) {
    if (filters[d].all) continue;
    size_t rows = 0;
    for (int32_t m : filters[d].members) rows += cache.postings(static_cast<int>(d), m).size();
    if (rows < smallest) {
      smallest = rows;
      plan.driver = static_cast<int>(d);
    }
  }
  if (plan.driver < 0 || smallest == 0) return plan;
  for (size_t d = 0; d < filters.size(); ++d) {
    if (filters[d].all || static_cast<int>(d) == plan.driver) continue;
    Probe p;
    p.column = cache.columns().members[d].raw();
    p.width = cache.columns().members[d].width();
    p.allowed.assign(cache.memberCount(static_cast<int>(d)), 0);
    for (int32_t m : filters[d].members) p.allowed[m] = 1;
    p.share =
        static_cast<double>(filters[d].members.size()) / static_cast<double>(p.allowed.size());
    plan.probes.push_back(std::move(p));
  }
  // Probe the most selective dimension first so most rows fail at the first test.
  std::sort(plan.probes.begin(), plan.probes.end(),
            [](const Probe& a, const Probe& b) { return a.share < b.share; });
  return plan;
}

}  // namespace detail

Accumulator aggregate(const LoadedCache& cache, int measure,
                      const std::vector<MemberFilter>& filters) {
  bool filtered = std::any_of(filters.begin(), filters.end(), [](auto& f) { return !f.all; });
  if (!filtered) return cache.total(measure);
  Accumulator acc;
  const double* values = cache.columns().values[measure].data();
  forEachMatchingRow(cache, filters, [&](RowId r) { acc.add(values[r]); });
  return acc;
}

std::vector<RowId> matchingRows(const LoadedCache& cache,
                                const std::vector<MemberFilter>& filters) {
  std::vector<RowId> rows;
  forEachMatchingRow(cache, filters, [&](RowId r) { rows.push_back(r); });
  std::sort(rows.begin(), rows.end());
  return rows;
}

std::vector<RowId> unionOfMatches(const LoadedCache& cache,
                                  std::span<const std::vector<MemberFilter>> criteria) {
  std::vector<uint8_t> hit(cache.rowCount(), 0);
  for (const auto& filters : criteria) {
    forEachMatchingRow(cache, filters, [&](RowId r) { hit[r] = 1; });
  }
  std::vector<RowId> rows;
  for (RowId r = 0; r < hit.size(); ++r) {
    if (hit[r]) rows.push_back(r);
  }
  return rows;
}

}  // namespace kxc::engine
