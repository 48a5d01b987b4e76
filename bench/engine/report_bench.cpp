// Recalculating a report sheet of 10,000 cache formulas in the in-memory workbook, every one
// answered by the engine (memo off, as right after a write-back).
#include <benchmark/benchmark.h>

#include "bench_cache.h"
#include "engine/contract/cache_function.h"
#include "engine/contract/engine_object.h"
#include "platform/workbook/in_memory_application.h"

namespace kxc::engine::bench {
namespace {

std::string columnName(int c) {
  std::string s;
  for (++c; c > 0; c = (c - 1) / 26) s.insert(s.begin(), static_cast<char>('A' + (c - 1) % 26));
  return s;
}

void BM_ReportRecalculation(benchmark::State& state) {
  BenchCache& b = BenchCache::instance();
  ObjectRef engine = std::make_shared<EngineObject>(
      std::shared_ptr<CacheEngine>(&b.engine(), [](CacheEngine*) {}));
  auto app = workbook::InMemoryApplication::create();
  app->addWorkbook("Report.xlsx");
  registerCacheFunction(*app, engine);
  const auto& v = b.memberValues();  // Region, Product, Channel, Customer, Year, Month
  constexpr int kRows = 100, kCols = 100;
  app->setCalculationSuspended(true);
  for (int c = 0; c < kCols; ++c) {
    std::string col = columnName(2 + c);
    app->setCell(col + "1", v[4][c % 4]);
    app->setCell(col + "2", v[5][(c / 4) % 12]);
  }
  for (int r = 0; r < kRows; ++r) {
    std::string row = std::to_string(3 + r);
    app->setCell("A" + row, v[0][r % 5]);
    app->setCell("B" + row, v[3][r % 40]);
    for (int c = 0; c < kCols; ++c) {
      std::string col = columnName(2 + c);
      app->setCell(col + row, "=BV_KXCSUM(\"Bench\",1,$A" + row + ",,,$B" + row + "," + col +
                                  "$1," + col + "$2)");
    }
  }
  app->setCalculationSuspended(false);
  for (auto _ : state) app->recalculate();
  state.counters["formulas"] = kRows * kCols;
  state.counters["C3"] = std::stod(app->displayText("C3"));
}

BENCHMARK(BM_ReportRecalculation)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
}  // namespace kxc::engine::bench
