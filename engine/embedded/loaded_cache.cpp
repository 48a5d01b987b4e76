#include "engine/loaded_cache.h"

#include <limits>

#include "engine/engine_errors.h"

namespace kxc::engine {

LoadedCache::LoadedCache(int64_t id, CacheDefinition definition, CacheColumns columns)
    : id_(id), def_(std::move(definition)), cols_(std::move(columns)) {
  if (cols_.rowCount() > std::numeric_limits<RowId>::max()) {
    throw databaseError("cache " + def_.name + " has too many transactions to load");
  }
  const int nd = dimensionCount();
  postings_.resize(nd);
  byValue_.resize(nd);
  byCaption_.resize(nd);
  for (int d = 0; d < nd; ++d) {
    const auto& members = def_.dimensions[d].members;
    postings_[d].resize(members.size());
    for (size_t j = 0; j < members.size(); ++j) {
      byValue_[d].emplace(members[j].value, static_cast<int32_t>(j));
      byCaption_[d].emplace(members[j].caption, static_cast<int32_t>(j));
    }
  }
  index(0);
  computeTotals();
}

std::optional<int32_t> LoadedCache::findMember(int dim, std::string_view text) const {
  std::string key(text);
  if (auto it = byValue_[dim].find(key); it != byValue_[dim].end()) return it->second;
  if (auto it = byCaption_[dim].find(key); it != byCaption_[dim].end()) return it->second;
  return std::nullopt;
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
