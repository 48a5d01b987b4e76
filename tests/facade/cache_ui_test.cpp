#include "facade/cache_ui.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "facade_fixture.h"
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
  ObjectFactory::instance().unregister(kCacheManagerProgId);
  initialise();
  EXPECT_THAT(services->messages, ElementsAre(MessageRecord{"ActiveX component can't create object "
                                                            "clsBvCubeQueryUI Initialise",
                                                            "Error", 48}));
  app->doubleClick("B2");
  EXPECT_TRUE(sink.expired());  // never created, so nothing was hooked
  EXPECT_EQ(gExcelSink->oExcel(), nullptr);
  EXPECT_EQ(gCacheEngine, engine);  // kept before the creation failed
}

TEST_F(FacadeFixture, ShowFormulaBuilderOpensEditOnActiveCell) {
  initialise();
  app->select("D4");
  std::string seen;
  facadeHooks().showFormulaEdit = [&](std::string& text) {
    seen = text;
    return std::string();
  };
  std::string formula = R"(=BV_KXCSUM("Sales",1))";
  EXPECT_EQ(ui.ShowFormulaBuilder(formula), "");
  EXPECT_EQ(seen, formula);
  ASSERT_NE(gActiveCell, nullptr);
  EXPECT_EQ(gActiveCell->address(), "$D$4");
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(FacadeFixture, ShowFormulaBuilderFailuresAreReportedWithItsLocation) {
  std::string formula;
  ui.ShowFormulaBuilder(formula);  // not initialised: no application
  initialise();
  app->select("A1");
  ui.ShowFormulaBuilder(formula);  // no formula builder installed
  const std::string text =
      "Object variable or With block variable not set clsBvCubeQueryUI ShowFormulaBuilder";
  EXPECT_THAT(services->messages,
              ElementsAre(MessageRecord{text, "Error", 48}, MessageRecord{text, "Error", 48}));
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
  ObjectFactory::instance().unregister(kCacheManagerProgId);
  ui.CacheManager();  // cannot be re-created
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(FacadeFixture, ShowLookupIsAStub) {
  initialise();
  EXPECT_EQ(ui.ShowLookup(), "");
  EXPECT_TRUE(engine->calls().empty());
  EXPECT_TRUE(services->messages.empty());
}

class FakeWriteBack : public WriteBackObject {
 public:
  void Initialise(host::ApplicationRef& pExcel) override { application = pExcel; }
  host::ApplicationRef application;
};

TEST_F(FacadeFixture, ToggleWriteBackAlternatesAndReleases) {
  initialise();
  int created = 0;
  std::weak_ptr<FakeWriteBack> first;
  facadeHooks().createWriteBack = [&] {
    auto object = std::make_shared<FakeWriteBack>();
    if (++created == 1) first = object;
    return object;
  };
  ui.ToggleWriteBack();
  ASSERT_NE(gWriteBack, nullptr);
  EXPECT_EQ(first.lock()->application, app);
  ui.ToggleWriteBack();
  EXPECT_EQ(gWriteBack, nullptr);
  EXPECT_TRUE(first.expired());
  ui.ToggleWriteBack();
  EXPECT_NE(gWriteBack, nullptr);
  EXPECT_EQ(created, 2);
}

TEST_F(FacadeFixture, ToggleWriteBackWithoutTheClassStaysOffSilently) {
  initialise();
  ui.ToggleWriteBack();
  EXPECT_EQ(gWriteBack, nullptr);
  EXPECT_TRUE(services->messages.empty());
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
