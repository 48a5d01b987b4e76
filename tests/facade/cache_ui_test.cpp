#include "facade/cache_ui.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "events/cache_write_back.h"
#include "facade_fixture.h"
#include "flows/formula_builder.h"
#include "language/language.h"

namespace kxc::testing {
namespace {

using ::testing::ElementsAre;
using Members = std::vector<std::string>;

TEST_F(FacadeFixture, InitialiseKeepsEngineCreatesManagerAndHooksEvents) {
  host::ApplicationRef xExcel = app;
  ObjectRef mCache = engine;
  EXPECT_TRUE(ui.Initialise(xExcel, mCache).isEmpty());
  EXPECT_EQ(gCacheEngine, engine);
  ASSERT_EQ(managers.size(), 1u);
  EXPECT_EQ(gCacheManager, managers[0]);
  EXPECT_EQ(gExcelSink->oExcel(), app);
  EXPECT_EQ(xExcel, app);
  app->doubleClick("B2");
  app->uninstallAddin("Other.xla");
  ASSERT_FALSE(sink.expired());
  EXPECT_EQ(sink.lock()->doubleClicks, 1);
  EXPECT_EQ(sink.lock()->uninstalls, 1);
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(FacadeFixture, InitialiseWhoseManagerCannotBeCreatedReportsOnceAndHooksNothing) {
  context().objects().unregister(kCacheManagerProgId);
  initialise();
  EXPECT_THAT(services->messages, ElementsAre(MessageRecord{"ActiveX component can't create object "
                                                            "clsBvCubeQueryUI Initialise",
                                                            "Error", 48}));
  app->doubleClick("B2");
  EXPECT_TRUE(sink.expired());  // never created, so nothing was hooked
  EXPECT_EQ(gExcelSink->oExcel(), nullptr);
  EXPECT_EQ(gCacheEngine, engine);  // kept before the creation failed
}

TEST_F(FacadeFixture, ShowFormulaBuilderOpensTheBuilderOnTheActiveCell) {
  initialise();
  app->select("D4");
  std::string formula;
  EXPECT_EQ(ui.ShowFormulaBuilder(formula), "");
  ASSERT_NE(gActiveCell, nullptr);
  EXPECT_EQ(gActiveCell->address(), "$D$4");
  ASSERT_NE(context().find<FrmCacheFormula>(), nullptr);
  EXPECT_TRUE(context().find<FrmCacheFormula>()->form().visible());
}

TEST_F(FacadeFixture, ShowFormulaBuilderWithoutAnApplicationReportsWithItsLocation) {
  std::string formula;
  ui.ShowFormulaBuilder(formula);
  EXPECT_THAT(services->messages,
              ElementsAre(MessageRecord{"Object variable or With block variable not set "
                                        "clsBvCubeQueryUI ShowFormulaBuilder",
                                        "Error", 48}));
}

TEST_F(FacadeFixture, CacheManagerOpensWindowWithEngineByReference) {
  initialise();
  ui.CacheManager();
  const auto& calls = managers.at(0)->calls();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].member, "Window");
  ASSERT_EQ(calls[0].args.size(), 1u);
  EXPECT_TRUE(calls[0].args[0].byRef);
  EXPECT_EQ(calls[0].args[0].value, Variant(ObjectRef(engine)));
}

TEST_F(FacadeFixture, CacheManagerAfterShutdownRecreatesManagerAndCallsWindow) {
  initialise();
  ui.Shutdown();
  EXPECT_EQ(gCacheManager, nullptr);
  EXPECT_EQ(managers.at(0)->memberSequence(), Members{"Shutdown"});
  ui.CacheManager();
  ASSERT_EQ(managers.size(), 2u);
  EXPECT_EQ(gCacheManager, managers[1]);
  EXPECT_EQ(managers[1]->memberSequence(), Members{"Window"});
}

TEST_F(FacadeFixture, ManagerFailuresShowNothing) {
  initialise();
  managers.at(0)->fail("Window", 1004, "Window failed");
  managers.at(0)->fail("Shutdown", 1004, "Shutdown failed");
  ui.CacheManager();
  ui.Shutdown();
  EXPECT_EQ(gCacheManager, nullptr);  // released although Shutdown failed
  ui.Shutdown();                      // nothing left to shut down
  context().objects().unregister(kCacheManagerProgId);
  ui.CacheManager();  // cannot be re-created
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(FacadeFixture, ShowLookupIsAStub) {
  initialise();
  EXPECT_EQ(ui.ShowLookup(), "");
  EXPECT_TRUE(engine->calls().empty());
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(FacadeFixture, ToggleWriteBackAlternatesAndReleases) {
  initialise();
  ui.ToggleWriteBack();
  ASSERT_NE(gWriteBack, nullptr);
  EXPECT_EQ(gWriteBack->oexcel(), app);
  std::weak_ptr<CacheWriteBack> first = gWriteBack;
  ui.ToggleWriteBack();
  EXPECT_EQ(gWriteBack, nullptr);
  EXPECT_TRUE(first.expired());
  ui.ToggleWriteBack();
  EXPECT_NE(gWriteBack, nullptr);
}

TEST_F(FacadeFixture, ChangeCurrentLangSetsTheLanguage) {
  int16_t langId = 7;
  ui.ChangeCurrentLang(langId);
  EXPECT_EQ(gLanguage->CurrentLanguage(), 7);
  int16_t outOfRange = 16;
  ui.ChangeCurrentLang(outOfRange);
  EXPECT_EQ(gLanguage->CurrentLanguage(), 7);
  EXPECT_TRUE(services->messages.empty());
}

}  // namespace
}  // namespace kxc::testing
