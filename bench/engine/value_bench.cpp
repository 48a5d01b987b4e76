// One value with a mix of single members and <ALL>: the engine against one SQL query.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <map>

#include "bench_cache.h"
#include "engine/embedded/cache_schema.h"

namespace kxc::engine::bench {
namespace {

using Clock = std::chrono::steady_clock;

double msSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void report(benchmark::State& state, std::vector<double> ms) {
  Spread s = spreadOf(std::move(ms));
  state.counters["median_ms"] = s.median;
  state.counters["p90_ms"] = s.p90;
}

void BM_EngineValue(benchmark::State& state) {
  BenchCache& b = BenchCache::instance();
  const auto& sets = b.filterSets();
  std::vector<double> ms;
  size_t i = 0;
  for (auto _ : state) {
    const FilterSet& s = sets[i++ % sets.size()];
    auto start = Clock::now();
    double v = b.engine().value(Variant(kBenchCache), Variant(s.measure), 0, s.filters);
    ms.push_back(msSince(start));
    benchmark::DoNotOptimize(v);
  }
  report(state, std::move(ms));
}

// The same question as one SQL statement: member texts bound as parameters and resolved by a
// subquery on the member table, the aggregation done by SQLite over the indexed fact table.
class SqlValue {
 public:
  explicit SqlValue(BenchCache& b) : b_(b) {}
  double ask(const FilterSet& s) {
    int mask = 0;
    for (size_t d = 0; d < s.filters.size(); ++d) {
      if (s.filters[d].text() != "<ALL>") mask |= 1 << d;
    }
    Statement& st = statement(s.measure, mask);
    int p = 1;
    for (size_t d = 0; d < s.filters.size(); ++d) {
      if (mask & (1 << d)) st.bind(p++, s.filters[d].text());
    }
    double v = st.step() ? st.doubleAt(0) : 0;
    st.reset();
    return v;
  }

 private:
  Statement& statement(int32_t measure, int mask) {
    int key = measure * 1024 + mask;
    auto it = cache_.find(key);
    if (it != cache_.end()) return it->second;
    std::string m = "m" + std::to_string(measure);
    std::string sql = "SELECT coalesce(" + std::string(measure == 3 ? "avg(" : "sum(") + m +
                      "), 0) FROM " + factTable(b_.cacheId()) + " WHERE 1";
    for (int d = 0; d < 6; ++d) {
      if (!(mask & (1 << d))) continue;
      std::string n = std::to_string(d + 1);
      sql += " AND d" + n +
             " = (SELECT position FROM member WHERE cache_id = " + std::to_string(b_.cacheId()) +
             " AND dimension = " + n + " AND value = ?)";
    }
    return cache_.emplace(key, b_.sql().prepare(sql)).first->second;
  }
  BenchCache& b_;
  std::map<int, Statement> cache_;
};

void BM_SqlValue(benchmark::State& state) {
  BenchCache& b = BenchCache::instance();
  SqlValue sql(b);
  const auto& sets = b.filterSets();
  for (size_t k = 0; k < 32; ++k) {
    const FilterSet& s = sets[k];
    double want = b.engine().value(Variant(kBenchCache), Variant(s.measure), 0, s.filters);
    if (std::fabs(sql.ask(s) - want) > 1e-6 * (1 + std::fabs(want))) {
      state.SkipWithError("the SQL query and the engine disagree");
      return;
    }
  }
  std::vector<double> ms;
  size_t i = 0;
  for (auto _ : state) {
    const FilterSet& s = sets[i++ % sets.size()];
    auto start = Clock::now();
    double v = sql.ask(s);
    ms.push_back(msSince(start));
    benchmark::DoNotOptimize(v);
  }
  report(state, std::move(ms));
}

BENCHMARK(BM_EngineValue)->Unit(benchmark::kMillisecond)->Iterations(2048);
BENCHMARK(BM_SqlValue)->Unit(benchmark::kMillisecond)->Iterations(512);

}  // namespace
}  // namespace kxc::engine::bench
