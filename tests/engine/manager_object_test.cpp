// The ProgIDs, the manager object's Window and Shutdown, and the one store both objects share.
#include "engine/contract/manager_object.h"

#include <gtest/gtest.h>

#include "engine/contract/engine_errors.h"
#include "engine/engine_registration.h"
#include "shop_fixture.h"
#include "support/error_number.h"

namespace kxc::engine::testing {
namespace {

class ManagerObjectTest : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    shared_ = registerEngineObjects(factory_, options_);
    engineObject_ = factory_.create("kestracache.engine");
    manager_ = factory_.create(kManagerProgId);
  }
  void TearDown() override { setManagerWindowOpener(nullptr); }
  ObjectFactory factory_;
  std::shared_ptr<CacheEngine> shared_;
  ObjectRef engineObject_;
  ObjectRef manager_;
};

TEST_F(ManagerObjectTest, WindowHandsTheEngineToTheInstalledOpener) {
  ObjectRef opened;
  setManagerWindowOpener([&](ObjectRef e) { opened = e; });
  Variant engineArg(engineObject_);
  invoke(manager_, "window", {Argument::byRef(engineArg)});
  EXPECT_EQ(opened, engineObject_);
}

TEST_F(ManagerObjectTest, WindowWithoutOpenerOrEngineRaisesClearErrors) {
  Variant engineArg(engineObject_);
  try {
    invoke(manager_, "Window", {Argument::byRef(engineArg)});
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), engine_err::kNoWindow);
    EXPECT_EQ(e.description(), "The cache manager window is not available in this program");
  }
  setManagerWindowOpener([](ObjectRef) {});
  EXPECT_EQ(kxc::testing::errorNumber(
                [&] { invoke(manager_, "Window", {Argument::byValue(Variant("x"))}); }),
            err::kObjectRequired);
  EXPECT_EQ(kxc::testing::errorNumber([&] { invoke(manager_, "Window"); }), 449);
  EXPECT_EQ(kxc::testing::errorNumber(
                [&] { invoke(manager_, "Shutdown", {Argument::byValue(Variant())}); }),
            450);
}

TEST_F(ManagerObjectTest, ShutdownReleasesTheSharedEngineWhichReopensLazily) {
  EXPECT_EQ(invoke(engineObject_, "EnsureCacheLoad", {Argument::byValue(Variant("Shop"))}),
            Variant(int32_t{1}));
  invoke(manager_, "Shutdown");
  // The database is closed: another connection may now change it freely.
  {
    EmbeddedBackend other(options_.databasePath);
    writeShop(other, "Later");
  }
  EXPECT_EQ(invoke(engineObject_, "CacheCount"), Variant(int32_t{2}));
  EXPECT_EQ(invoke(engineObject_, "CacheFind", {Argument::byValue(Variant("Later"))}),
            Variant(int32_t{2}));
}

TEST_F(ManagerObjectTest, ObjectsOfBothProgIdsShareOneStore) {
  ObjectRef second = factory_.create(kEngineProgId);
  Variant m(int32_t{1}), v(500.0);
  std::vector<Argument> args{
      Argument::byValue(Variant("Shop")),     Argument::byRef(m),
      Argument::byValue(Variant(int16_t{0})), Argument::byRef(v),
      Argument::byValue(Variant("North")),    Argument::byValue(Variant("A")),
      Argument::byValue(Variant("2023"))};
  invoke(engineObject_, "CacheWriteBack", std::move(args));
  std::vector<Argument> ask{Argument::byValue(Variant("Shop")),
                            Argument::byValue(Variant(int32_t{1})),
                            Argument::byValue(Variant(int16_t{0}))};
  EXPECT_DOUBLE_EQ(invoke(second, "CacheGetValueAllAggregationTypes", ask).toDouble(), 700);
  EXPECT_EQ(invoke(second, "UndoWriteBack"), Variant(true));
  EXPECT_DOUBLE_EQ(invoke(engineObject_, "CacheGetValueAllAggregationTypes", ask).toDouble(), 210);
}

}  // namespace
}  // namespace kxc::engine::testing
