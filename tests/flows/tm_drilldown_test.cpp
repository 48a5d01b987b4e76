#include "flows/tm_drilldown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/transactions_form.h"
#include "facade/facade_fixture.h"
#include "grammar/parse_formula.h"

namespace kxc::testing {
namespace {

using Members = std::vector<std::string>;

class TmDrilldownTest : public FacadeFixture {
 protected:
  TmDrilldownTest() {
    gCacheEngine = engine;
    gExcelSink->Initialise(app);
  }

  // The filters of the one DrilldownAddCriteria call; checks its shape on the way.
  std::vector<Variant> sentFilters() {
    auto calls = engine->callsTo("DrilldownAddCriteria");
    EXPECT_EQ(calls.size(), 1u);
    if (calls.empty()) return {};
    const auto& args = calls[0].args;
    EXPECT_EQ(args.size(), 21u);
    EXPECT_FALSE(args[0].byRef);
    std::vector<Variant> filters;
    for (std::size_t i = 1; i < args.size(); ++i) {
      EXPECT_TRUE(args[i].byRef) << i;
      filters.push_back(args[i].value);
    }
    return filters;
  }

  void addCriteriaFor(const std::string& formula, int32_t cacheDimensions) {
    engine->script("DimensionCount", Variant(int32_t{cacheDimensions}));
    gCurrentFormula = ParseFormula(formula);
    engine->clearLog();
    DrilldownAddCriteria();
  }
};

TEST_F(TmDrilldownTest, MissingAndEmptyArgumentsAreSentAsAll) {
  app->setCell("B1", "West");
  addCriteriaFor(R"(=BV_KXCSUM("Sales",1,"North",,B1))", 5);
  std::vector<Variant> filters = sentFilters();
  ASSERT_EQ(filters.size(), 20u);
  EXPECT_EQ(filters[0], Variant("North"));
  EXPECT_EQ(filters[1], Variant("<ALL>"));  // written as ""
  EXPECT_EQ(filters[2], Variant("West"));   // a reference sends its value
  EXPECT_EQ(filters[3], Variant("<ALL>"));  // the formula has no fourth argument
  EXPECT_EQ(filters[4], Variant("<ALL>"));
  for (std::size_t i = 5; i < 20; ++i) EXPECT_TRUE(filters[i].isEmpty()) << i;
  EXPECT_EQ(engine->callsTo("DrilldownAddCriteria")[0].args[0].value, Variant("Sales"));
}

TEST_F(TmDrilldownTest, ReferenceToEmptyCellIsSentAsAll) {
  addCriteriaFor(R"(=BV_KXCSUM("Sales",1,C9))", 1);
  EXPECT_EQ(sentFilters().at(0), Variant("<ALL>"));
}

TEST_F(TmDrilldownTest, ArgumentsBeyondTheCachesDimensionsAreNotSent) {
  addCriteriaFor(R"(=BV_KXCSUM("Sales",1,"a","b","c"))", 2);
  std::vector<Variant> filters = sentFilters();
  EXPECT_EQ(filters.at(1), Variant("b"));
  EXPECT_TRUE(filters.at(2).isEmpty());
}

TEST_F(TmDrilldownTest, CacheWithMoreThanTwentyDimensionsSendsTwenty) {
  addCriteriaFor(R"(=BV_KXCSUM("Sales",1,"a"))", 30);
  std::vector<Variant> filters = sentFilters();
  ASSERT_EQ(filters.size(), 20u);
  EXPECT_EQ(filters[0], Variant("a"));
  EXPECT_EQ(filters[19], Variant("<ALL>"));
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(TmDrilldownTest, DimensionCountIsAskedForTheResolvedCacheByValue) {
  app->setCell("A1", "Sales");
  addCriteriaFor("=BV_KXCSUM(A1,1)", 0);
  auto count = engine->callsTo("DimensionCount");
  ASSERT_EQ(count.size(), 1u);
  EXPECT_EQ(count[0].args[0].value, Variant("Sales"));
  EXPECT_FALSE(count[0].args[0].byRef);
  EXPECT_EQ(engine->callsTo("DrilldownAddCriteria").at(0).args[0].value, Variant("Sales"));
}

TEST_F(TmDrilldownTest, EngineFailuresAreIgnored) {
  gCurrentFormula = ParseFormula(R"(=BV_KXCSUM("Sales",1,"a"))");
  engine->fail("DimensionCount", 1004, "no cache");
  engine->fail("DrilldownAddCriteria", 1004, "rejected");
  engine->clearLog();
  DrilldownAddCriteria();
  EXPECT_EQ(engine->memberSequence(), (Members{"DimensionCount", "DrilldownAddCriteria"}));
  auto filters = engine->callsTo("DrilldownAddCriteria").at(0).args;
  EXPECT_TRUE(filters.at(1).value.isEmpty());  // no dimension count: nothing filtered
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(TmDrilldownTest, OddDimensionCountResultsAreIgnored) {
  gCurrentFormula = ParseFormula(R"(=BV_KXCSUM("Sales",1,"a"))");
  engine->script("DimensionCount", Variant(100000.0));  // no 16-bit number
  engine->clearLog();
  DrilldownAddCriteria();
  EXPECT_TRUE(engine->callsTo("DrilldownAddCriteria").at(0).args.at(1).value.isEmpty());
}

TEST_F(TmDrilldownTest, ExecutePopulateTransFillsTheFormsGridThenShowsIt) {
  app->setCell("A1", "Sales");
  gCurrentFormula.Cache = "A1";
  ExecutePopulateTrans();
  auto run = engine->callsTo("ExecutePopulateTrans");
  ASSERT_EQ(run.size(), 1u);
  ASSERT_EQ(run[0].args.size(), 2u);
  EXPECT_EQ(run[0].args[0].value, Variant("Sales"));
  EXPECT_EQ(run[0].args[1].value, Variant(ObjectRef(view->grid)));
  EXPECT_FALSE(run[0].args[1].byRef);
  EXPECT_EQ(view->steps, (Members{"sizeColumns", "show"}));
}

TEST_F(TmDrilldownTest, ByDefaultTheEngineFillsTheTransactionsFormsGrid) {
  context().provide<TransactionsView>(nullptr);
  engine->script("ExecutePopulateTrans", [](Arguments args) {
    ObjectRef grid = args[1].value().object();
    std::vector<Argument> cell{Argument::byValue(int32_t{2}), Argument::byValue(int32_t{3}),
                               Argument::byValue("a rather long transaction text")};
    grid->invoke("SetText", cell);
    return Variant();
  });
  gCurrentFormula.Cache = "Sales";
  ExecutePopulateTrans();
  FrmTransactions& form = frmTransactions();
  EXPECT_EQ(form.vasTrans().cellText(2, 3), "a rather long transaction text");
  EXPECT_GT(form.vasTrans().colWidth(2), form.vasTrans().colWidth(1));
  EXPECT_TRUE(form.form().visible());
  ExecutePopulateTrans();  // a second drill-down while the form is on show
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(TmDrilldownTest, DrilldownClearSendsNoArguments) {
  DrilldownClear();
  ASSERT_EQ(engine->calls().size(), 1u);
  EXPECT_TRUE(engine->calls()[0].args.empty());
}

TEST_F(TmDrilldownTest, WithoutEngineTheCallsRaise) {
  gCacheEngine.reset();
  EXPECT_THROW(DrilldownClear(), RuntimeError);
  EXPECT_THROW(ExecutePopulateTrans(), RuntimeError);
  DrilldownAddCriteria();  // ignores it
  EXPECT_TRUE(view->steps.empty());
}

}  // namespace
}  // namespace kxc::testing
