#include "flows/show_lookup.h"

#include <gtest/gtest.h>

#include "flows_fixture.h"

namespace kxc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ShowLookupTest : public FlowsFixture {
 protected:
  ShowLookupTest() { dialog(); }  // the builder shows the hourglass while a lookup runs
  Variant lookup(std::string kind, std::string cache, const Variant& current) {
    return ShowLookup(kind, cache, current).index;
  }
};

TEST_F(ShowLookupTest, CachesAreListedSinglySelectedWithTheCurrentOnePreselected) {
  std::vector<std::string> rows, keys, preselected;
  bool multi = true;
  int pointer = -1;
  auto loop = answerLookups([&](FrmLookup& l) {
    rows = lookupRows(l);
    preselected = selectedTexts(l);
    multi = l.lvList().multiSelect();
    pointer = dialog().form().mousePointer();
    for (int32_t i = 1; i <= l.lvList().listItems().count(); ++i) {
      keys.push_back(l.lvList().listItems().item(i).key());
    }
    l.cmdOk().click();
  });
  Variant result = lookup("Cache", "", Variant(int32_t{2}));

  EXPECT_EQ(result, Variant(int32_t{2}));
  EXPECT_THAT(rows, ElementsAre("Sales|", "Stock|"));
  EXPECT_THAT(keys, ElementsAre("|cache1", "|cache2"));
  EXPECT_THAT(preselected, ElementsAre("Stock"));
  EXPECT_FALSE(multi);
  EXPECT_THAT(lookupsShown, ElementsAre("Cache"));
  EXPECT_EQ(pointer, controls::kPointerHourglass);
  EXPECT_EQ(dialog().form().mousePointer(), controls::kPointerDefault);
  EXPECT_FALSE(frmLookup().form().loaded());
}

TEST_F(ShowLookupTest, MeasuresShowTheirIndexAndCaption) {
  std::vector<std::string> rows;
  auto loop = answerLookups([&](FrmLookup& l) {
    rows = lookupRows(l);
    pick(l, "3");
    l.cmdOk().click();
  });
  Variant result = lookup("Measure", "Sales", Variant(int32_t{0}));

  EXPECT_EQ(result, Variant(int32_t{3}));
  EXPECT_THAT(rows, ElementsAre("1|Amount", "2|Units", "3|Margin"));
  EXPECT_THAT(lookupsShown, ElementsAre("Measure"));
  for (const auto& call : engine->callsTo("MeasureCaption")) {
    EXPECT_EQ(call.args[0].type, VarType::Text);
    EXPECT_TRUE(call.args[0].byRef);
    EXPECT_EQ(call.args[1].type, VarType::Int32);
    EXPECT_TRUE(call.args[1].byRef);
  }
}

class PreselectsNothingOutOfRange : public ShowLookupTest,
                                    public ::testing::WithParamInterface<int32_t> {};

TEST_P(PreselectsNothingOutOfRange, ForACacheIndex) {
  std::vector<std::string> preselected{"x"};
  auto loop = answerLookups([&](FrmLookup& l) {
    preselected = selectedTexts(l);
    l.cmdCancel().click();
  });
  lookup("Cache", "", Variant(GetParam()));
  EXPECT_THAT(preselected, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(ZeroNegativeAndAboveTheCount, PreselectsNothingOutOfRange,
                         ::testing::Values(0, -1, 3));

TEST_F(ShowLookupTest, MembersFollowAnAllRowAndTheCurrentFilterIsPreselected) {
  std::vector<std::string> rows, preselected;
  std::string firstKey;
  bool multi = false;
  auto loop = answerLookups([&](FrmLookup& l) {
    rows = lookupRows(l);
    preselected = selectedTexts(l);
    multi = l.lvList().multiSelect();
    firstKey = l.lvList().listItems().item(1).key();
    pick(l, "North");
    pick(l, "West", true);
    l.cmdOk().click();
  });
  Variant result = lookup("Dim1", "Sales", Variant("<<North..South"));

  EXPECT_THAT(rows, ElementsAre("<ALL>|", "North|North (caption)", "South|South (caption)",
                                "West|West (caption)"));
  EXPECT_EQ(firstKey, "1all");
  EXPECT_THAT(preselected, ElementsAre("North", "South"));
  EXPECT_TRUE(multi);
  EXPECT_THAT(lookupsShown, ElementsAre("Region"));
  EXPECT_EQ(gLookupSelection, "<<North,West");
  EXPECT_EQ(result, Variant(int32_t{4}));
}

TEST_F(ShowLookupTest, DimensionCallsPassTheCacheAndNumbersByReference) {
  auto loop = answerLookups([](FrmLookup& l) { l.cmdCancel().click(); });
  lookup("Dim2", "Sales", Variant(""));

  for (const char* member : {"DimensionMemberCount", "DimensionMemberValue",
                             "DimensionMemberCaption", "DimensionCaption"}) {
    auto calls = engine->callsTo(member);
    ASSERT_FALSE(calls.empty()) << member;
    for (const auto& call : calls) {
      EXPECT_EQ(call.args[0].value, Variant("Sales")) << member;
      EXPECT_TRUE(call.args[0].byRef) << member;
      EXPECT_EQ(call.args[1].value, Variant(int32_t{2})) << member;
      for (std::size_t i = 1; i < call.args.size(); ++i) {
        EXPECT_EQ(call.args[i].type, VarType::Int32) << member;
        EXPECT_TRUE(call.args[i].byRef) << member;
      }
    }
  }
}

TEST_F(ShowLookupTest, ADimensionWithoutMembersListsOnlyTheAllRow) {
  scriptCaches(*engine, {{"Empty", {{"Nothing", {}}}, {"M"}}});
  std::vector<std::string> rows;
  auto loop = answerLookups([&](FrmLookup& l) {
    rows = lookupRows(l);
    l.cmdCancel().click();
  });
  lookup("Dim1", "Empty", Variant(""));
  EXPECT_THAT(rows, ElementsAre("<ALL>|"));
}

TEST_F(ShowLookupTest, CancelReturnsMinusOneAndKeepsTheSelectionText) {
  gLookupSelection = "earlier";
  auto loop = answerLookups([](FrmLookup& l) {
    l.lvList().clickItem(2);
    l.cmdCancel().click();
  });
  EXPECT_EQ(lookup("Dim1", "Sales", Variant("")), Variant(int32_t{-1}));
  EXPECT_EQ(gLookupSelection, "earlier");
}

struct KindCase {
  const char* kind;
  bool dimension;
};

class DimensionKinds : public ::testing::TestWithParam<KindCase> {};

// Plain code-unit comparison against "Dim1".."Dim9" and "Dim10".."Dim20": "Dim21" and "Dim100"
// sort between "Dim1" and "Dim9", "Dim91" after "Dim9" and after "Dim20".
TEST_P(DimensionKinds, FollowThePlainComparison) {
  EXPECT_EQ(isDimensionKind(GetParam().kind), GetParam().dimension) << GetParam().kind;
}

INSTANTIATE_TEST_SUITE_P(Kinds, DimensionKinds,
                         ::testing::Values(KindCase{"Dim1", true}, KindCase{"Dim9", true},
                                           KindCase{"Dim10", true}, KindCase{"Dim20", true},
                                           KindCase{"Dim100", true}, KindCase{"Dim21", true},
                                           KindCase{"Dim2x", true}, KindCase{"Dim91", false},
                                           KindCase{"Dim0", false}, KindCase{"Dim", false},
                                           KindCase{"dim1", false}, KindCase{"Cache", false},
                                           KindCase{"", false}));

TEST_F(ShowLookupTest, AKindThatIsNoneShowsTheEmptyDialog) {
  std::vector<std::string> rows{"x"};
  auto loop = answerLookups([&](FrmLookup& l) {
    rows = lookupRows(l);
    l.cmdOk().click();
  });
  Variant result = lookup("Dim91", "Sales", Variant("North"));

  EXPECT_THAT(rows, IsEmpty());
  EXPECT_EQ(lookupsShown.size(), 1u);
  EXPECT_TRUE(engine->calls().empty());
  EXPECT_EQ(result, Variant(int32_t{0}));
}

TEST_F(ShowLookupTest, TheNumberOfAWideKindGoesToTheEngineUnchanged) {
  auto loop = answerLookups([](FrmLookup& l) { l.cmdCancel().click(); });
  lookup("Dim100", "Sales", Variant(""));

  auto counts = engine->callsTo("DimensionMemberCount");
  ASSERT_EQ(counts.size(), 1u);
  EXPECT_EQ(counts[0].args[1].value, Variant(int32_t{100}));
  // The sample engine has no dimension 100 and says so.
  EXPECT_THAT(messages(), ElementsAre(MessageRecord{
                              "Subscript out of range TmCacheCommon ShowLookup", "Error", 48}));
}

TEST_F(ShowLookupTest, AnEngineFailureIsReportedAndGivesAnEmptyResult) {
  engine->fail("DimensionMemberValue", 1004, "Member store unavailable");
  bool shown = false;
  auto loop = answerLookups([&](FrmLookup&) { shown = true; });
  Variant result = lookup("Dim1", "Sales", Variant(""));

  EXPECT_TRUE(result.isEmpty());
  EXPECT_FALSE(shown);
  EXPECT_THAT(messages(), ElementsAre(MessageRecord{
                              "Member store unavailable TmCacheCommon ShowLookup", "Error", 48}));
  EXPECT_EQ(dialog().form().mousePointer(), controls::kPointerHourglass);
}

class LookupDimensionTest : public FlowsFixture {
 protected:
  LookupDimensionTest() {
    app->setCell("A1", "=BV_KXCSUM(\"Sales\",1,\"North\",\"Pears\")");
    openBuilderOn("A1");
  }
};

TEST_F(LookupDimensionTest, WidensTheArgumentsAndStoresTheChosenMembers) {
  auto loop = answerLookups([](FrmLookup& l) {
    pick(l, "Retail");
    pick(l, "Web", true);
    l.cmdOk().click();
  });
  int32_t d = 4;
  EXPECT_EQ(LookupDimension(d), 3);

  EXPECT_EQ(gCurrentFormula.DimCount, 5);
  EXPECT_EQ(gCurrentFormula.Dims(1), "North");
  EXPECT_EQ(gCurrentFormula.Dims(2), "Pears");
  EXPECT_EQ(gCurrentFormula.Dims(4), "<<Retail,Web");  // the last two rows form no run
  EXPECT_THAT(lookupsShown, ElementsAre("Channel"));
  EXPECT_EQ(dialog().form().mousePointer(), controls::kPointerDefault);
}

TEST_F(LookupDimensionTest, PreselectsTheResolvedCurrentFilter) {
  app->setCell("F1", "South");
  gCurrentFormula.Dims(1) = "F1";
  std::vector<std::string> preselected;
  auto loop = answerLookups([&](FrmLookup& l) {
    preselected = selectedTexts(l);
    l.cmdCancel().click();
  });
  int32_t d = 1;
  LookupDimension(d);
  EXPECT_THAT(preselected, ElementsAre("South"));
}

TEST_F(LookupDimensionTest, CancelLeavesTheFilterUnchanged) {
  gLookupSelection = "earlier";
  auto loop = answerLookups([](FrmLookup& l) { l.cmdCancel().click(); });
  int32_t d = 1;
  EXPECT_EQ(LookupDimension(d), -1);
  EXPECT_EQ(gCurrentFormula.Dims(1), "North");
}

TEST_F(LookupDimensionTest, AFailedLookupStoresTheEarlierSelectionText) {
  gLookupSelection = "earlier";
  engine->fail("DimensionMemberCount", 1004, "No members");
  int32_t d = 2;
  EXPECT_EQ(LookupDimension(d), 0);
  EXPECT_EQ(gCurrentFormula.Dims(2), "earlier");
  EXPECT_EQ(messages().size(), 1u);
}

TEST_F(FlowsFixture, ALookupFromTheSheetLeavesTheBuilderUnmade) {
  auto loop = answerLookups([](FrmLookup& l) { l.cmdCancel().click(); });
  std::string kind = "Cache", cache;
  EXPECT_EQ(ShowLookup(kind, cache, Variant()).index, Variant(int32_t{-1}));
  EXPECT_EQ(context().find<FrmCacheFormula>(), nullptr);
}

}  // namespace
}  // namespace kxc::testing
