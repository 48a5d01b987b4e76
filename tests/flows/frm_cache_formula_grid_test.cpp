// The builder's dimension grid, its member lookup, cell capture and F4 reference toggling.
#include <gtest/gtest.h>

#include "dialogs/frm_cache_formula.h"
#include "flows/flows_fixture.h"

namespace kxc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DimensionGridTest : public FlowsFixture {
 protected:
  DimensionGridTest() {
    app->setCell("H1", "Pears");
    app->setCell("B2", "=BV_KXCSUM(\"Sales\",2,\"North\",\"<ALL>\",\"2004\")");
    openBuilderOn("B2");
  }
  controls::ListView& grid() { return dialog().lvDimensions(); }
};

TEST_F(DimensionGridTest, ClickingARowPutsItsFilterInTheEditor) {
  grid().clickItem(1);
  EXPECT_EQ(dialog().lblDimensions().caption(), "Region");
  EXPECT_EQ(dialog().lblDimensionsVal().caption(), "North");
  EXPECT_EQ(dialog().txtDimensions().text(), "North");
  EXPECT_TRUE(dialog().txtDimensions().hasFocus());
  EXPECT_EQ(dialog().txtDimensions().backColor(), controls::kColorWhite);
  EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(DimensionGridTest, ClickingBelowTheRowsFocusesTheEditor) {
  grid().clickItem(0);
  EXPECT_TRUE(dialog().txtDimensions().hasFocus());
}

TEST_F(DimensionGridTest, TypingAFilterStoresItAsTyped) {
  grid().clickItem(2);
  dialog().txtDimensions().setText("H1");

  EXPECT_EQ(gCurrentFormula.Dims(2), "H1");
  EXPECT_EQ(gridRows()[1], "Product|H1|Pears");
  EXPECT_EQ(dialog().lblDimensionsVal().caption(), "Pears");
  EXPECT_EQ(dialog().txtDimensions().backColor(), controls::kColorYellow);
  dialog().cmdOk().click();
  EXPECT_EQ(formulaOf("B2"), "=BV_KXCSUM(\"Sales\",2,\"North\",H1,\"2004\")");
}

TEST_F(DimensionGridTest, TypingInARowBeyondTheArgumentsWidensThem) {
  grid().clickItem(4);
  dialog().txtDimensions().setText("Web");

  EXPECT_EQ(gCurrentFormula.DimCount, 5);
  EXPECT_EQ(gCurrentFormula.Dims(3), "2004");
  EXPECT_EQ(gCurrentFormula.Dims(4), "Web");
  dialog().cmdOk().click();
  EXPECT_EQ(formulaOf("B2"), "=BV_KXCSUM(\"Sales\",2,\"North\",\"<ALL>\",\"2004\",\"Web\")");
}

TEST_F(DimensionGridTest, TypingWithNoRowSelectedChangesNothing) {
  dialog().txtDimensions().setText("South");
  EXPECT_EQ(gCurrentFormula.Dims(1), "North");
  EXPECT_EQ(gridRows()[0], "Region|North|North");
  EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(DimensionGridTest, AFailureWhileTypingIsReported) {
  grid().clickItem(1);
  engine->fail("DimensionCount", 1004, "Cache closed");
  dialog().txtDimensions().setText("South");
  EXPECT_THAT(messages(),
              ElementsAre(MessageRecord{"Cache closed Txt Dimensions OnChange", "Error", 48}));
}

TEST_F(DimensionGridTest, DoubleClickingARowPicksMembersWhoseSelectionTextLandsInTheFormula) {
  grid().clickItem(1);
  std::vector<std::string> preselected;
  {
    auto loop = answerLookups([&](FrmLookup& l) {
      preselected = selectedTexts(l);
      pick(l, "North");
      pick(l, "South", true);
      l.cmdOk().click();
    });
    grid().doubleClick();
  }
  EXPECT_THAT(preselected, ElementsAre("North"));
  EXPECT_EQ(gCurrentFormula.Dims(1), "<<North..South");
  EXPECT_EQ(gridRows()[0], "Region|<<North..South|<<North..South");
  EXPECT_EQ(dialog().txtDimensions().text(), "<<North..South");
  EXPECT_TRUE(dialog().txtDimensions().hasFocus());
  dialog().cmdOk().click();
  EXPECT_EQ(formulaOf("B2"), "=BV_KXCSUM(\"Sales\",2,\"<<North..South\",\"<ALL>\",\"2004\")");
}

TEST_F(DimensionGridTest, TheDimensionButtonPicksForTheSelectedRow) {
  grid().clickItem(5);
  {
    auto loop = answerLookups([](FrmLookup& l) {
      pick(l, "Feb");
      l.cmdOk().click();
    });
    dialog().cmdDimension().click();
  }
  EXPECT_EQ(gCurrentFormula.DimCount, 5);
  EXPECT_EQ(gCurrentFormula.Dims(5), "Feb");
  EXPECT_EQ(gridRows()[4], "Month|Feb|Feb");
  EXPECT_EQ(dialog().lblResult().caption(), "Value  : fmt(1,2,250)");
}

TEST_F(DimensionGridTest, ACancelledMemberLookupChangesNothing) {
  grid().clickItem(1);
  auto loop = answerLookups([](FrmLookup& l) { l.cmdCancel().click(); });
  dialog().cmdDimension().click();
  EXPECT_EQ(gCurrentFormula.Dims(1), "North");
  EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(DimensionGridTest, TheDimensionButtonWithoutASelectedRowIsReported) {
  dialog().cmdDimension().click();
  EXPECT_THAT(messages(), ElementsAre(MessageRecord{
                              "Object variable or With block variable not set Cmd Dimension Click",
                              "Error", 48}));
}

TEST_F(DimensionGridTest, ACacheWithMoreThanTwentyDimensionsShowsTwenty) {
  std::vector<DimensionSpec> dims;
  for (int i = 1; i <= 23; ++i) dims.push_back({"D" + std::to_string(i), {"m"}});
  scriptCaches(*engine, {{"Wide", dims, {"M"}}});
  auto loop = answerLookups([](FrmLookup& l) {
    pick(l, "Wide");
    l.cmdOk().click();
  });
  dialog().cmdCache().click();
  EXPECT_EQ(gridRows().size(), 20u);
  EXPECT_EQ(gCurrentFormula.DimCount, 23);
}

// Cell capture: the edited cell is B5 of Sheet1 in Book1.xlsx.
struct CaptureCase {
  const char* clicked;
  const char* reference;
};

class CellCapture : public FlowsFixture, public ::testing::WithParamInterface<CaptureCase> {
 protected:
  CellCapture() {
    app->addSheet("Book1.xlsx", "O'Neil");
    app->addWorkbook("Book2.xlsx");
    app->activateSheet("Book1.xlsx", "Sheet1");
    openBuilderOn("B5");
  }
};

TEST_P(CellCapture, WritesTheAnchoredReferenceIntoTheFocusedBox) {
  dialog().txtCache().setFocus();
  app->select(GetParam().clicked);
  EXPECT_EQ(dialog().txtCache().text(), GetParam().reference) << GetParam().clicked;
  EXPECT_EQ(dialog().txtCache().backColor(), controls::kColorYellow);
}

INSTANTIATE_TEST_SUITE_P(Clicks, CellCapture,
                         ::testing::Values(CaptureCase{"C5", "$C5"},      // the edited cell's row
                                           CaptureCase{"B9", "B$9"},      // its column
                                           CaptureCase{"D7", "$D$7"},     // elsewhere
                                           CaptureCase{"B5", "$B5"},      // the edited cell itself
                                           CaptureCase{"D7:E9", "$D$7"},  // a block: its first cell
                                           CaptureCase{"Sheet2!D7", "'Sheet2'!$D$7"},
                                           CaptureCase{"'O''Neil'!B9", "'O''Neil'!B$9"},
                                           CaptureCase{"[Book2.xlsx]Sheet1!D7",
                                                       "[Book2.xlsx]Sheet1!$D$7"}));

class CellCaptureTest : public CellCapture {};

TEST_F(CellCaptureTest, NothingIsWrittenWhileAButtonOrTheGridHasTheFocus) {
  dialog().txtCache().setText("Sales");
  dialog().cmdOk().setFocus();
  app->select("D7");
  dialog().lvDimensions().setFocus();
  app->select("D8");
  EXPECT_EQ(dialog().txtCache().text(), "Sales");
}

TEST_F(CellCaptureTest, ACapturedFilterIsStoredInTheFormula) {
  app->setCell("D7", "West");
  dialog().lvDimensions().clickItem(1);
  app->select("D7");
  EXPECT_EQ(dialog().txtDimensions().text(), "$D$7");
  EXPECT_EQ(gCurrentFormula.Dims(1), "$D$7");
  EXPECT_EQ(gridRows()[0], "Region|$D$7|West");
}

TEST_F(CellCaptureTest, ANamedCellIsCapturedAsItsName) {
  app->defineName("Target", "D7");
  dialog().txtMeasureIndex().setFocus();
  app->select("D7");
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "Target");
}

TEST_F(CellCaptureTest, CaptureEndsWhenTheDialogCloses) {
  dialog().txtCache().setFocus();
  dialog().cmdCancel().click();
  app->select("D7");
  EXPECT_EQ(dialog().txtCache().text(), "Sales");
  EXPECT_THAT(messages(), IsEmpty());
}

// F4 reference toggling.
struct ToggleCase {
  const char* before;
  const char* after;
};

class ReferenceToggling : public FlowsFixture, public ::testing::WithParamInterface<ToggleCase> {
 protected:
  ReferenceToggling() { openBuilderOn("A1"); }
};

TEST_P(ReferenceToggling, MovesToTheNextAnchoring) {
  dialog().txtCache().setText(GetParam().before);
  EXPECT_EQ(dialog().txtCache().keyDown(controls::keys::kF4, 0), 0);
  EXPECT_EQ(dialog().txtCache().text(), GetParam().after) << GetParam().before;
}

INSTANTIATE_TEST_SUITE_P(
    Cycle, ReferenceToggling,
    ::testing::Values(ToggleCase{"$A$1", "A$1"}, ToggleCase{"A$1", "$A1"}, ToggleCase{"$A1", "A1"},
                      ToggleCase{"A1", "$A$1"}, ToggleCase{"A1:B2", "$A$1:$B$2"},
                      ToggleCase{"Sheet2!$B$3", "Sheet2!B$3"},
                      ToggleCase{"'Sheet2'!B3", "'Sheet2'!$B$3"},
                      ToggleCase{"$a$1", ""}));  // no anchoring matches: the box empties

class ReferenceTogglingTest : public ReferenceToggling {};

TEST_F(ReferenceTogglingTest, OtherKeysShiftF4AndNonReferencesChangeNothing) {
  auto& box = dialog().txtMeasureIndex();
  box.setText("$C$2");
  EXPECT_EQ(box.keyDown(controls::keys::kF4, controls::keys::kShift), controls::keys::kF4);
  EXPECT_EQ(box.keyDown(116, 0), 116);
  EXPECT_EQ(box.text(), "$C$2");
  box.setText("North");
  EXPECT_EQ(box.keyDown(controls::keys::kF4, 0), controls::keys::kF4);
  EXPECT_EQ(box.text(), "North");
}

TEST_F(ReferenceTogglingTest, TheDimensionEditorTogglesAndStoresTheResult) {
  dialog().lvDimensions().clickItem(1);
  dialog().txtDimensions().setText("C4");
  dialog().txtDimensions().keyDown(controls::keys::kF4, 0);
  EXPECT_EQ(gCurrentFormula.Dims(1), "$C$4");
}

}  // namespace
}  // namespace kxc::testing
