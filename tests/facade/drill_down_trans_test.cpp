// StartDrillDownTrans: which selected cells are drilled and in which order the engine hears.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "facade_fixture.h"

namespace kxc::testing {
namespace {

using ::testing::ElementsAre;
using Members = std::vector<std::string>;

class StartDrillDownTransTest : public FacadeFixture {
 protected:
  StartDrillDownTransTest() {
    initialise();
    engine->script("DimensionCount", Variant(int32_t{2}));
  }
  void put(const std::string& cell, const std::string& formula) { app->setCell(cell, formula); }
};

TEST_F(StartDrillDownTransTest, SingleNegatedLowerCaseFormulaIsDrilled) {
  put("A1", R"(=-bv_kxcsum("Sales",1,"North"))");
  app->select("A1");
  ui.StartDrillDownTrans();
  EXPECT_EQ(engine->memberSequence(),
            (Members{"CacheFind", "EnsureCacheLoad", "DrilldownClear", "DimensionCount",
                     "DrilldownAddCriteria", "ExecutePopulateTrans"}));
  auto criteria = engine->callsTo("DrilldownAddCriteria");
  EXPECT_EQ(criteria.at(0).args[1].value, Variant("North"));
  EXPECT_EQ(view->steps, (Members{"sizeColumns", "show"}));
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(StartDrillDownTransTest, NegatedFormulaAmongSeveralCellsIsSkipped) {
  put("A1", R"(=-bv_kxcsum("Sales",1,"North"))");
  put("A2", R"(=bv_kxcsum("Sales",1,"West"))");
  put("A3", "12");
  app->select("A1:A3");
  ui.StartDrillDownTrans();
  EXPECT_EQ(engine->memberSequence(),
            (Members{"DrilldownClear", "CacheFind", "EnsureCacheLoad", "DimensionCount",
                     "DrilldownAddCriteria", "ExecutePopulateTrans"}));
  EXPECT_EQ(engine->callsTo("DrilldownAddCriteria").at(0).args[1].value, Variant("West"));
}

TEST_F(StartDrillDownTransTest, SeveralCellsGiveOneCriteriaRowEachAndOneQuery) {
  put("B1", R"(=BV_KXCSUM("Sales",1,"North"))");
  put("B2", R"(=BV_KXCSUM("Sales",1,"South","2004"))");
  app->select("B1:B2");
  ui.StartDrillDownTrans();
  auto criteria = engine->callsTo("DrilldownAddCriteria");
  ASSERT_EQ(criteria.size(), 2u);
  EXPECT_EQ(criteria[0].args[1].value, Variant("North"));
  EXPECT_EQ(criteria[0].args[2].value, Variant("<ALL>"));
  EXPECT_EQ(criteria[1].args[1].value, Variant("South"));
  EXPECT_EQ(criteria[1].args[2].value, Variant("2004"));
  EXPECT_EQ(engine->callsTo("ExecutePopulateTrans").size(), 1u);
  EXPECT_EQ(engine->callsTo("DrilldownClear").size(), 1u);
}

TEST_F(StartDrillDownTransTest, SeveralCellsWithoutCacheFormulaStillRunAnEmptyDrillDown) {
  put("C1", "=SUM(1,2)");
  put("C2", "text");
  app->select("C1:C3");
  ui.StartDrillDownTrans();
  EXPECT_EQ(engine->memberSequence(), (Members{"DrilldownClear", "ExecutePopulateTrans"}));
  auto run = engine->callsTo("ExecutePopulateTrans");
  EXPECT_EQ(run.at(0).args[0].value, Variant(""));
  EXPECT_EQ(run.at(0).args[1].value, Variant(ObjectRef(view->grid)));
}

TEST_F(StartDrillDownTransTest, SingleCellWithoutCacheFormulaDoesNothing) {
  for (std::string formula :
       {"", "12", "=SUM(A2)", "=BV_KXCSU(1)", "=+BV_KXCSUM(\"S\",1)", " =BV_KXCSUM(\"S\",1)"}) {
    put("D1", formula);
    app->select("D1");
    ui.StartDrillDownTrans();
  }
  EXPECT_TRUE(engine->calls().empty());
  EXPECT_TRUE(view->steps.empty());
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(StartDrillDownTransTest, RejectedCacheStillDrills) {
  engine->script("EnsureCacheLoad", Variant(int32_t{-1}));
  put("A1", "=BV_KXCSUM(E1,1)");
  put("E1", "Sales");
  app->select("A1");
  ui.StartDrillDownTrans();
  auto load = engine->callsTo("EnsureCacheLoad");
  ASSERT_EQ(load.size(), 1u);
  EXPECT_EQ(load[0].args[0].value, Variant("Sales"));
  EXPECT_FALSE(load[0].args[0].byRef);
  EXPECT_EQ(engine->callsTo("ExecutePopulateTrans").size(), 1u);
}

TEST_F(StartDrillDownTransTest, EngineFailureIsReportedWithItsLocation) {
  engine->fail("ExecutePopulateTrans", 1004, "Query failed");
  put("A1", R"(=BV_KXCSUM("Sales",1))");
  app->select("A1");
  ui.StartDrillDownTrans();
  EXPECT_THAT(services->messages, ElementsAre(MessageRecord{
                                      "Query failed CacheUI - StartDrillDownTrans", "Error", 48}));
  EXPECT_TRUE(view->steps.empty());
}

TEST_F(StartDrillDownTransTest, MissingTransactionsFormIsReported) {
  context().provide<TransactionsView>([] { return std::shared_ptr<TransactionsView>(); });
  put("A1", R"(=BV_KXCSUM("Sales",1))");
  app->select("A1");
  ui.StartDrillDownTrans();
  EXPECT_THAT(services->messages,
              ElementsAre(MessageRecord{"Object variable or With block variable not set "
                                        "CacheUI - StartDrillDownTrans",
                                        "Error", 48}));
}

TEST_F(FacadeFixture, DrillDownBeforeInitialiseIsReported) {
  ui.StartDrillDownTrans();
  ASSERT_EQ(services->messages.size(), 1u);
  EXPECT_EQ(services->messages[0].text,
            "Object variable or With block variable not set CacheUI - StartDrillDownTrans");
}

}  // namespace
}  // namespace kxc::testing
