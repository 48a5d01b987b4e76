#include "bench_cache.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "engine/contract/sample_data.h"
#include "engine/embedded/cache_schema.h"
#include "engine/embedded/embedded_backend.h"
#include "engine/engine_registration.h"

namespace kxc::engine::bench {

BenchCache& BenchCache::instance() {
  static BenchCache cache;
  return cache;
}

BenchCache::BenchCache() {
  std::string pattern = (std::filesystem::temp_directory_path() / "kxc-bench-XXXXXX").string();
  if (!mkdtemp(pattern.data())) std::abort();
  folder_ = pattern;
  path_ = folder_ + "/bench.db";
  std::fprintf(stderr, "generating %lld transactions in %s ...\n",
               static_cast<long long>(kBenchRows), path_.c_str());
  {
    EmbeddedBackend backend(path_);
    cacheId_ = generateSalesCache(backend, kBenchCache, kBenchRows);
    // What a SQL engine would be given to answer the same questions.
    Database& db = backend.store().database();
    for (int d = 1; d <= 6; ++d) {
      std::string n = std::to_string(d);
      db.exec("CREATE INDEX fact_d" + n + " ON " + factTable(cacheId_) + "(d" + n + ")");
    }
    db.exec("CREATE INDEX member_value ON member(cache_id, dimension, value)");
    db.exec("ANALYZE");
  }
  EngineOptions options;
  options.databasePath = path_;
  options.generateSamples = false;
  options.memoize = false;
  engine_ = makeEngine(options);
  engine_->ensureCacheLoad(Variant(kBenchCache));
  sql_ = std::make_unique<Database>(path_);

  const CacheModel& c = engine_->model(Variant(kBenchCache));
  for (const auto& d : c.definition().dimensions) {
    values_.emplace_back();
    for (const auto& m : d.members) values_.back().push_back(m.value);
  }
  // Each dimension is filtered to one member or left at <ALL>, about half the time each;
  // deterministic so every run asks the same questions.
  uint64_t state = 42;
  auto next = [&state] {
    state = state * 6364136223846793005ull + 1442695040888963407ull;
    return static_cast<uint32_t>(state >> 33);
  };
  for (int i = 0; i < 512; ++i) {
    FilterSet s{static_cast<int32_t>(1 + i % 3), {}};
    for (const auto& members : values_) {
      if (next() % 2) {
        s.filters.emplace_back(members[next() % members.size()]);
      } else {
        s.filters.emplace_back("<ALL>");
      }
    }
    sets_.push_back(std::move(s));
  }
}

BenchCache::~BenchCache() {
  engine_.reset();
  sql_.reset();
  std::error_code ec;
  std::filesystem::remove_all(folder_, ec);
}

Spread spreadOf(std::vector<double> ms) {
  if (ms.empty()) return {};
  std::sort(ms.begin(), ms.end());
  return {ms[ms.size() / 2], ms[ms.size() * 9 / 10]};
}

}  // namespace kxc::engine::bench
