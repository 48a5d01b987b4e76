// The same 100,000-row drill-down into the transactions dialog's own grid control.
#include <benchmark/benchmark.h>

#include "bench_cache.h"
#include "engine/contract/engine_object.h"
#include "platform/controls/grid.h"

namespace kxc::engine::bench {
namespace {

void BM_EngineDrilldownIntoControlGrid(benchmark::State& state) {
  BenchCache& b = BenchCache::instance();
  ObjectRef engine = std::make_shared<EngineObject>(
      std::shared_ptr<CacheEngine>(&b.engine(), [](CacheEngine*) {}));
  int32_t rows = 0;
  for (auto _ : state) {
    auto grid = std::make_shared<controls::Grid>();
    invoke(engine, "DrilldownClear");
    invoke(engine, "DrilldownAddCriteria",
           {Argument::byValue(Variant(kBenchCache)), Argument::byValue(Variant("Central"))});
    invoke(engine, "ExecutePopulateTrans",
           {Argument::byValue(Variant(kBenchCache)), Argument::byValue(Variant(ObjectRef(grid)))});
    rows = grid->maxRows();
  }
  state.counters["rows"] = rows;
}

BENCHMARK(BM_EngineDrilldownIntoControlGrid)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace kxc::engine::bench
