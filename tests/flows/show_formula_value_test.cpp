#include "flows/show_formula_value.h"

#include <gtest/gtest.h>

#include "flows_fixture.h"

namespace kxc::testing {
namespace {

using ::testing::ElementsAre;

class ShowFormulaValueTest : public FlowsFixture {
 protected:
  // gCurrentFormula as the builder holds it after editing `formula`.
  void current(const std::string& formula) {
    app->setCell("A1", formula);
    openBuilderOn("A1");
    engine->clearLog();
  }
  std::string label() { return dialog().lblResult().caption(); }
  // The twenty filters sent with the last value request.
  std::vector<Variant> filtersSent() {
    auto calls = engine->callsTo("CacheGetValueAllAggregationTypes");
    EXPECT_FALSE(calls.empty());
    std::vector<Variant> out;
    if (calls.empty()) return out;
    for (std::size_t i = 3; i < calls.back().args.size(); ++i) {
      out.push_back(calls.back().args[i].value);
    }
    return out;
  }
};

TEST_F(ShowFormulaValueTest, SendsTwentyThreeArgumentsWithTheirTypes) {
  current("=BV_KXCSUM(\"Sales\",2,\"North\")");
  ShowFormulaValue();

  auto calls = engine->callsTo("CacheGetValueAllAggregationTypes");
  ASSERT_EQ(calls.size(), 1u);
  const auto& args = calls[0].args;
  ASSERT_EQ(args.size(), 23u);
  EXPECT_EQ(args[0].value, Variant("Sales"));
  EXPECT_TRUE(args[0].byRef);
  EXPECT_EQ(args[1].value, Variant(int32_t{2}));
  EXPECT_TRUE(args[1].byRef);
  EXPECT_EQ(args[2].value, Variant(int16_t{0}));
  EXPECT_FALSE(args[2].byRef);
  for (std::size_t i = 3; i < 23; ++i) EXPECT_TRUE(args[i].byRef);
  EXPECT_EQ(label(), "Value  : fmt(1,2,250)");
}

TEST_F(ShowFormulaValueTest, DimensionsTheFormulaDoesNotNameAreUnfiltered) {
  current("=BV_KXCSUM(\"Sales\",1,\"North\",\"Pears\")");
  ShowFormulaValue();

  auto filters = filtersSent();
  ASSERT_EQ(filters.size(), 20u);
  EXPECT_EQ(filters[0], Variant("North"));
  EXPECT_EQ(filters[1], Variant("Pears"));
  EXPECT_EQ(filters[2], Variant("<ALL>"));
  EXPECT_EQ(filters[4], Variant("<ALL>"));
  EXPECT_TRUE(filters[5].isEmpty());  // beyond the cache's five dimensions
  EXPECT_TRUE(filters[19].isEmpty());
}

TEST_F(ShowFormulaValueTest, AReferenceToAnEmptyCellFiltersOnTheEmptyText) {
  current("=BV_KXCSUM(\"Sales\",1,H9,,\"2004\")");
  ShowFormulaValue();

  auto filters = filtersSent();
  ASSERT_EQ(filters.size(), 20u);
  EXPECT_EQ(filters[0], Variant(""));       // H9 is empty, but the argument is not
  EXPECT_EQ(filters[1], Variant("<ALL>"));  // written as nothing between two commas
  EXPECT_EQ(filters[2], Variant("2004"));
}

TEST_F(ShowFormulaValueTest, ResolvesCacheAndMeasureButFormatsWithTheStoredIndices) {
  app->setCell("C1", "Stock");
  app->setCell("C2", "1");
  current("=BV_KXCSUM(C1,C2,\"A\")");
  gCurrentFormula.CacheIndex = 7;
  gCurrentFormula.MeasureIndex = 9;
  ShowFormulaValue();

  auto calls = engine->callsTo("CacheGetValueAllAggregationTypes");
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].args[0].value, Variant("Stock"));
  EXPECT_EQ(calls[0].args[1].value, Variant(int32_t{1}));
  auto formats = engine->callsTo("CacheFormatCurrency");
  ASSERT_EQ(formats.size(), 1u);
  EXPECT_TRUE(formats[0].args[0].byRef);
  EXPECT_TRUE(formats[0].args[1].byRef);
  EXPECT_EQ(formats[0].args[2].value, Variant(250.0));
  EXPECT_EQ(label(), "Value  : fmt(7,9,250)");
}

struct EmptyLabelCase {
  const char* cache;
  const char* measure;
};

class EmptyLabel : public ShowFormulaValueTest,
                   public ::testing::WithParamInterface<EmptyLabelCase> {};

TEST_P(EmptyLabel, WhenCacheOrMeasureIsMissing) {
  current("=BV_KXCSUM(\"Sales\",1)");
  ShowFormulaValue();
  ASSERT_FALSE(label().empty());

  gCurrentFormula.Cache = GetParam().cache;
  gCurrentFormula.Measure = GetParam().measure;
  engine->clearLog();
  ShowFormulaValue();
  EXPECT_EQ(label(), "");
  EXPECT_TRUE(engine->calls().empty());
}

INSTANTIATE_TEST_SUITE_P(NoCacheNoMeasure, EmptyLabel,
                         ::testing::Values(EmptyLabelCase{"", "1"}, EmptyLabelCase{"Sales", ""},
                                           EmptyLabelCase{"", ""}));

TEST_F(ShowFormulaValueTest, AnEngineThatCannotEvaluateShowsTheFormattingOfZero) {
  current("=BV_KXCSUM(\"Sales\",1)");
  engine->fail("CacheGetValueAllAggregationTypes", 1004, "Cannot evaluate");
  ShowFormulaValue();
  EXPECT_EQ(label(), "Value  : fmt(1,1,0)");
  EXPECT_TRUE(messages().empty());
}

TEST_F(ShowFormulaValueTest, AMeasureThatIsNoNumberIsNotSentAndZeroIsFormatted) {
  current("=BV_KXCSUM(\"Sales\",1)");
  gCurrentFormula.Measure = "Amount";
  ShowFormulaValue();
  EXPECT_TRUE(engine->callsTo("CacheGetValueAllAggregationTypes").empty());
  EXPECT_EQ(label(), "Value  : fmt(1,1,0)");
}

TEST_F(ShowFormulaValueTest, GetFormulaValueConvertsTheResultAndSwallowsFailures) {
  std::string cache = "Sales";
  int32_t measure = 1;
  DimensionFilters filters;
  engine->script("CacheGetValueAllAggregationTypes", Variant("12.5"));
  EXPECT_EQ(GetFormulaValue(cache, measure, filters), 12.5);
  engine->script("CacheGetValueAllAggregationTypes", Variant("n/a"));
  EXPECT_EQ(GetFormulaValue(cache, measure, filters), 0);
  gCacheEngine.reset();
  EXPECT_EQ(GetFormulaValue(cache, measure, filters), 0);
  EXPECT_TRUE(messages().empty());
}

}  // namespace
}  // namespace kxc::testing
