// EnsureCacheLoad of the million-transaction cache from the database, against the one full
// pass SQLite makes for a single unfiltered value.
#include <benchmark/benchmark.h>

#include "bench_cache.h"
#include "engine/embedded/cache_schema.h"
#include "engine/engine_registration.h"

namespace kxc::engine::bench {
namespace {

void BM_EnsureCacheLoad(benchmark::State& state) {
  BenchCache& b = BenchCache::instance();
  EngineOptions options;
  options.databasePath = b.databasePath();
  options.generateSamples = false;
  for (auto _ : state) {
    auto engine = makeEngine(options);
    benchmark::DoNotOptimize(engine->ensureCacheLoad(Variant(kBenchCache)));
  }
}

void BM_SqlFullPass(benchmark::State& state) {
  BenchCache& b = BenchCache::instance();
  Statement st = b.sql().prepare("SELECT sum(m1), sum(m2), avg(m3) FROM " + factTable(b.cacheId()));
  for (auto _ : state) {
    st.step();
    benchmark::DoNotOptimize(st.doubleAt(0));
    st.reset();
  }
}

BENCHMARK(BM_EnsureCacheLoad)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SqlFullPass)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace kxc::engine::bench
