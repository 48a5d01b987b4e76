// A small cache "Shop" with known numbers, and a test fixture that gives each test its own
// database in a temporary folder with an engine core and its dispatch object.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "engine/contract/cache_engine.h"
#include "engine/contract/engine_errors.h"
#include "engine/contract/engine_object.h"
#include "engine/embedded/cache_writer.h"
#include "engine/embedded/embedded_backend.h"
#include "engine/engine_registration.h"
#include "platform/runtime_error.h"
#include "temp_folder.h"

namespace kxc::engine::testing {

inline constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// Dimensions Region (North, South, East, West; captions "Northern" ...), Product (A, B, C;
// captions "Apples", "Bananas", "Cherries"), Year (2023, 2024). Measures Amount (sum,
// "#,##0.00"), Units (count), Price (average, "$0.00"), Low (min), High (max).
//   North A 2023  10  price 1      North B 2023  20  price 2     South A 2024  30  price 3
//   East  C 2024  40  price 4      North A 2024  50  price 5     West  B 2023  60  no price
inline int64_t writeShop(CacheBackend& backend, const std::string& name = "Shop") {
  auto w = backend.createCache(name, {"Region", "Product", "Year"},
                               {{"Amount", Aggregation::Sum, "#,##0.00"},
                                {"Units", Aggregation::Count, "0"},
                                {"Price", Aggregation::Average, "$0.00"},
                                {"Low", Aggregation::Min, ""},
                                {"High", Aggregation::Max, ""}});
  struct Row {
    int32_t region, product, year;
    double amount, price;
  };
  const Row rows[] = {{0, 0, 0, 10, 1}, {0, 1, 0, 20, 2}, {1, 0, 1, 30, 3},
                      {2, 2, 1, 40, 4}, {0, 0, 1, 50, 5}, {3, 1, 0, 60, kNone}};
  int n = 0;
  for (const auto& r : rows) {
    int32_t m[] = {r.region, r.product, r.year};
    double v[] = {r.amount, 1, r.price, r.amount, r.amount};
    ++n;
    w->addRow(m, v, "2024-01-0" + std::to_string(n), "R" + std::to_string(n));
  }
  return w->commit(
      {{{"North", "Northern"}, {"South", "Southern"}, {"East", "Eastern"}, {"West", "Western"}},
       {{"A", "Apples"}, {"B", "Bananas"}, {"C", "Cherries"}},
       {{"2023", "2023"}, {"2024", "2024"}}});
}

class EngineTest : public ::testing::Test {
 protected:
  void SetUp() override {
    options_.databasePath = tmp_.file("caches.db");
    options_.generateSamples = false;
    core_ = makeEngine(options_);
    writeShop(core_->backend());
    engine_ = std::make_shared<EngineObject>(core_);
  }

  // The embedded backend's database.
  CacheStore& store() { return static_cast<EmbeddedBackend&>(core_->backend()).store(); }

  Variant call(std::string_view member, std::vector<Argument> args = {}) {
    return invoke(engine_, member, std::move(args));
  }
  static Argument val(Variant v) { return Argument::byValue(std::move(v)); }

  // The value of a measure of "Shop" under filters, sent as the add-in sends it.
  double shopValue(int32_t measure, std::vector<Variant> filters, int16_t aggregation = 0) {
    Variant cache("Shop"), m(measure);
    std::vector<Argument> args{Argument::byRef(cache), Argument::byRef(m),
                               val(Variant(aggregation))};
    filters.resize(20);
    for (auto& f : filters) args.push_back(Argument::byValue(f));
    return call("CacheGetValueAllAggregationTypes", std::move(args)).toDouble();
  }

  // The error number a call raises, or 0.

  TempFolder tmp_;
  EngineOptions options_;
  std::shared_ptr<CacheEngine> core_;
  ObjectRef engine_;
};

}  // namespace kxc::engine::testing
