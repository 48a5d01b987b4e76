// The cache the engine benchmarks share: 1,000,000 generated transactions with 6 dimensions in
// a temporary database, the same data indexed for SQL, and a fixed mix of filter sets.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/contract/cache_engine.h"
#include "engine/embedded/sqlite_database.h"
#include "platform/variant.h"

namespace kxc::engine::bench {

inline constexpr int64_t kBenchRows = 1000000;
inline constexpr const char* kBenchCache = "Bench";

struct FilterSet {
  int32_t measure;               // 1 Amount (sum), 2 Quantity (sum), 3 Price (average)
  std::vector<Variant> filters;  // six: a member value or "<ALL>"
};

class BenchCache {
 public:
  static BenchCache& instance();  // generated on first use, removed at exit
  ~BenchCache();

  const std::string& databasePath() const { return path_; }
  int64_t cacheId() const { return cacheId_; }
  // An engine with the memo switched off, the cache already loaded.
  CacheEngine& engine() { return *engine_; }
  // A separate connection for the SQL side of each comparison.
  Database& sql() { return *sql_; }
  const std::vector<FilterSet>& filterSets() const { return sets_; }
  const std::vector<std::vector<std::string>>& memberValues() const { return values_; }

 private:
  BenchCache();
  std::string folder_;
  std::string path_;
  int64_t cacheId_ = 0;
  std::shared_ptr<CacheEngine> engine_;
  std::unique_ptr<Database> sql_;
  std::vector<FilterSet> sets_;
  std::vector<std::vector<std::string>> values_;  // [dimension][member]
};

// Median and 90th percentile of per-call durations in milliseconds.
struct Spread {
  double median = 0;
  double p90 = 0;
};
Spread spreadOf(std::vector<double> ms);

}  // namespace kxc::engine::bench
