// Every contract member through the dispatch port, with the argument types the add-in sends.
#include "engine/contract/engine_object.h"

#include <gtest/gtest.h>

#include "engine/embedded/cache_writer.h"
#include "shop_fixture.h"
#include "support/error_number.h"

namespace kxc::engine::testing {
namespace {

class EngineObjectTest : public EngineTest {};

TEST_F(EngineObjectTest, CacheCountAndNamesAnswerInt32AndText) {
  writeShop(core_->backend(), "Second");
  core_->refresh();
  Variant count = call("CacheCount");
  EXPECT_EQ(count.type(), VarType::Int32);
  EXPECT_EQ(count.toInt32(), 2);
  // The first cache as a 16-bit 1 by value; the second as a 32-bit index by reference.
  EXPECT_EQ(call("cachename", {val(Variant(int16_t{1}))}), Variant("Shop"));
  Variant second(int32_t{2});
  EXPECT_EQ(call("CacheName", {Argument::byRef(second)}), Variant("Second"));
  EXPECT_EQ(second, Variant(int32_t{2}));  // by-reference argument left as it was
}

TEST_F(EngineObjectTest, CacheFindAndEnsureCacheLoadResolveNamesAndIndices) {
  struct Case {
    Variant cache;
    int32_t found;   // CacheFind
    int32_t loaded;  // EnsureCacheLoad
  };
  const Case cases[] = {
      {Variant("Shop"), 1, 1},      {Variant("SHOP"), 1, 1}, {Variant(" shop "), 1, 1},
      {Variant("1"), 1, 1},         {Variant(1.0), 1, 1},    {Variant("Nope"), 0, -1},
      {Variant("2"), 0, -1},        {Variant(""), 0, -1},    {Variant(), 0, -1},
      {Variant(int16_t{0}), 0, -1}, {Variant("1.5"), 0, -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.cache.isEmpty() ? "Empty" : c.cache.toText());
    Variant byRef = c.cache;
    EXPECT_EQ(call("CacheFind", {val(c.cache)}), Variant(c.found));
    EXPECT_EQ(call("EnsureCacheLoad", {Argument::byRef(byRef)}), Variant(c.loaded));
    EXPECT_EQ(call("EnsureCacheLoad", {val(c.cache)}), Variant(c.loaded));
  }
}

TEST_F(EngineObjectTest, MeasuresDimensionsAndMembersAnswerCountsAndTexts) {
  Variant name("Shop"), i2(int32_t{2}), i3(int32_t{3}), i1(int32_t{1});
  EXPECT_EQ(call("MeasureCount", {Argument::byRef(name)}), Variant(int32_t{5}));
  EXPECT_EQ(call("MeasureCaption", {val(Variant("Shop")), Argument::byRef(i3)}), Variant("Price"));
  EXPECT_EQ(call("MeasureCaption", {Argument::byRef(name), Argument::byRef(i1)}),
            Variant("Amount"));
  EXPECT_EQ(call("DimensionCount", {val(Variant("Shop"))}), Variant(int32_t{3}));
  EXPECT_EQ(call("DimensionCaption", {val(Variant("Shop")), val(Variant(int16_t{2}))}),
            Variant("Product"));
  EXPECT_EQ(call("DimensionCaption", {Argument::byRef(name), Argument::byRef(i3)}),
            Variant("Year"));
  EXPECT_EQ(call("DimensionMemberCount", {Argument::byRef(name), Argument::byRef(i1)}),
            Variant(int32_t{4}));
  EXPECT_EQ(call("DimensionMemberValue",
                 {Argument::byRef(name), Argument::byRef(i1), Argument::byRef(i2)}),
            Variant("South"));
  EXPECT_EQ(call("DimensionMemberCaption",
                 {Argument::byRef(name), Argument::byRef(i2), Argument::byRef(i3)}),
            Variant("Cherries"));
  // A year member is still a text, not a number.
  EXPECT_EQ(call("DimensionMemberValue",
                 {val(Variant("Shop")), val(Variant(int32_t{3})), val(Variant(int32_t{1}))}),
            Variant("2023"));
}

TEST_F(EngineObjectTest, ValueCallTakesTwentyThreeArgumentsAndAnswersDouble) {
  Variant name("Shop"), measure(int32_t{1});
  std::vector<Argument> args{Argument::byRef(name), Argument::byRef(measure),
                             val(Variant(int16_t{0}))};
  std::vector<Variant> filters(20);
  filters[0] = Variant("North");
  filters[1] = Variant("<ALL>");
  for (auto& f : filters) args.push_back(Argument::byValue(f));
  Variant v = call("CacheGetValueAllAggregationTypes", std::move(args));
  EXPECT_EQ(v.type(), VarType::Double);
  EXPECT_DOUBLE_EQ(v.toDouble(), 80);
}

TEST_F(EngineObjectTest, FormatCurrencyTakesCacheAndMeasureByIndex) {
  Variant cacheIndex(int32_t{1}), amount(int32_t{1}), price(int32_t{3});
  EXPECT_EQ(call("CacheFormatCurrency",
                 {Argument::byRef(cacheIndex), Argument::byRef(amount), val(Variant(1234.5))}),
            Variant("1,234.50"));
  EXPECT_EQ(call("CacheFormatCurrency",
                 {Argument::byRef(cacheIndex), Argument::byRef(price), val(Variant(-3.456))}),
            Variant("-$3.46"));
}

TEST_F(EngineObjectTest, WrongArgumentsRaiseNumberedErrors) {
  struct Case {
    const char* member;
    std::vector<Variant> args;
    int error;
  };
  const Case cases[] = {
      {"CacheCount", {Variant(int32_t{1})}, 450},
      {"cachename", {}, 449},
      {"cachename", {Variant("abc")}, err::kTypeMismatch},
      {"cachename", {Variant(int16_t{7})}, engine_err::kOutOfRange},
      {"MeasureCount", {Variant("Foo")}, engine_err::kUnknownCache},
      {"MeasureCaption", {Variant("Shop")}, 449},
      {"MeasureCaption", {Variant("Shop"), Variant(int32_t{6})}, engine_err::kOutOfRange},
      {"MeasureCaption", {Variant("Shop"), Variant("Weight")}, engine_err::kOutOfRange},
      {"DimensionCaption", {Variant("Shop"), Variant(int16_t{0})}, engine_err::kOutOfRange},
      {"DimensionMemberValue",
       {Variant("Shop"), Variant(int32_t{1}), Variant(int32_t{5})},
       engine_err::kOutOfRange},
      {"DimensionCount", {Variant(ObjectRef())}, err::kTypeMismatch},
      {"CacheGetValueAllAggregationTypes", {Variant("Shop"), Variant(int32_t{1})}, 449},
      {"CacheGetValueAllAggregationTypes",
       {Variant("Shop"), Variant(int32_t{1}), Variant(int16_t{9})},
       err::kInvalidCall},
      {"CacheFormatCurrency",
       {Variant(int32_t{1}), Variant(int32_t{1}), Variant("x")},
       err::kTypeMismatch},
      {"ExecutePopulateTrans", {Variant("Shop"), Variant("not a grid")}, err::kObjectRequired},
      {"NoSuchMember", {}, err::kNoSuchMember},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.member);
    std::vector<Argument> args;
    for (const auto& a : c.args) args.push_back(val(a));
    EXPECT_EQ(kxc::testing::errorNumber([&] { call(c.member, std::move(args)); }), c.error);
  }
  std::vector<Argument> tooMany(24, val(Variant()));
  tooMany[0] = val(Variant("Shop"));
  tooMany[1] = val(Variant(int32_t{1}));
  EXPECT_EQ(kxc::testing::errorNumber(
                [&] { call("CacheGetValueAllAggregationTypes", std::move(tooMany)); }),
            450);
}

TEST_F(EngineObjectTest, UnknownCacheMessageNamesTheCache) {
  try {
    call("DimensionCount", {val(Variant("Foo"))});
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 30001);
    EXPECT_EQ(e.description(), "Unknown cache: Foo");
  }
}

TEST_F(EngineObjectTest, ManagementMembersDescribeTheCache) {
  EXPECT_EQ(call("TransactionCount", {val(Variant("Shop"))}), Variant(int32_t{6}));
  EXPECT_EQ(call("MeasureAggregation", {val(Variant("Shop")), val(Variant(int32_t{3}))}),
            Variant("average"));
  EXPECT_EQ(call("MeasureFormat", {val(Variant("Shop")), val(Variant("amount"))}),
            Variant("#,##0.00"));
  EXPECT_EQ(call("DatabasePath"), Variant(tmp_.file("caches.db")));
  call("DeleteCache", {val(Variant("Shop"))});
  EXPECT_EQ(call("CacheCount"), Variant(int32_t{0}));
  EXPECT_EQ(call("CacheFind", {val(Variant("Shop"))}), Variant(int32_t{0}));
}

}  // namespace
}  // namespace kxc::engine::testing
