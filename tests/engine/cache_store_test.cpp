// The store: default location, persistence across reopen, hostile texts kept as plain data,
// and the sample caches written once per database.
#include "engine/embedded/cache_store.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "engine/contract/engine_errors.h"
#include "engine/contract/sample_data.h"
#include "shop_fixture.h"
#include "support/error_number.h"

namespace kxc::engine::testing {
namespace {

class ScopedEnv {
 public:
  ScopedEnv(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old, had_ = true;
    value ? setenv(name, value, 1) : unsetenv(name);
  }
  ~ScopedEnv() { had_ ? setenv(name_, old_.c_str(), 1) : unsetenv(name_); }

 private:
  const char* name_;
  std::string old_;
  bool had_ = false;
};

TEST(DatabaseLocation, FollowsTheEnvironment) {
  {
    ScopedEnv db("KXC_ENGINE_DB", "/data/mine.db");
    EXPECT_EQ(defaultDatabasePath(), "/data/mine.db");
  }
  ScopedEnv db("KXC_ENGINE_DB", nullptr);
  {
    ScopedEnv xdg("XDG_DATA_HOME", "/xdg");
    EXPECT_EQ(defaultDatabasePath(), "/xdg/kestra/caches.db");
  }
  ScopedEnv xdg("XDG_DATA_HOME", nullptr);
  ScopedEnv home("HOME", "/home/someone");
  EXPECT_EQ(defaultDatabasePath(), "/home/someone/.local/share/kestra/caches.db");
  EngineOptions options;
  options.databasePath = "/elsewhere/c.db";
  EXPECT_EQ(resolvedDatabasePath(options), "/elsewhere/c.db");
}

TEST(DatabaseLocation, MissingFoldersAreCreated) {
  TempFolder tmp;
  std::string path = tmp.path() + "/a/b/caches.db";
  CacheStore store(path);
  EXPECT_TRUE(std::filesystem::exists(path));
}

TEST(DatabaseLocation, AnUnusablePathRaisesTheDatabaseError) {
  TempFolder tmp;
  std::string blocker = tmp.write("file", "x");
  try {
    CacheStore store(blocker + "/caches.db");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), engine_err::kDatabase);
    EXPECT_EQ(e.description().rfind("Cache database error: ", 0), 0u);
  }
}

class CacheStoreTest : public EngineTest {};

TEST_F(CacheStoreTest, CachesSurviveAReopen) {
  core_->shutdown();
  CacheStore reopened(options_.databasePath);
  auto caches = reopened.listCaches();
  ASSERT_EQ(caches.size(), 1u);
  EXPECT_EQ(caches[0].name, "Shop");
  EXPECT_EQ(caches[0].dimensionCount, 3);
  EXPECT_EQ(caches[0].measureCount, 5);
  EXPECT_EQ(caches[0].transactionCount, 6);
  CacheDefinition def;
  CacheColumns cols;
  reopened.load(caches[0].id, def, cols);
  EXPECT_EQ(def.dimensions[0].members[2].caption, "Eastern");
  EXPECT_EQ(cols.rowCount(), 6u);
  EXPECT_TRUE(std::isnan(cols.values[2][5]));  // the missing price stays missing
}

TEST_F(CacheStoreTest, HostileNamesAndMemberTextsAreOnlyData) {
  const std::string names[] = {"x'); DROP TABLE cache; --", "Robert\"; DELETE FROM member; --",
                               "fact_1", "a' OR '1'='1"};
  for (const auto& name : names) {
    CacheWriter w(store(), name, {"D'; DROP TABLE journal; --"}, {{"M'--", Aggregation::Sum, "0"}});
    int32_t m = 0;
    double v = 7;
    w.addRow(std::span<const int32_t>(&m, 1), std::span<const double>(&v, 1), "'; --", "\"");
    w.commit({{{"' OR 1=1 --", "'); DELETE FROM fact_1; --"}}});
  }
  core_->refresh();
  EXPECT_EQ(core_->cacheCount(), 5);
  for (const auto& name : names) {
    SCOPED_TRACE(name);
    EXPECT_GT(core_->cacheFind(Variant(name)), 1);
    EXPECT_DOUBLE_EQ(core_->value(Variant(name), Variant(int32_t{1}), 0,
                                  std::vector<Variant>{Variant("' OR 1=1 --")}),
                     7);
    EXPECT_EQ(kxc::testing::errorNumber([&] {
                core_->value(Variant(name), Variant(int32_t{1}), 0,
                             std::vector<Variant>{Variant("x' OR '1'='1")});
              }),
              engine_err::kUnknownMember);
  }
  EXPECT_EQ(core_->cacheFind(Variant("' OR name LIKE '%")), 0);
  EXPECT_DOUBLE_EQ(shopValue(1, {}), 210);  // the first cache is untouched
}

TEST_F(CacheStoreTest, SampleCachesAreWrittenOnceIntoAnEmptyDatabase) {
  EngineOptions options;
  options.databasePath = tmp_.file("samples.db");
  options.sampleSalesRows = 3000;
  {
    auto made = makeEngine(options);
    CacheEngine& engine = *made;
    ASSERT_EQ(engine.cacheCount(), 2);
    EXPECT_EQ(engine.cacheName(1), "Sales");
    EXPECT_EQ(engine.cacheName(2), "Budget");
    auto list = engine.listCaches();
    EXPECT_EQ(list[0].transactionCount, 3000);
    EXPECT_EQ(list[0].dimensionCount, 6);
    EXPECT_EQ(list[1].dimensionCount, 4);
    EXPECT_EQ(list[1].measureCount, 2);
    engine.deleteCache(Variant("Sales"));
    engine.deleteCache(Variant("Budget"));
  }
  EXPECT_EQ(makeEngine(options)->cacheCount(), 0);  // deleting them all does not bring them back
}

TEST_F(CacheStoreTest, SampleDataIsTheSameEveryTime) {
  double totals[2];
  for (double& total : totals) {
    TempFolder tmp;
    EmbeddedBackend backend(tmp.file("s.db"));
    CacheStore& store = backend.store();
    generateSampleCaches(backend, 2000);
    CacheDefinition def;
    CacheColumns cols;
    store.load(store.listCaches()[0].id, def, cols);
    LoadedCache c(std::make_shared<CacheModel>(1, def), cols);
    total = c.total(0).sum;
    EXPECT_EQ(def.dimensions[0].members[0].value, "North");
    EXPECT_EQ(def.dimensions[5].members[0].caption, "January");
    EXPECT_EQ(def.measures[2].caption, "Price");
    EXPECT_EQ(def.measures[2].aggregation, Aggregation::Average);
  }
  EXPECT_EQ(totals[0], totals[1]);
  EXPECT_GT(totals[0], 0);
}

TEST_F(CacheStoreTest, ADamagedTransactionTableIsReportedNotLoaded) {
  store().database().exec("UPDATE fact_1 SET d1 = 9 WHERE seq = 2");
  EXPECT_EQ(core_->ensureCacheLoad(Variant("Shop")), -1);
  EXPECT_EQ(kxc::testing::errorNumber([&] { core_->cache(Variant("Shop")); }),
            engine_err::kDatabase);
}

}  // namespace
}  // namespace kxc::engine::testing
