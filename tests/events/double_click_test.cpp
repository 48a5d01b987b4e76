#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "events_fixture.h"

namespace kxc::testing {
namespace {

class DoubleClickTest : public HostFixture {
 protected:
  DoubleClickTest() { app->setCell("C1", "2003"); }

  void setDependents(const std::vector<std::string>& formulas) {
    int row = 5;
    for (const std::string& f : formulas) app->setCell("B" + std::to_string(row++), f);
  }
};

TEST_F(DoubleClickTest, LowerCaseCacheFormulaOpensTheBuilderInsteadOfEditing) {
  app->setCell("B2", "=bv_kxcsum(\"Sales\",2,\"North\")");
  EXPECT_TRUE(app->doubleClick("B2"));
  EXPECT_TRUE(dialog().form().visible());
  EXPECT_EQ(dialog().txtCache().text(), "Sales");
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "2");
  ASSERT_NE(gActiveCell, nullptr);
  EXPECT_EQ(gActiveCell->address(), "$B$2");
}

TEST_F(DoubleClickTest, LooksAtTheActiveCellNotTheTargetAndHonoursAnEarlierCancel) {
  app->setCell("B2", "=BV_KXCSUM(\"Stock\",1)");
  app->select("B2");
  bool cancel = true;
  gExcelSink->oExcel_SheetBeforeDoubleClick(sheet1(), app->range("C1"), cancel);
  EXPECT_FALSE(dialog().form().visible());
  cancel = false;
  gExcelSink->oExcel_SheetBeforeDoubleClick(sheet1(), app->range("C1"), cancel);
  EXPECT_TRUE(cancel);
  EXPECT_EQ(dialog().txtCache().text(), "Stock");
}

struct DimensionCase {
  std::vector<std::string> dependents;  // formulas in B5, B6, ...
  std::string lookupCaption;            // the dimension whose members are offered
};

class DimensionCellTest : public DoubleClickTest,
                          public ::testing::WithParamInterface<DimensionCase> {};

TEST_P(DimensionCellTest, OpensTheLookupOfThatDimension) {
  setDependents(GetParam().dependents);
  auto loop = answerLookups([](FrmLookup& l) { l.cmdCancel().click(); });
  EXPECT_TRUE(app->doubleClick("C1"));
  EXPECT_EQ(lookupsShown, std::vector<std::string>{GetParam().lookupCaption});
  EXPECT_EQ(gCurrentFormula.Cache, "Sales");
  EXPECT_TRUE(messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    References, DimensionCellTest,
    ::testing::Values(
        DimensionCase{{"=BV_KXCSUM(\"Sales\",1,C1)"}, "Region"},
        DimensionCase{{"=BV_KXCSUM(\"Sales\",1,\"North\",c$1)"}, "Product"},
        DimensionCase{{"=BV_KXCSUM(\"Sales\",1,,,Sheet1!$C$1)"}, "Year"},
        // The first cache formula uses the cell as its cache; the walk goes on to the next.
        DimensionCase{{"=BV_KXCSUM(C1,1)", "=BV_KXCSUM(\"Sales\",1,\"North\",$C1)"}, "Product"},
        DimensionCase{{"=SUM(C1)", "=BV_KXCSUM(\"Sales\",1,C1,C1)"}, "Region"}));

TEST_F(DoubleClickTest, ChosenMemberIsWrittenIntoTheThirdDimensionCell) {
  setDependents({"=BV_KXCSUM(\"Sales\",1,\"North\",\"<ALL>\",$C$1)"});
  std::vector<std::string> preselected;
  auto loop = answerLookups([&](FrmLookup& l) {
    preselected = selectedTexts(l);
    pick(l, "2004");
    l.cmdOk().click();
  });
  EXPECT_TRUE(app->doubleClick("C1"));
  EXPECT_EQ(lookupsShown, std::vector<std::string>{"Year"});
  EXPECT_EQ(preselected, std::vector<std::string>{"2003"});
  EXPECT_EQ(app->range("C1")->value(), Variant(2004.0));
  auto loads = engine->callsTo("EnsureCacheLoad");
  ASSERT_EQ(loads.size(), 1u);
  EXPECT_TRUE(loads[0].args[0].byRef);
  EXPECT_EQ(loads[0].args[0].value, Variant("Sales"));
}

TEST_F(DoubleClickTest, CancelledLookupLeavesTheCellButStillCancelsEditing) {
  setDependents({"=BV_KXCSUM(\"Sales\",1,\"North\",\"<ALL>\",$C$1)"});
  auto loop = answerLookups([](FrmLookup& l) {
    pick(l, "2004");
    l.cmdCancel().click();
  });
  EXPECT_TRUE(app->doubleClick("C1"));
  EXPECT_EQ(app->range("C1")->value(), Variant(2003.0));
}

class NoReactionTest : public DoubleClickTest,
                       public ::testing::WithParamInterface<std::vector<std::string>> {};

TEST_P(NoReactionTest, TheHostEditsTheCell) {
  setDependents(GetParam());
  bool shown = false;
  auto loop = answerLookups([&](FrmLookup&) { shown = true; });
  EXPECT_FALSE(app->doubleClick("C1"));
  EXPECT_FALSE(shown);
  EXPECT_FALSE(dialog().form().visible());
  EXPECT_EQ(app->range("C1")->value(), Variant(2003.0));
  EXPECT_TRUE(messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Cells, NoReactionTest,
    ::testing::Values(std::vector<std::string>{},  // no dependents at all
                      std::vector<std::string>{"=C1*2", "=SUM(C1,4)"},
                      std::vector<std::string>{"=BV_KXCSUM(C1,1,\"North\")"},   // the cache
                      std::vector<std::string>{"=BV_KXCSUM(\"Sales\",C1)"},     // the measure
                      std::vector<std::string>{"=-BV_KXCSUM(\"Sales\",1,C1)"},  // negated
                      std::vector<std::string>{"=SUM(BV_KXCSUM(\"Sales\",1,C1))"}));

TEST_F(DoubleClickTest, NegatedCacheFormulaDoesNotOpenTheBuilder) {
  app->setCell("B2", "=-BV_KXCSUM(\"Sales\",2,\"North\")");
  EXPECT_FALSE(app->doubleClick("B2"));
  EXPECT_FALSE(dialog().form().visible());
}

TEST_F(DoubleClickTest, EngineFailureIsReportedAndEditingGoesOn) {
  setDependents({"=BV_KXCSUM(\"Sales\",1,C1)"});
  engine->fail("EnsureCacheLoad", 5, "Engine down");
  EXPECT_FALSE(app->doubleClick("C1"));
  EXPECT_EQ(messages(), (std::vector<MessageRecord>{
                            {"Engine down TmExcel Events-SheetBeforeDoubleClick", "Error", 48}}));
}

}  // namespace
}  // namespace kxc::testing
