#include "state/engine_contract.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/runtime_error.h"
#include "state/add_in_context.h"
#include "state/tm_globals.h"
#include "support/recording_engine.h"

namespace kxc::testing {
namespace {

using Shape = std::vector<std::pair<VarType, bool>>;  // type and by-reference flag per argument

constexpr bool kRef = true;
constexpr bool kVal = false;

Shape withFilters(Shape head) {
  for (int i = 0; i < kMaxDimensions; ++i) head.push_back({VarType::Empty, kRef});
  return head;
}

Shape shapeOf(const LoggedCall& call) {
  Shape s;
  for (const auto& a : call.args) s.push_back({a.type, a.byRef});
  return s;
}

struct ContractCase {
  std::string label;
  std::function<void(CacheEngineCalls&)> call;
  std::string member;
  Shape shape;
};

std::string cacheName = "Sales";
int32_t index32 = 2;
int32_t member32 = 5;
double newValue = 1.5;
DimensionFilters filters;

class EngineContractTest : public ::testing::TestWithParam<ContractCase> {};

TEST_P(EngineContractTest, SendsArgumentTypesAndPassingModes) {
  auto engine = std::make_shared<RecordingEngine>();
  CacheEngineCalls calls(engine);
  GetParam().call(calls);
  ASSERT_EQ(engine->calls().size(), 1u);
  const LoggedCall& logged = engine->calls()[0];
  EXPECT_EQ(logged.member, GetParam().member);
  EXPECT_EQ(logged.kind, CallKind::Method);
  EXPECT_EQ(shapeOf(logged), GetParam().shape);
}

using VT = VarType;

INSTANTIATE_TEST_SUITE_P(
    Members, EngineContractTest,
    ::testing::Values(
        ContractCase{"CacheCount", [](auto& e) { e.CacheCount(); }, "CacheCount", {}},
        ContractCase{"cachenameFirst", [](auto& e) { e.cachename(byVal(int16_t{1})); },
                     "cachename", {{VT::Int16, kVal}}},
        ContractCase{"cachenameByRef", [](auto& e) { e.cachename(byRef(index32)); },
                     "cachename", {{VT::Int32, kRef}}},
        ContractCase{"CacheFind", [](auto& e) { e.CacheFind(byVal(cacheName)); }, "CacheFind",
                     {{VT::Text, kVal}}},
        ContractCase{"EnsureCacheLoadByVal", [](auto& e) { e.EnsureCacheLoad(byVal(cacheName)); },
                     "EnsureCacheLoad", {{VT::Text, kVal}}},
        ContractCase{"EnsureCacheLoadByRef", [](auto& e) { e.EnsureCacheLoad(byRef(cacheName)); },
                     "EnsureCacheLoad", {{VT::Text, kRef}}},
        ContractCase{"MeasureCount", [](auto& e) { e.MeasureCount(byRef(cacheName)); },
                     "MeasureCount", {{VT::Text, kRef}}},
        ContractCase{"MeasureCaptionByVal",
                     [](auto& e) { e.MeasureCaption(byVal(cacheName), byRef(index32)); },
                     "MeasureCaption", {{VT::Text, kVal}, {VT::Int32, kRef}}},
        ContractCase{"MeasureCaptionByRef",
                     [](auto& e) { e.MeasureCaption(byRef(cacheName), byRef(index32)); },
                     "MeasureCaption", {{VT::Text, kRef}, {VT::Int32, kRef}}},
        ContractCase{"MeasureCaptionValue",
                     [](auto& e) { e.MeasureCaption(byVal(cacheName), byVal(Variant("3"))); },
                     "MeasureCaption", {{VT::Text, kVal}, {VT::Text, kVal}}},
        ContractCase{"DimensionCountByVal", [](auto& e) { e.DimensionCount(byVal(cacheName)); },
                     "DimensionCount", {{VT::Text, kVal}}},
        ContractCase{"DimensionCountByRef", [](auto& e) { e.DimensionCount(byRef(cacheName)); },
                     "DimensionCount", {{VT::Text, kRef}}},
        ContractCase{"DimensionCaptionByVal",
                     [](auto& e) { e.DimensionCaption(byVal(cacheName), byVal(int16_t{3})); },
                     "DimensionCaption", {{VT::Text, kVal}, {VT::Int16, kVal}}},
        ContractCase{"DimensionCaptionByRef",
                     [](auto& e) { e.DimensionCaption(byRef(cacheName), byRef(index32)); },
                     "DimensionCaption", {{VT::Text, kRef}, {VT::Int32, kRef}}},
        ContractCase{"DimensionMemberCount",
                     [](auto& e) { e.DimensionMemberCount(byRef(cacheName), byRef(index32)); },
                     "DimensionMemberCount", {{VT::Text, kRef}, {VT::Int32, kRef}}},
        ContractCase{"DimensionMemberValue",
                     [](auto& e) {
                       e.DimensionMemberValue(byRef(cacheName), byRef(index32), byRef(member32));
                     },
                     "DimensionMemberValue",
                     {{VT::Text, kRef}, {VT::Int32, kRef}, {VT::Int32, kRef}}},
        ContractCase{"DimensionMemberCaption",
                     [](auto& e) {
                       e.DimensionMemberCaption(byRef(cacheName), byRef(index32),
                                                byRef(member32));
                     },
                     "DimensionMemberCaption",
                     {{VT::Text, kRef}, {VT::Int32, kRef}, {VT::Int32, kRef}}},
        ContractCase{"CacheGetValueAllAggregationTypes",
                     [](auto& e) {
                       e.CacheGetValueAllAggregationTypes(byRef(cacheName), byRef(index32),
                                                          filters);
                     },
                     "CacheGetValueAllAggregationTypes",
                     withFilters({{VT::Text, kRef}, {VT::Int32, kRef}, {VT::Int16, kVal}})},
        ContractCase{"CacheFormatCurrency",
                     [](auto& e) {
                       e.CacheFormatCurrency(byRef(index32), byRef(member32), byVal(2.5));
                     },
                     "CacheFormatCurrency",
                     {{VT::Int32, kRef}, {VT::Int32, kRef}, {VT::Double, kVal}}},
        ContractCase{"CacheWriteBack",
                     [](auto& e) {
                       e.CacheWriteBack(byVal(cacheName), byRef(index32), byRef(newValue),
                                        filters);
                     },
                     "CacheWriteBack",
                     withFilters({{VT::Text, kVal},
                                  {VT::Int32, kRef},
                                  {VT::Int16, kVal},
                                  {VT::Double, kRef}})},
        ContractCase{"DrilldownClear", [](auto& e) { e.DrilldownClear(); }, "DrilldownClear",
                     {}},
        ContractCase{"DrilldownAddCriteria",
                     [](auto& e) { e.DrilldownAddCriteria(byVal(cacheName), filters); },
                     "DrilldownAddCriteria", withFilters({{VT::Text, kVal}})},
        ContractCase{"ExecutePopulateTrans",
                     [](auto& e) {
                       e.ExecutePopulateTrans(byVal(cacheName),
                                              byVal<ObjectRef>(std::make_shared<RecordingEngine>()));
                     },
                     "ExecutePopulateTrans", {{VT::Text, kVal}, {VT::Object, kVal}}}),
    [](const auto& info) { return info.param.label; });

TEST(EngineContract, ConstantZeroPrecedesTheValueArguments) {
  auto engine = std::make_shared<RecordingEngine>();
  std::string cache = "Sales";
  int32_t measure = 4;
  double value = 12.5;
  DimensionFilters dims;
  dims[0] = Variant("North");
  dims[19] = Variant("Last");
  CacheEngineCalls(engine).CacheWriteBack(byVal(cache), byRef(measure), byRef(value), dims);
  const auto& args = engine->calls().at(0).args;
  ASSERT_EQ(args.size(), 24u);
  EXPECT_EQ(args[0].value, Variant("Sales"));
  EXPECT_EQ(args[1].value, Variant(int32_t{4}));
  EXPECT_EQ(args[2].value, Variant(int16_t{0}));
  EXPECT_EQ(args[3].value, Variant(12.5));
  EXPECT_EQ(args[4].value, Variant("North"));
  EXPECT_EQ(args[23].value, Variant("Last"));
}

TEST(EngineContract, ByReferenceArgumentsReceiveWhatTheEngineWrites) {
  auto engine = std::make_shared<RecordingEngine>();
  engine->script("DimensionMemberValue", [](Arguments args) {
    args[0].assign(Variant("Renamed"));
    args[1].assign(Variant(7.0));             // converted to the variable's 32-bit type
    args[2].assign(Variant("not a number"));  // cannot convert: variable unchanged
    return Variant("m");
  });
  std::string cache = "Sales";
  int32_t dimension = 1;
  int32_t member = 3;
  EXPECT_EQ(
      CacheEngineCalls(engine).DimensionMemberValue(byRef(cache), byRef(dimension), byRef(member)),
      Variant("m"));
  EXPECT_EQ(cache, "Renamed");
  EXPECT_EQ(dimension, 7);
  EXPECT_EQ(member, 3);
}

TEST(EngineContract, ByValueArgumentsAreNeverWrittenBack) {
  auto engine = std::make_shared<RecordingEngine>();
  engine->script("EnsureCacheLoad", [](Arguments args) {
    args[0].assign(Variant("Renamed"));
    return Variant(int32_t{-1});
  });
  std::string cache = "Sales";
  EXPECT_EQ(CacheEngineCalls(engine).EnsureCacheLoad(byVal(cache)), Variant(int32_t{-1}));
  EXPECT_EQ(cache, "Sales");
}

TEST(EngineContract, FiltersAreTheCallersOwnVariants) {
  auto engine = std::make_shared<RecordingEngine>();
  engine->script("DrilldownAddCriteria", [](Arguments args) {
    args[5].assign(Variant("seen"));
    return Variant();
  });
  DimensionFilters dims;
  CacheEngineCalls(engine).DrilldownAddCriteria(byVal(std::string("Sales")), dims);
  EXPECT_EQ(dims[4], Variant("seen"));
}

TEST(EngineContract, FailuresReachTheCaller) {
  auto engine = std::make_shared<RecordingEngine>();
  engine->fail("CacheCount", 1004, "Engine busy");
  engine->removeMember("DrilldownClear");
  auto numberOf = [](const std::function<void()>& body) {
    try {
      body();
    } catch (const RuntimeError& e) {
      return e.number();
    }
    return 0;
  };
  CacheEngineCalls calls(engine);
  EXPECT_EQ(numberOf([&] { calls.CacheCount(); }), 1004);
  EXPECT_EQ(numberOf([&] { calls.DrilldownClear(); }), err::kNoSuchMember);
  EXPECT_EQ(numberOf([] { CacheEngineCalls(nullptr).CacheCount(); }), err::kObjectNotSet);
}

TEST(EngineContract, ManagerWindowSendsTheEngineByReference) {
  auto manager = std::make_shared<RecordingEngine>();
  ObjectRef engine = std::make_shared<RecordingEngine>();
  CacheManagerCalls(manager).Window(byRef(engine));
  CacheManagerCalls(manager).Shutdown();
  ASSERT_EQ(manager->calls().size(), 2u);
  EXPECT_EQ(manager->calls()[0].member, "Window");
  EXPECT_EQ(shapeOf(manager->calls()[0]), (Shape{{VarType::Object, kRef}}));
  EXPECT_EQ(manager->calls()[0].args[0].value, Variant(engine));
  EXPECT_EQ(manager->calls()[1].member, "Shutdown");
  EXPECT_TRUE(manager->calls()[1].args.empty());
}

TEST(EngineContract, ProcessCallsUseTheCurrentGlobals) {
  AddInContext context;
  auto engine = std::make_shared<RecordingEngine>();
  auto manager = std::make_shared<RecordingEngine>();
  gCacheEngine = engine;
  gCacheManager = manager;
  cacheEngine().CacheCount();
  cacheManager().Shutdown();
  EXPECT_EQ(engine->memberSequence(), std::vector<std::string>{"CacheCount"});
  EXPECT_EQ(manager->memberSequence(), std::vector<std::string>{"Shutdown"});
}

}  // namespace
}  // namespace kxc::testing
