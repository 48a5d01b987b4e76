// Aggregating measures over the transactions that match the filters.
#include "engine/embedded/aggregation.h"

#include <gtest/gtest.h>

#include "shop_fixture.h"

namespace kxc::engine::testing {
namespace {

class AggregationTest : public EngineTest {};

TEST_F(AggregationTest, EachAggregationTypeOverSeveralSelections) {
  // Measures: 1 Amount (sum), 2 Units (count), 3 Price (average), 4 Low (min), 5 High (max).
  struct Case {
    const char* what;
    int32_t measure;
    std::vector<Variant> filters;
    double expected;
  };
  const Case cases[] = {
      {"all amount", 1, {}, 210},
      {"north amount", 1, {Variant("North")}, 80},
      {"north by caption", 1, {Variant("Northern")}, 80},
      {"north A", 1, {Variant("North"), Variant("A")}, 60},
      {"north A 2024", 1, {Variant("North"), Variant("A"), Variant("2024")}, 50},
      {"selection", 1, {Variant("<<South..West")}, 130},
      {"selection and year", 1, {Variant("<<North,South"), Variant(), Variant("2024")}, 80},
      {"no match", 1, {Variant("East"), Variant("A")}, 0},
      {"count all", 2, {}, 6},
      {"count B", 2, {Variant(), Variant("B")}, 2},
      {"average all skips the missing price", 3, {}, 3},
      {"average north", 3, {Variant("North")}, 8.0 / 3},
      {"average of nothing", 3, {Variant("West")}, 0},
      {"min 2024", 4, {Variant(), Variant(), Variant("2024")}, 30},
      {"max 2023", 5, {Variant(), Variant(), Variant("2023")}, 60},
      {"min of nothing", 4, {Variant("East"), Variant("A")}, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_NEAR(shopValue(c.measure, c.filters), c.expected, 1e-12);
  }
}

TEST_F(AggregationTest, AggregationTypeArgumentOverridesTheMeasuresOwn) {
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}, 0), 80);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}, 1), 80);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}, 2), 3);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}, 3), 10);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}, 4), 50);
  EXPECT_NEAR(shopValue(1, {Variant("North")}, 5), 80.0 / 3, 1e-12);
}

TEST_F(AggregationTest, MeasureMayBeNamedByCaptionOrNumberText) {
  Variant cache("Shop");
  std::vector<Variant> none;
  EXPECT_DOUBLE_EQ(core_->value(cache, Variant("amount"), 0, none), 210);
  EXPECT_DOUBLE_EQ(core_->value(cache, Variant("2"), 0, none), 6);
  EXPECT_DOUBLE_EQ(core_->value(Variant("1"), Variant(1.0), 0, none), 210);
}

TEST_F(AggregationTest, MemoIsDroppedWhenTheCacheChanges) {
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}), 80);
  core_->writeBack(Variant("Shop"), Variant(int32_t{1}), 0, 100,
                   std::vector<Variant>{Variant("North"), Variant("A"), Variant("2023")});
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}), 170);
  ASSERT_TRUE(core_->undoWriteBack());
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}), 80);
  EXPECT_DOUBLE_EQ(shopValue(1, {}), 210);
}

TEST_F(AggregationTest, WithoutMemoTheSameAnswersCome) {
  options_.memoize = false;
  auto made = makeEngine(options_);
  CacheEngine& plain = *made;
  std::vector<Variant> filters{Variant("<<North,East"), Variant("<<A..B")};
  EXPECT_DOUBLE_EQ(plain.value(Variant("Shop"), Variant(int32_t{1}), 0, filters), 80);
  EXPECT_DOUBLE_EQ(plain.value(Variant("Shop"), Variant(int32_t{1}), 0, filters), 80);
}

TEST_F(AggregationTest, MatchingRowsAreAscendingWhateverDrivesTheWalk) {
  const LoadedCache& c = static_cast<EmbeddedCache&>(core_->cache(Variant("Shop"))).loaded();
  auto filters =
      parseFilters(c.model(), std::vector<Variant>{Variant("<<West,North"), Variant("<<B,A")});
  EXPECT_EQ(matchingRows(c, filters), (std::vector<RowId>{0, 1, 4, 5}));
}

}  // namespace
}  // namespace kxc::engine::testing
