#include "flows/show_formula_edit.h"

#include <gtest/gtest.h>

#include "facade/cache_ui.h"
#include "flows_fixture.h"

namespace kxc::testing {
namespace {

using ::testing::ElementsAre;

class ShowFormulaEditTest : public FlowsFixture {};

class OpensWithoutFormula : public ShowFormulaEditTest,
                            public ::testing::WithParamInterface<const char*> {};

TEST_P(OpensWithoutFormula, OnTheRememberedCacheWithNoArguments) {
  remember("CacheName", "Stock");
  if (*GetParam()) app->setCell("A1", GetParam());
  openBuilderOn("A1");

  EXPECT_TRUE(dialog().form().visible());
  EXPECT_EQ(dialog().txtCache().text(), "Stock");
  EXPECT_EQ(dialog().lblCacheVal().caption(), "Stock");
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "");
  EXPECT_THAT(gridRows(), ElementsAre("Warehouse||", "Item||"));
  EXPECT_TRUE(dialog().frDim().enabled());
  EXPECT_EQ(gCurrentFormula.Cache, "Stock");
  EXPECT_EQ(gCurrentFormula.CacheIndex, 2);
  auto loads = engine->callsTo("EnsureCacheLoad");
  ASSERT_EQ(loads.size(), 1u);
  EXPECT_TRUE(loads[0].args[0].byRef);
  EXPECT_EQ(loads[0].args[0].value, Variant("Stock"));
  EXPECT_TRUE(messages().empty());
}

INSTANTIATE_TEST_SUITE_P(EmptyCellAndEmptyCall, OpensWithoutFormula,
                         ::testing::Values("", "=bv_kxcsum()"));

TEST_F(ShowFormulaEditTest, FillsTheDialogFromALoadableFormula) {
  app->setCell("B2", "=BV_KXCSUM(\"Sales\",2,\"North\",\"<ALL>\",\"2004\")");
  openBuilderOn("B2");

  EXPECT_EQ(dialog().txtCache().text(), "Sales");
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "2");
  EXPECT_EQ(dialog().lblMeasureIndexVal().caption(), "Units");
  EXPECT_THAT(gridRows(), ElementsAre("Region|North|North", "Product|<ALL>|<ALL>", "Year|2004|2004",
                                      "Channel||", "Month||"));
  EXPECT_EQ(dialog().lvDimensions().listItems().item(1).key(), "D1");
  EXPECT_EQ(dialog().lvDimensions().listItems().item(5).key(), "D5");
  EXPECT_EQ(dialog().lblResult().caption(), "Value  : fmt(1,2,250)");
  auto loads = engine->callsTo("EnsureCacheLoad");
  ASSERT_EQ(loads.size(), 1u);
  EXPECT_FALSE(loads[0].args[0].byRef);
}

TEST_F(ShowFormulaEditTest, ACacheTheEngineRejectsFallsBackToTheRememberedOne) {
  remember("CacheName", "Stock");
  app->setCell("A1", "=BV_KXCSUM(\"Gone\",2,\"North\")");
  openBuilderOn("A1");

  EXPECT_EQ(dialog().txtCache().text(), "Stock");
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "");
  EXPECT_EQ(gCurrentFormula.Measure, "");
  EXPECT_THAT(gridRows(), ElementsAre("Warehouse||", "Item||"));
  EXPECT_TRUE(dialog().form().visible());
  EXPECT_THAT(messages(), ElementsAre());
}

TEST_F(ShowFormulaEditTest, NoCacheAtAllDisablesTheCacheControls) {
  scriptCaches(*engine, {});
  openBuilderOn("A1");

  EXPECT_TRUE(dialog().form().visible());
  EXPECT_FALSE(dialog().frDim().enabled());
  EXPECT_FALSE(dialog().cmdMeasureIndex().enabled());
  EXPECT_FALSE(dialog().txtMeasureIndex().enabled());
  EXPECT_TRUE(dialog().txtCache().enabled());
  EXPECT_TRUE(messages().empty());
}

TEST_F(ShowFormulaEditTest, ARememberedCacheTheEngineRejectsDisablesEvenWithOtherCaches) {
  remember("CacheName", "Gone");
  openBuilderOn("A1");

  EXPECT_FALSE(dialog().frDim().enabled());
  EXPECT_EQ(dialog().txtCache().text(), "");
  EXPECT_TRUE(engine->callsTo("CacheCount").empty());
}

TEST_F(ShowFormulaEditTest, TheControlsComeBackEnabledWhenTheFormLoadsAgain) {
  remember("CacheName", "Gone");
  openBuilderOn("A1");
  dialog().cmdCancel().click();
  remember("CacheName", "Sales");
  openBuilderOn("A1");

  EXPECT_TRUE(dialog().frDim().enabled());
  EXPECT_TRUE(dialog().txtMeasureIndex().enabled());
}

TEST_F(ShowFormulaEditTest, WithoutARememberedCacheTheFirstCacheIsNamedByTheShortIndexOne) {
  openBuilderOn("A1");

  EXPECT_EQ(dialog().txtCache().text(), "Sales");
  EXPECT_EQ(engine->callsTo("CacheCount").size(), 1u);
  auto names = engine->callsTo("cachename");
  ASSERT_FALSE(names.empty());
  EXPECT_EQ(names[0].args[0].type, VarType::Int16);
  EXPECT_FALSE(names[0].args[0].byRef);
  EXPECT_EQ(gridRows().size(), 5u);
}

TEST_F(ShowFormulaEditTest, AnEmptyRememberedNameTakesTheFirstCacheWithoutCounting) {
  remember("CacheName", "");
  openBuilderOn("A1");

  EXPECT_EQ(dialog().txtCache().text(), "Sales");
  EXPECT_TRUE(engine->callsTo("CacheCount").empty());
}

TEST_F(ShowFormulaEditTest, ThreeArgumentsOnAFiveDimensionCacheListFiveRows) {
  app->setCell("A1", "=BV_KXCSUM(\"Sales\",1,\"North\",\"Pears\",\"2003\")");
  openBuilderOn("A1");

  EXPECT_THAT(gridRows(), ElementsAre("Region|North|North", "Product|Pears|Pears", "Year|2003|2003",
                                      "Channel||", "Month||"));
}

TEST_F(ShowFormulaEditTest, MoreArgumentsThanTheCacheHasAreAllListed) {
  engine->script("DimensionCaption",
                 [](Arguments a) { return Variant("D" + argAt(a, 1).toText()); });
  app->setCell("A1", "=BV_KXCSUM(\"Stock\",1,\"A\",\"Bolts\",\"x\",\"y\")");
  openBuilderOn("A1");

  EXPECT_THAT(gridRows(), ElementsAre("D1|A|A", "D2|Bolts|Bolts", "D3|x|x", "D4|y|y"));
}

TEST_F(ShowFormulaEditTest, AFormulaWithoutMeasureTakesTheRememberedMeasureUnrounded) {
  remember("MeasureIndex", "2.6");
  app->setCell("A1", "=BV_KXCSUM(\"Sales\")");
  openBuilderOn("A1");

  EXPECT_EQ(dialog().txtMeasureIndex().text(), "2.6");
  EXPECT_EQ(gCurrentFormula.Measure, "2.6");
  EXPECT_EQ(gCurrentFormula.MeasureIndex, 3);
  EXPECT_EQ(dialog().lblMeasureIndexVal().caption(), "Margin");
}

TEST_F(ShowFormulaEditTest, TheBuilderIsOwnedByTheHostWindowAndGivesItsOwnerBackOnClosing) {
  dialog().form().setOwner(77);
  openBuilderOn("A1");
  EXPECT_EQ(dialog().form().owner(), 2);  // the second window's title starts with the caption

  dialog().cmdCancel().click();
  EXPECT_EQ(dialog().form().owner(), 77);
}

TEST_F(ShowFormulaEditTest, WithoutAHostWindowTheBuilderHasNoOwnerAndIsStillShown) {
  services->windowTitles = {"Terminal"};
  openBuilderOn("A1");

  EXPECT_EQ(dialog().form().owner(), 0);
  EXPECT_TRUE(dialog().form().visible());
}

TEST_F(ShowFormulaEditTest, AnEngineFailureIsReportedAndLeavesTheDialogHidden) {
  engine->fail("EnsureCacheLoad", 1004, "Cache store unavailable");
  app->setCell("A1", "=BV_KXCSUM(\"Sales\",1)");
  openBuilderOn("A1");

  EXPECT_THAT(messages(),
              ElementsAre(MessageRecord{"Cache store unavailable TmCacheCommon ShowFormulaEdit",
                                        "Error", 48}));
  EXPECT_TRUE(dialog().form().loaded());
  EXPECT_FALSE(dialog().form().visible());
}

TEST_F(ShowFormulaEditTest, TheFacadeReachesTheFlowThroughItsHook) {
  app->setCell("C3", "=BV_KXCSUM(\"Stock\",1,\"B\")");
  app->select("C3");
  std::string formula = "=BV_KXCSUM(\"Stock\",1,\"B\")";
  CacheUI().ShowFormulaBuilder(formula);

  EXPECT_TRUE(dialog().form().visible());
  EXPECT_EQ(dialog().txtCache().text(), "Stock");
  EXPECT_EQ(gActiveCell->address(), "$C$3");
}

}  // namespace
}  // namespace kxc::testing
