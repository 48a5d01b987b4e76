#include "engine/embedded/embedded_backend.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "engine/embedded/aggregation.h"
#include "engine/embedded/cache_writer.h"

namespace kxc::engine {

EmbeddedCache::EmbeddedCache(CacheStore& store, std::shared_ptr<const CacheModel> model,
                             CacheColumns columns)
    : CacheHandle(model), store_(store), cache_(std::move(model), std::move(columns)) {}

void EmbeddedCache::aggregate(std::span<const ValueRequest> requests,
                              std::span<Accumulator> results) {
  for (size_t i = 0; i < requests.size(); ++i) {
    results[i] = engine::aggregate(cache_, requests[i].measure, requests[i].filters);
  }
}

std::vector<CellTotal> EmbeddedCache::cells(int measure, std::span<const MemberFilter> filters) {
  const int nd = cache_.dimensionCount();
  const double* values = cache_.columns().values[measure].data();
  std::vector<MemberFilter> all(filters.begin(), filters.end());
  std::unordered_map<std::string, size_t> index;
  std::vector<CellTotal> cells;
  std::string key(static_cast<size_t>(nd) * sizeof(int32_t), '\0');
  std::vector<int32_t> members(nd);
  forEachMatchingRow(cache_, all, [&](RowId r) {
    for (int d = 0; d < nd; ++d) members[d] = cache_.columns().members[d][r];
    key.assign(reinterpret_cast<const char*>(members.data()), key.size());
    auto [it, added] = index.emplace(key, cells.size());
    if (added) cells.push_back({members, {}});
    cells[it->second].values.add(values[r]);
  });
  std::sort(cells.begin(), cells.end(),
            [](const CellTotal& a, const CellTotal& b) { return a.members < b.members; });
  return cells;
}

void EmbeddedCache::drill(std::span<const std::vector<MemberFilter>> criteria,
                          TransactionSink& sink) {
  std::vector<RowId> rows = unionOfMatches(cache_, criteria);
  const auto& columns = cache_.columns();
  const int nd = cache_.dimensionCount();
  const int nm = cache_.measureCount();
  std::vector<int32_t> members(nd);
  std::vector<double> values(nm);
  sink.begin(rows.size());
  for (RowId r : rows) {
    for (int d = 0; d < nd; ++d) members[d] = columns.members[d][r];
    for (int m = 0; m < nm; ++m) values[m] = columns.values[m][r];
    sink.row(members, values, columns.dates.at(r), columns.references.at(r));
  }
}

JournalEntry EmbeddedCache::writeBack(const WriteBackRecord& record,
                                      std::span<const AdjustingRow> rows) {
  JournalEntry entry =
      store_.appendJournal(cache_.id(), record.measure + 1, cache_.measureCount(),
                           record.writtenValue, record.description, rows, record.date);
  if (entry.firstSeq != static_cast<int64_t>(cache_.rowCount()) + 1) {
    current_ = false;  // another program changed the cache: read it afresh next time
    return entry;
  }
  std::vector<std::vector<int32_t>> members;
  std::vector<double> values;
  for (const auto& r : rows) members.push_back(r.members), values.push_back(r.value);
  cache_.appendRows(members, record.measure, values, record.date,
                    "Write-back " + std::to_string(entry.number));
  return entry;
}

bool EmbeddedCache::undone(const JournalEntry& entry) {
  if (static_cast<int64_t>(cache_.rowCount()) != entry.firstSeq - 1 + entry.rowCount) return false;
  cache_.truncate(static_cast<size_t>(entry.firstSeq - 1));
  return true;
}

EmbeddedBackend::EmbeddedBackend(const std::string& path) : path_(path), store_(path) {}

std::unique_ptr<CacheHandle> EmbeddedBackend::open(const CacheSummary& summary) {
  CacheDefinition def;
  CacheColumns cols;
  store_.load(summary.id, def, cols);
  auto model = std::make_shared<const CacheModel>(summary.id, std::move(def));
  return std::make_unique<EmbeddedCache>(store_, std::move(model), std::move(cols));
}

std::unique_ptr<CacheBuilder> EmbeddedBackend::createCache(
    const std::string& name, const std::vector<std::string>& dimensions,
    const std::vector<MeasureDef>& measures) {
  return std::make_unique<CacheWriter>(store_, name, dimensions, measures);
}

bool EmbeddedBackend::samplesConsidered() {
  auto done = store_.database().prepare("SELECT 1 FROM engine_meta WHERE key = 'samples'");
  return done.step();
}

void EmbeddedBackend::markSamplesConsidered() {
  store_.database()
      .prepare("INSERT OR REPLACE INTO engine_meta(key, value) VALUES ('samples', '1')")
      .run();
}

}  // namespace kxc::engine
