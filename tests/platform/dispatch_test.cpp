#include "platform/dispatch.h"

#include <gtest/gtest.h>

#include "platform/object_factory.h"
#include "platform/runtime_error.h"
#include "support/recording_engine.h"

namespace kxc {
namespace {

TEST(Dispatch, MembersMatchCaseInsensitivelyAndMissingOnesRaise438) {
  auto obj = std::make_shared<testing::RecordingEngine>();
  obj->script("CacheCount", Variant(int32_t{3}));
  EXPECT_EQ(invoke(obj, "cachecount").toInt32(), 3);
  obj->removeMember("CACHECOUNT");
  try {
    invoke(obj, "CacheCount");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::kNoSuchMember);
    EXPECT_EQ(e.description(), "Object doesn't support this property or method");
  }
}

TEST(Dispatch, CalleeWritesBackByReferenceOnly) {
  auto obj = std::make_shared<testing::RecordingEngine>();
  obj->script("Touch", [](Arguments args) {
    for (auto& a : args) a.assign(Variant("changed"));
    return Variant();
  });
  Variant byRef("orig");
  Variant byValSource("orig");
  invoke(obj, "Touch", {Argument::byRef(byRef), Argument::byValue(byValSource)});
  EXPECT_EQ(byRef, Variant("changed"));
  EXPECT_EQ(byValSource, Variant("orig"));
}

TEST(Dispatch, RecordingEngineLogsTypesFlagsAndValues) {
  auto obj = std::make_shared<testing::RecordingEngine>();
  auto grid = std::make_shared<testing::RecordingEngine>();
  Variant name("Sales");
  Variant index(int32_t{2});
  invoke(obj, "MeasureCaption",
         {Argument::byRef(name), Argument::byRef(index), Argument::byValue(Variant(int16_t{0})),
          Argument::byValue(Variant(1.5)), Argument::byValue(Variant()),
          Argument::byValue(Variant(ObjectRef(grid)))});
  ASSERT_EQ(obj->calls().size(), 1u);
  const auto& call = obj->calls()[0];
  EXPECT_EQ(call.member, "MeasureCaption");
  std::vector<std::pair<VarType, bool>> shape;
  for (const auto& a : call.args) shape.emplace_back(a.type, a.byRef);
  EXPECT_EQ(shape, (std::vector<std::pair<VarType, bool>>{{VarType::Text, true},
                                                          {VarType::Int32, true},
                                                          {VarType::Int16, false},
                                                          {VarType::Double, false},
                                                          {VarType::Empty, false},
                                                          {VarType::Object, false}}));
  EXPECT_EQ(call.args[0].value, Variant("Sales"));
}

TEST(Dispatch, InjectedFailureCarriesNumberAndDescription) {
  auto obj = std::make_shared<testing::RecordingEngine>();
  obj->fail("EnsureCacheLoad", 1001, "Cache is locked");
  try {
    invoke(obj, "ensurecacheload");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 1001);
    EXPECT_EQ(e.description(), "Cache is locked");
  }
  EXPECT_EQ(obj->callsTo("EnsureCacheLoad").size(), 1u);
}

TEST(Dispatch, TablePropertiesAndMethods) {
  DispatchTable t;
  Variant stored(int32_t{0});
  t.property(
      "MaxRows", [&](Arguments) { return stored; },
      [&](Arguments a) {
        stored = a.back().value();
        return Variant();
      });
  t.method("Clear", [&](Arguments) {
    stored = Variant(int32_t{0});
    return Variant();
  });
  std::vector<Argument> put{Argument::byValue(Variant(int32_t{5}))};
  t.invoke("maxrows", put, CallKind::PropertyPut);
  std::vector<Argument> none;
  EXPECT_EQ(t.invoke("MAXROWS", none, CallKind::PropertyGet), Variant(int32_t{5}));
  EXPECT_THROW(t.invoke("Clear", put, CallKind::PropertyPut), RuntimeError);
  EXPECT_THROW(t.invoke("Nothing", none, CallKind::Method), RuntimeError);
  EXPECT_THROW(invoke(ObjectRef(), "Clear"), RuntimeError);
}

TEST(ObjectFactory, CreatesByProgIdAndRaises429Otherwise) {
  ObjectFactory factory;
  factory.registerCreator("TmBvCacheManager.CacheManager",
                          [] { return std::make_shared<testing::RecordingEngine>(); });
  factory.registerCreator("Broken.Object", []() -> ObjectRef { throw RuntimeError(5); });
  EXPECT_NE(factory.create("tmbvcachemanager.cachemanager"), nullptr);
  for (const char* id : {"Unknown.Object", "Broken.Object"}) {
    try {
      factory.create(id);
      FAIL() << id;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), err::kCannotCreate);
      EXPECT_EQ(e.description(), "ActiveX component can't create object");
    }
  }
}

}  // namespace
}  // namespace kxc
