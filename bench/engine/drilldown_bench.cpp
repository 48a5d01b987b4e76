// A drill-down of about 100,000 transactions into a grid: the engine against one SQL query
// whose rows are written into the grid the same way.
#include <benchmark/benchmark.h>

#include "bench_cache.h"
#include "engine/contract/display_format.h"
#include "engine/contract/drilldown.h"
#include "engine/contract/engine_object.h"
#include "engine/embedded/cache_schema.h"
#include "grid_double.h"

namespace kxc::engine::bench {
namespace {

// Region "Central" holds a tenth of the transactions.
constexpr const char* kRegion = "Central";

void BM_EngineDrilldown(benchmark::State& state) {
  BenchCache& b = BenchCache::instance();
  ObjectRef engine = std::make_shared<EngineObject>(
      std::shared_ptr<CacheEngine>(&b.engine(), [](CacheEngine*) {}));
  int32_t rows = 0;
  for (auto _ : state) {
    auto grid = std::make_shared<testing::GridDouble>();
    invoke(engine, "DrilldownClear");
    invoke(engine, "DrilldownAddCriteria",
           {Argument::byValue(Variant(kBenchCache)), Argument::byValue(Variant(kRegion))});
    invoke(engine, "ExecutePopulateTrans",
           {Argument::byValue(Variant(kBenchCache)), Argument::byValue(Variant(ObjectRef(grid)))});
    rows = grid->maxRows();
  }
  state.counters["rows"] = rows;
}

void BM_SqlDrilldown(benchmark::State& state) {
  BenchCache& b = BenchCache::instance();
  std::string id = std::to_string(b.cacheId());
  std::string sql = "SELECT ";
  for (int d = 1; d <= 6; ++d) sql += "v" + std::to_string(d) + ".value, ";
  sql += "f.m1, f.m2, f.m3, f.tdate, f.reference FROM " + factTable(b.cacheId()) + " f";
  for (int d = 1; d <= 6; ++d) {
    std::string n = std::to_string(d);
    sql += " JOIN member v" + n + " ON v" + n + ".cache_id = " + id + " AND v" + n +
           ".dimension = " + n + " AND v" + n + ".position = f.d" + n;
  }
  sql += " WHERE f.d1 = (SELECT position FROM member WHERE cache_id = " + id +
         " AND dimension = 1 AND value = ?) ORDER BY f.seq";
  Statement st = b.sql().prepare(sql);
  const char* formats[] = {"#,##0.00", "#,##0", "$#,##0.00"};
  int32_t rows = 0;
  for (auto _ : state) {
    auto grid = std::make_shared<testing::GridDouble>();
    invoke(grid, "ClearAll");
    st.bind(1, std::string_view(kRegion));
    std::string block;
    int32_t n = 0, first = 1;
    auto flush = [&] {
      if (block.empty()) return;
      invoke(grid, "SetBlock",
             {Argument::byValue(Variant(int32_t{1})), Argument::byValue(Variant(first)),
              Argument::byValue(Variant(std::move(block)))});
      block.clear();
      first = n + 1;
    };
    while (st.step()) {
      if (!block.empty()) block += '\n';
      for (int c = 0; c < 6; ++c) block.append(st.textAt(c)).append("\t");
      for (int m = 0; m < 3; ++m) block += formatDisplay(st.doubleAt(6 + m), formats[m]) + "\t";
      block.append(st.textAt(9)).append("\t").append(st.textAt(10));
      if (++n % kGridChunkRows == 0) flush();
    }
    flush();
    st.reset();
    rows = grid->maxRows();
  }
  state.counters["rows"] = rows;
}

BENCHMARK(BM_EngineDrilldown)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_SqlDrilldown)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace kxc::engine::bench
