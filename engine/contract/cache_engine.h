// The engine core: the backend, the opened caches, the memo and the pending drill-down, with a
// typed interface that the dispatch objects, the worksheet function and the kxc tool share.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/contract/cache_backend.h"
#include "engine/contract/csv_import.h"
#include "engine/contract/drilldown.h"
#include "engine/contract/engine_options.h"
#include "engine/contract/value_memo.h"
#include "platform/dispatch.h"

namespace kxc::engine {

// A cache argument names a cache by its name (any letter case) or by its 1-based index, as a
// number or a number text. Measure arguments are 1-based indices (number or number text) or a
// measure caption. Dimension and member indices are 1-based.
//
// The backend opens on first use (and, once per store, writes the sample caches when the
// options ask for them) and again after shutdown(). Every failure raises a RuntimeError with an
// engine number (see engine_errors.h) or a standard one; nothing is left half-written.
// Single-threaded: call from one thread.
class CacheEngine {
 public:
  using BackendOpener = std::function<std::unique_ptr<CacheBackend>()>;

  // `location` names the store for DatabasePath (a file or an engine URL); `open` opens it.
  CacheEngine(EngineOptions options, std::string location, BackendOpener open);
  ~CacheEngine();
  CacheEngine(const CacheEngine&) = delete;
  CacheEngine& operator=(const CacheEngine&) = delete;

  const EngineOptions& options() const { return options_; }
  const std::string& databasePath() const { return location_; }

  // --- caches ---
  int32_t cacheCount();
  std::string cacheName(int32_t index);           // 30004 when out of range
  int32_t cacheFind(const Variant& cache);        // 0 when unknown
  int32_t ensureCacheLoad(const Variant& cache);  // -1 when it cannot be loaded
  std::vector<CacheSummary> listCaches();         // fresh counts from the database
  // Transactions of a cache without loading it; 30001 when unknown.
  int64_t transactionCount(const Variant& cache);
  // The cache, opened when needed; 30001 when unknown, 13 for an object or error value.
  CacheHandle& cache(const Variant& cache);
  const CacheModel& model(const Variant& cache) { return this->cache(cache).model(); }
  // 0-based measure number; 30004 when the cache has no such measure.
  int measureNumber(const CacheModel& cache, const Variant& measure);

  // --- values ---
  // `aggregationType` 0 uses the measure's own aggregation, 1-5 select sum, count, min, max,
  // average; anything else raises 5.
  double value(const Variant& cache, const Variant& measure, int aggregationType,
               std::span<const Variant> filters);
  std::string formatValue(const Variant& cache, const Variant& measure, double value);

  // --- write-back (see write_back.h for the rules) ---
  void writeBack(const Variant& cache, const Variant& measure, int aggregationType, double newValue,
                 std::span<const Variant> filters);
  // Reverts the newest write-back of any cache; false when there is none.
  bool undoWriteBack();
  // What undoWriteBack() would revert, or "" when nothing.
  std::string lastWriteBack();

  // --- drill-down ---
  void drilldownClear() { criteria_.clear(); }
  void drilldownAddCriteria(const Variant& cache, std::span<const Variant> filters);
  // Fills `grid` with the union of the pending criteria rows that name `cache` (an empty cache
  // argument takes the first criteria row's cache; with none, the grid is just cleared).
  // Returns the number of transactions written.
  size_t populateTransactions(const Variant& cache, const ObjectRef& grid);

  // --- managing caches ---
  // Imports a CSV file as a new cache and returns its index (see csv_import.h).
  int32_t importCsv(const std::string& file, const std::string& cacheName,
                    const ImportProgress& progress = {});
  void deleteCache(const Variant& cache);
  // Forgets what was read from the database, so changes by other programs become visible.
  void refresh();
  // Releases the loaded caches and closes the database; the next call reopens it.
  void shutdown();

  // The backend, opened when needed (for tools, tests and benchmarks).
  CacheBackend& backend();

 private:
  const std::vector<CacheSummary>& catalogue();
  const CacheSummary* resolve(const Variant& cache);
  CacheHandle& load(const CacheSummary& summary);
  void forget(int64_t cacheId);

  EngineOptions options_;
  std::string location_;
  BackendOpener open_;
  std::unique_ptr<CacheBackend> backend_;
  std::vector<CacheSummary> catalogue_;
  bool catalogueRead_ = false;
  std::map<int64_t, std::unique_ptr<CacheHandle>> loaded_;
  ValueMemo memo_;
  std::vector<DrilldownCriteria> criteria_;
};

}  // namespace kxc::engine
