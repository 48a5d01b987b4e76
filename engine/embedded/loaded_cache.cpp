#include "engine/embedded/loaded_cache.h"

#include <limits>

#include "engine/contract/engine_errors.h"

namespace kxc::engine {

LoadedCache::LoadedCache(std::shared_ptr<const CacheModel> model, CacheColumns columns)
    : model_(std::move(model)), cols_(std::move(columns)) {
  if (cols_.rowCount() > std::numeric_limits<RowId>::max()) {
    throw databaseError("cache " + name() + " has too many transactions to load");
  }
  const int nd = dimensionCount();
  postings_.resize(nd);
  for (int d = 0; d < nd; ++d) postings_[d].resize(static_cast<size_t>(memberCount(d)));
  index(0);
  computeTotals();
}

void LoadedCache::index(size_t firstRow) {
  const size_t rows = cols_.rowCount();
  for (int d = 0; d < dimensionCount(); ++d) {
    const auto& column = cols_.members[d];
    auto& lists = postings_[d];
    if (firstRow == 0) {
      // Sizing each list first keeps a million-row load to one allocation per member.
      std::vector<size_t> counts(lists.size(), 0);
      for (size_t r = 0; r < rows; ++r) ++counts[column[r]];
      for (size_t j = 0; j < lists.size(); ++j) lists[j].reserve(counts[j]);
    }
    for (size_t r = firstRow; r < rows; ++r) lists[column[r]].push_back(static_cast<RowId>(r));
  }
}

void LoadedCache::computeTotals() {
  totals_.assign(measureCount(), Accumulator{});
  for (int m = 0; m < measureCount(); ++m) {
    for (double v : cols_.values[m]) totals_[m].add(v);
  }
}

void LoadedCache::appendRows(std::span<const std::vector<int32_t>> members, int measure,
                             std::span<const double> values, std::string_view date,
                             std::string_view reference) {
  const size_t first = rowCount();
  std::vector<double> rowValues(measureCount(), std::numeric_limits<double>::quiet_NaN());
  for (size_t i = 0; i < members.size(); ++i) {
    rowValues[measure] = values[i];
    cols_.appendRow(members[i], rowValues, date, reference);
    totals_[measure].add(values[i]);
  }
  index(first);
}

void LoadedCache::truncate(size_t rows) {
  if (rows >= rowCount()) return;
  cols_.truncate(rows);
  for (auto& dim : postings_) {
    for (auto& list : dim) {
      while (!list.empty() && list.back() >= rows) list.pop_back();
    }
  }
  computeTotals();
}

}  // namespace kxc::engine
