#include "engine/contract/write_back.h"

#include <algorithm>
#include <cmath>

#include "engine/contract/engine_errors.h"

namespace kxc::engine {

namespace {

bool isLeaf(const CacheModel& cache, const std::vector<MemberFilter>& filters,
            std::vector<int32_t>& members) {
  members.assign(cache.dimensionCount(), 0);
  for (int d = 0; d < cache.dimensionCount(); ++d) {
    if (!filters[d].all && filters[d].members.size() == 1) {
      members[d] = filters[d].members[0];
    } else if (filters[d].all && cache.memberCount(d) == 1) {
      members[d] = 0;
    } else {
      return false;
    }
  }
  return true;
}

std::vector<AdjustingRow> spreadSum(std::vector<CellTotal>& cells, double target) {
  double current = 0;
  for (const auto& c : cells) current += c.values.sum;
  const double change = target - current;
  std::vector<AdjustingRow> rows;
  if (change == 0) return rows;
  double given = 0;
  for (size_t i = 0; i < cells.size(); ++i) {
    double delta;
    if (i + 1 == cells.size()) {
      delta = change - given;  // the last cell takes the rounding remainder
    } else if (current != 0) {
      delta = change * cells[i].values.sum / current;
    } else {
      delta = change / static_cast<double>(cells.size());
    }
    given += delta;
    if (delta != 0) rows.push_back({cells[i].members, delta});
  }
  return rows;
}

std::vector<AdjustingRow> spreadAverage(std::vector<CellTotal>& cells, double target) {
  Accumulator all;
  for (const auto& c : cells) all.merge(c.values);
  if (all.result(Aggregation::Average) == target) return {};
  // Each cell gets one more value; the cell's new average t_i follows its current average a_i
  // (t_i = c * a_i), with c chosen so that sum(t_i * (n_i + 1)) / sum(n_i + 1) = target.
  double weight = 0, weighted = 0;
  for (const auto& c : cells) {
    double n = static_cast<double>(c.values.count) + 1;
    weight += n;
    weighted += c.values.result(Aggregation::Average) * n;
  }
  std::vector<AdjustingRow> rows;
  for (const auto& c : cells) {
    double a = c.values.result(Aggregation::Average);
    double t = weighted != 0 ? a * target * weight / weighted : target;
    double v = t * (static_cast<double>(c.values.count) + 1) - c.values.sum;
    rows.push_back({c.members, v});
  }
  return rows;
}

}  // namespace

std::vector<AdjustingRow> planWriteBack(CacheHandle& cache, int measure, Aggregation aggregation,
                                        const std::vector<MemberFilter>& filters, double target) {
  const auto& def = cache.model().definition().measures[measure];
  if (aggregation != Aggregation::Sum && aggregation != Aggregation::Average) {
    throw RuntimeError(engine_err::kCannotWriteBack, "Cannot write back to " + def.caption +
                                                         ": a " +
                                                         std::string(aggregationName(aggregation)) +
                                                         " cannot be set by adding transactions");
  }
  if (!std::isfinite(target)) {
    throw RuntimeError(engine_err::kCannotWriteBack, "Cannot write back a value that is no number");
  }
  std::vector<int32_t> leaf;
  if (isLeaf(cache.model(), filters, leaf)) {
    Accumulator acc;
    ValueRequest request{measure, filters};
    cache.aggregate(std::span<const ValueRequest>(&request, 1), std::span<Accumulator>(&acc, 1));
    if (acc.result(aggregation) == target) return {};
    double v = aggregation == Aggregation::Sum
                   ? target - acc.sum
                   : target * (static_cast<double>(acc.count) + 1) - acc.sum;
    return {{leaf, v}};
  }
  std::vector<CellTotal> cells = cache.cells(measure, filters);
  if (cells.empty()) {
    throw RuntimeError(engine_err::kCannotWriteBack,
                       "Cannot write back to " + def.caption +
                           ": there are no transactions at these coordinates to spread it over");
  }
  return aggregation == Aggregation::Sum ? spreadSum(cells, target) : spreadAverage(cells, target);
}

}  // namespace kxc::engine
