#include "dialogs/frm_cache_formula.h"

#include <gtest/gtest.h>

#include "dialogs/transactions_view.h"
#include "flows/flows_fixture.h"
#include "platform/object_factory.h"

namespace kxc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kSalesFormula = "=BV_KXCSUM(\"Sales\",2,\"North\",\"<ALL>\",\"2004\")";

class FrmCacheFormulaTest : public FlowsFixture {
 protected:
  void openOnSales() {
    app->setCell("B2", kSalesFormula);
    openBuilderOn("B2");
  }
  // Answers the next lookups by picking the row `text` and pressing OK.
  controls::ScopedModalLoop choose(const std::string& text) {
    return answerLookups([text](FrmLookup& l) {
      pick(l, text);
      l.cmdOk().click();
    });
  }
};

struct ControlCase {
  const char* name;
  const char* type;
  const char* caption;  // after loading with the sample catalogue; "" for no caption check
};

class ControlsByName : public FrmCacheFormulaTest,
                       public ::testing::WithParamInterface<ControlCase> {};

TEST_P(ControlsByName, ExistWithTheirKindAndTranslatedCaption) {
  dialog().form().load();
  controls::Control* control = dialog().form().findControl(GetParam().name);
  ASSERT_NE(control, nullptr) << GetParam().name;
  EXPECT_EQ(control->typeName(), GetParam().type);
  if (*GetParam().caption) {
    EXPECT_EQ(control->caption(), GetParam().caption);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Design, ControlsByName,
    ::testing::Values(
        ControlCase{"frCache", "Frame", ""}, ControlCase{"lblCache", "Label", "Cache"},
        ControlCase{"txtCache", "TextBox", ""}, ControlCase{"cmdCache", "CommandButton", "..."},
        ControlCase{"lblCacheVal", "Label", ""}, ControlCase{"lblMeasureIndex", "Label", "Measure"},
        ControlCase{"txtMeasureIndex", "TextBox", ""},
        ControlCase{"cmdMeasureIndex", "CommandButton", "..."},
        ControlCase{"lblMeasureIndexVal", "Label", ""}, ControlCase{"frDim", "Frame", "Dimensions"},
        ControlCase{"lblDimensions", "Label", "Dimensions"},
        ControlCase{"txtDimensions", "TextBox", ""},
        ControlCase{"cmdDimension", "CommandButton", "..."},
        ControlCase{"lvDimensions", "ListView", ""}, ControlCase{"lblDimensionsVal", "Label", ""},
        ControlCase{"lblResult", "Label", ""}, ControlCase{"cmdOk", "CommandButton", "&OK"},
        ControlCase{"cmdCancel", "CommandButton", "&Cancel"},
        ControlCase{"Filemnu", "Menu", "&File"},
        ControlCase{"FilemnuCachMan", "Menu", "Kestra &Manager"},
        ControlCase{"FilemnuCachTransDrill", "Menu", "Transaction &Drilldown"},
        ControlCase{"fileSepar", "Menu", "-"}, ControlCase{"FilemnuExit", "Menu", "E&xit"},
        ControlCase{"Helpmnu", "Menu", "&Help"},
        ControlCase{"AboutmnuHelp", "Menu", "&Help Topics"}));

TEST_F(FrmCacheFormulaTest, LoadingTranslatesTheCaptionAndLaysOutTheGrid) {
  dialog().form().load();
  EXPECT_EQ(dialog().form().caption(), "Cache Formula");
  const auto& columns = dialog().lvDimensions().columnHeaders();
  ASSERT_EQ(columns.count(), 3);
  EXPECT_EQ(columns.item(1).key(), "1a");
  EXPECT_EQ(columns.item(1).text(), "Dimension");
  EXPECT_EQ(columns.item(2).key(), "2a");
  EXPECT_EQ(columns.item(2).text(), "Filter");
  EXPECT_EQ(columns.item(3).key(), "3a");
  EXPECT_EQ(columns.item(3).text(), "Member");
  const auto menus = dialog().form().menus();
  ASSERT_EQ(menus.size(), 2u);
  EXPECT_EQ(menus[0]->name(), "Filemnu");
  std::vector<std::string> items;
  for (auto* item : menus[0]->items()) items.push_back(item->name());
  EXPECT_THAT(items,
              ElementsAre("FilemnuCachMan", "FilemnuCachTransDrill", "fileSepar", "FilemnuExit"));
}

TEST_F(FrmCacheFormulaTest, ChoosingAnotherCacheEmptiesTheArgumentsAndIsRemembered) {
  openOnSales();
  {
    auto loop = choose("Stock");
    dialog().cmdCache().click();
  }
  EXPECT_EQ(dialog().txtCache().text(), "Stock");
  EXPECT_EQ(dialog().lblCacheVal().caption(), "Stock");
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "");
  EXPECT_EQ(dialog().lblMeasureIndexVal().caption(), "");
  EXPECT_THAT(gridRows(), ElementsAre("Warehouse||", "Item||"));
  EXPECT_EQ(gCurrentFormula.Measure, "");
  EXPECT_EQ(gCurrentFormula.CacheIndex, 2);
  EXPECT_EQ(gCurrentFormula.DimCount, 2);
  EXPECT_EQ(remembered("CacheName"), "Stock");
  EXPECT_EQ(dialog().lblResult().caption(), "");
}

TEST_F(FrmCacheFormulaTest, ChoosingTheSameCacheAgainKeepsTheArguments) {
  openOnSales();
  {
    auto loop = choose("Sales");
    dialog().cmdCache().click();
  }
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "2");
  EXPECT_EQ(gCurrentFormula.Dims(1), "North");
  EXPECT_EQ(gridRows()[0], "Region|North|North");
  EXPECT_EQ(remembered("CacheName"), std::nullopt);
}

TEST_F(FrmCacheFormulaTest, ChoosingACacheIsOfferedWithTheCurrentOnePreselected) {
  openOnSales();
  std::vector<std::string> preselected;
  auto loop = answerLookups([&](FrmLookup& l) {
    preselected = selectedTexts(l);
    l.cmdCancel().click();
  });
  dialog().cmdCache().click();
  EXPECT_THAT(preselected, ElementsAre("Sales"));
  EXPECT_EQ(dialog().txtCache().text(), "Sales");
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "2");
}

TEST_F(FrmCacheFormulaTest, AFailureWhileChoosingACacheIsReported) {
  openOnSales();
  engine->fail("DimensionCount", 1004, "Cache is busy");
  auto loop = choose("Stock");
  dialog().cmdCache().click();
  EXPECT_THAT(messages(),
              ElementsAre(MessageRecord{"Cache is busy clsBvCubeQueryUI Initialise", "Error", 48}));
  EXPECT_TRUE(dialog().form().visible());
}

TEST_F(FrmCacheFormulaTest, ChoosingAMeasureShowsItsCaptionAndIsRemembered) {
  openOnSales();
  {
    auto loop = choose("3");
    dialog().cmdMeasureIndex().click();
  }
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "3");
  EXPECT_EQ(dialog().lblMeasureIndexVal().caption(), "Margin");
  EXPECT_TRUE(dialog().txtMeasureIndex().hasFocus());
  EXPECT_EQ(gCurrentFormula.MeasureIndex, 3);
  EXPECT_EQ(gCurrentFormula.Measure, "3");
  EXPECT_EQ(remembered("MeasureIndex"), "3");
  EXPECT_EQ(dialog().lblResult().caption(), "Value  : fmt(1,3,250)");
}

TEST_F(FrmCacheFormulaTest, CancellingTheMeasureLookupChangesNothing) {
  openOnSales();
  auto loop = answerLookups([](FrmLookup& l) { l.cmdCancel().click(); });
  dialog().cmdMeasureIndex().click();
  EXPECT_EQ(dialog().txtMeasureIndex().text(), "2");
  EXPECT_EQ(remembered("MeasureIndex"), std::nullopt);
}

struct MeasureTyping {
  const char* typed;
  const char* caption;
};

class TypingAMeasure : public FrmCacheFormulaTest,
                       public ::testing::WithParamInterface<MeasureTyping> {};

TEST_P(TypingAMeasure, ShowsTheCaptionOfItsResolvedValue) {
  app->setCell("H1", "3");
  app->setCell("H2", "Amount");
  openOnSales();
  dialog().txtMeasureIndex().setText(GetParam().typed);
  EXPECT_EQ(dialog().lblMeasureIndexVal().caption(), GetParam().caption) << GetParam().typed;
  EXPECT_EQ(gCurrentFormula.Measure, "2");  // only OK copies the text
}

INSTANTIATE_TEST_SUITE_P(Texts, TypingAMeasure,
                         ::testing::Values(MeasureTyping{"1", "Amount"},
                                           MeasureTyping{"H1", "Margin"},
                                           MeasureTyping{"H2", ""},    // not numeric once resolved
                                           MeasureTyping{"H9", ""},    // resolves to nothing
                                           MeasureTyping{"x", ""},     // not numeric
                                           MeasureTyping{"", "Units"}  // emptied: the caption stays
                                           ));

TEST_F(FrmCacheFormulaTest, AMeasureCaptionFailureIsReported) {
  openOnSales();
  engine->fail("MeasureCaption", 1004, "No captions");
  dialog().txtMeasureIndex().setText("1");
  EXPECT_THAT(messages(),
              ElementsAre(MessageRecord{"No captions Txt Measure OnChange", "Error", 48}));
}

struct Colouring {
  const char* typed;
  int32_t colour;
  const char* shown;
};

class ColouringTheCache : public FrmCacheFormulaTest,
                          public ::testing::WithParamInterface<Colouring> {};

TEST_P(ColouringTheCache, FollowsWhatTheTextDesignates) {
  app->setCell("D4", "Stock");
  app->defineName("Store", "D4");
  openOnSales();
  dialog().txtCache().setText(GetParam().typed);
  EXPECT_EQ(dialog().txtCache().backColor(), GetParam().colour) << GetParam().typed;
  EXPECT_EQ(dialog().txtCache().text(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ColouringTheCache,
    ::testing::Values(Colouring{"B7", controls::kColorYellow, "B7"},
                      Colouring{"Sheet2!$C$1", controls::kColorYellow, "Sheet2!$C$1"},
                      Colouring{"D4", controls::kColorYellow, "Store"},  // the cell's name
                      Colouring{"Store", controls::kColorYellow, "Store"},
                      Colouring{"Stock", controls::kColorWhite, "Stock"},
                      Colouring{"", controls::kColorWhite, ""}));

TEST_F(FrmCacheFormulaTest, TypingTheCacheShowsItsResolvedValueButChangesNoFormula) {
  app->setCell("D4", "Stock");
  openOnSales();
  dialog().txtCache().setText("D4");
  EXPECT_EQ(dialog().lblCacheVal().caption(), "Stock");
  EXPECT_EQ(gCurrentFormula.Cache, "Sales");
}

TEST_F(FrmCacheFormulaTest, OkWithoutACacheComplainsAndStaysOpen) {
  openOnSales();
  dialog().txtCache().setText("");
  dialog().txtMeasureIndex().setText("");
  dialog().cmdOk().click();

  EXPECT_THAT(messages(), ElementsAre(MessageRecord{"Invalid value. Please select a valid cache.",
                                                    "Error", 48}));
  EXPECT_TRUE(dialog().txtCache().hasFocus());
  EXPECT_TRUE(dialog().form().visible());
  EXPECT_EQ(formulaOf("B2"), kSalesFormula);
}

TEST_F(FrmCacheFormulaTest, OkWithoutAMeasureComplainsAndStaysOpen) {
  openOnSales();
  dialog().txtMeasureIndex().setText("");
  dialog().cmdOk().click();

  EXPECT_THAT(messages(), ElementsAre(MessageRecord{"Invalid value. Please select a valid measure.",
                                                    "Error", 48}));
  EXPECT_TRUE(dialog().txtMeasureIndex().hasFocus());
  EXPECT_TRUE(dialog().form().visible());
}

TEST_F(FrmCacheFormulaTest, OkWritesTheFormulaAndCloses) {
  openOnSales();
  dialog().txtMeasureIndex().setText("1");
  dialog().cmdOk().click();

  EXPECT_THAT(messages(), IsEmpty());
  EXPECT_EQ(formulaOf("B2"), "=BV_KXCSUM(\"Sales\",1,\"North\",\"<ALL>\",\"2004\")");
  EXPECT_FALSE(dialog().form().loaded());
  EXPECT_FALSE(dialog().Cancelled());
  EXPECT_NE(gActiveCell, nullptr);
}

TEST_F(FrmCacheFormulaTest, OkTakesReferencesAsTyped) {
  app->setCell("D4", "Stock");
  app->setCell("D5", "1");
  openOnSales();
  dialog().txtCache().setText("D4");
  dialog().txtMeasureIndex().setText("D5");
  dialog().cmdOk().click();
  EXPECT_EQ(formulaOf("B2"), "=BV_KXCSUM(D4,D5,\"North\",\"<ALL>\",\"2004\")");
}

TEST_F(FrmCacheFormulaTest, OkAcceptsACacheThatNamesNoCache) {
  openOnSales();
  dialog().txtCache().setText("Nowhere");
  dialog().cmdOk().click();
  EXPECT_THAT(messages(), IsEmpty());
  EXPECT_EQ(formulaOf("B2"), "=BV_KXCSUM(\"Nowhere\",2,\"North\",\"<ALL>\",\"2004\")");
}

TEST_F(FrmCacheFormulaTest, AFailureOnOkIsReportedAndTheDialogStays) {
  scriptCaches(*engine, {});  // no cache: the measure box is disabled and cannot take the focus
  openBuilderOn("B2");
  dialog().txtCache().setText("Sales");
  dialog().cmdOk().click();
  EXPECT_THAT(
      messages(),
      ElementsAre(
          MessageRecord{"Invalid value. Please select a valid measure.", "Error", 48},
          MessageRecord{"Invalid procedure call or argument frmCacheFormula CmdOk", "Error", 48}));
  EXPECT_TRUE(dialog().form().visible());
}

TEST_F(FrmCacheFormulaTest, TheGridShowsTheFormulaOnceMoreOnOk) {
  openOnSales();
  dialog().lvDimensions().listItems().clear();
  dialog().txtMeasureIndex().setText("1");
  dialog().cmdOk().click();
  EXPECT_EQ(gridRows().size(), 5u);
  EXPECT_EQ(gridRows()[0], "Region|North|North");
}

class ClosingWithoutOk : public FrmCacheFormulaTest,
                         public ::testing::WithParamInterface<const char*> {};

TEST_P(ClosingWithoutOk, LeavesTheCellAndForgetsIt) {
  openOnSales();
  dialog().txtMeasureIndex().setText("1");
  const std::string how = GetParam();
  if (how == "cancel") dialog().cmdCancel().click();
  if (how == "exit") dialog().FilemnuExit().click();
  if (how == "close") dialog().form().userClose();

  EXPECT_EQ(formulaOf("B2"), kSalesFormula);
  EXPECT_EQ(gActiveCell, nullptr);
  EXPECT_TRUE(dialog().Cancelled());
  EXPECT_FALSE(dialog().form().loaded());
  EXPECT_THAT(messages(), IsEmpty());
  EXPECT_GE(services->doEventsCount, 1);
}

INSTANTIATE_TEST_SUITE_P(CancelExitAndCloseButton, ClosingWithoutOk,
                         ::testing::Values("cancel", "exit", "close"));

TEST_F(FrmCacheFormulaTest, CancelledIsClearedByTheNextOk) {
  openOnSales();
  dialog().cmdCancel().click();
  openOnSales();
  dialog().cmdOk().click();
  EXPECT_FALSE(dialog().Cancelled());
}

TEST_F(FrmCacheFormulaTest, TheCacheManagerMenuOpensTheManagerWindowForTheEngine) {
  auto manager = std::make_shared<RecordingEngine>();
  gCacheManager = manager;
  openOnSales();
  dialog().FilemnuCachMan().click();

  auto calls = manager->callsTo("Window");
  ASSERT_EQ(calls.size(), 1u);
  ASSERT_EQ(calls[0].args.size(), 1u);
  EXPECT_EQ(calls[0].args[0].type, VarType::Object);
  EXPECT_TRUE(calls[0].args[0].byRef);
  EXPECT_EQ(calls[0].args[0].value.object(), gCacheEngine);
}

TEST_F(FrmCacheFormulaTest, AMenuFailureIsReported) {
  openOnSales();  // no manager instance: the call has no object
  dialog().FilemnuCachMan().click();
  EXPECT_THAT(messages(),
              ElementsAre(MessageRecord{
                  "Object variable or With block variable not set PopUpMenuClick - FrmCacheFormula",
                  "Error", 48}));
}

class RecordingTransactions : public TransactionsView {
 public:
  ObjectRef vasTrans() override { return grid; }
  void sizeColumns() override {}
  void show() override { ++shown; }
  std::shared_ptr<RecordingEngine> grid = std::make_shared<RecordingEngine>();
  int shown = 0;
};

TEST_F(FrmCacheFormulaTest, TheDrilldownMenuDrillsTheCurrentFormula) {
  auto view = std::make_shared<RecordingTransactions>();
  context().put<TransactionsView>(view);
  openOnSales();
  engine->clearLog();
  dialog().FilemnuCachTransDrill().click();

  auto sequence = engine->memberSequence();
  std::erase_if(sequence, [](const std::string& m) { return m == "DimensionCount"; });
  EXPECT_THAT(sequence,
              ElementsAre("DrilldownClear", "DrilldownAddCriteria", "ExecutePopulateTrans"));
  EXPECT_EQ(view->shown, 1);
  EXPECT_EQ(dialog().form().mousePointer(), controls::kPointerDefault);
}

TEST_F(FrmCacheFormulaTest, HelpAsksTheHelpLibrary) {
  auto library = std::make_shared<RecordingEngine>();
  context().objects().registerCreator(kHelpLibraryProgId, [library] { return library; });
  openOnSales();
  dialog().AboutmnuHelp().click();

  auto calls = library->callsTo("Help");
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].args[0].value, Variant("KXC"));
  EXPECT_THAT(services->openedFiles, IsEmpty());
}

TEST_F(FrmCacheFormulaTest, WithoutTheHelpLibraryTheHelpFileBesideTheLibraryIsOpened) {
  openOnSales();
  dialog().AboutmnuHelp().click();
  EXPECT_THAT(services->openedFiles, ElementsAre(libraryFolder() + "/mod_KXC.chm"));
  EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(FrmCacheFormulaTest, AFailingHelpLibraryCallFallsBackToTheHelpFile) {
  auto library = std::make_shared<RecordingEngine>();
  library->fail("Help", 1004, "No help");
  context().objects().registerCreator(kHelpLibraryProgId, [library] { return library; });
  services->openSucceeds = false;
  openOnSales();
  dialog().AboutmnuHelp().click();
  EXPECT_EQ(services->openedFiles.size(), 1u);
  EXPECT_THAT(messages(), IsEmpty());
}

}  // namespace
}  // namespace kxc::testing
