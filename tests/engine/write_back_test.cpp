// Write-back: adjusting transactions at a leaf and spread over an aggregate, one journal entry
// each, undone by UndoWriteBack, and kept across a reopen of the database.
#include "engine/contract/write_back.h"

#include <gtest/gtest.h>

#include "engine/contract/engine_errors.h"
#include "shop_fixture.h"
#include "support/error_number.h"

namespace kxc::engine::testing {
namespace {

class WriteBackTest : public EngineTest {
 protected:
  // CacheWriteBack as the add-in sends it: name by value, measure by reference, 0, the value by
  // reference, then twenty filters by reference.
  void writeBack(int32_t measure, double newValue, std::vector<Variant> filters) {
    Variant m(measure), v(newValue);
    filters.resize(20);
    std::vector<Argument> args{val(Variant("Shop")), Argument::byRef(m), val(Variant(int16_t{0})),
                               Argument::byRef(v)};
    for (auto& f : filters) args.push_back(Argument::byRef(f));
    EXPECT_TRUE(call("CacheWriteBack", std::move(args)).isEmpty());
  }
  bool undo() { return call("UndoWriteBack").toBool(); }
  int64_t rows() { return core_->transactionCount(Variant("Shop")); }
};

TEST_F(WriteBackTest, LeafValueBecomesTheTypedNumberWithOneAdjustingRow) {
  writeBack(1, 75, {Variant("North"), Variant("A"), Variant("2024")});
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North"), Variant("A"), Variant("2024")}), 75);
  EXPECT_DOUBLE_EQ(shopValue(1, {}), 235);
  EXPECT_EQ(rows(), 7);
  // The other measures of the adjusting row hold no value: counts and averages are unchanged.
  EXPECT_DOUBLE_EQ(shopValue(2, {}), 6);
  EXPECT_DOUBLE_EQ(shopValue(3, {}), 3);
}

TEST_F(WriteBackTest, LeafWithoutTransactionsGetsOne) {
  writeBack(1, 12.5, {Variant("East"), Variant("Bananas"), Variant("2023")});
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("East"), Variant("B"), Variant("2023")}), 12.5);
}

TEST_F(WriteBackTest, AggregateIsSpreadInProportionToCurrentValues) {
  // North holds (A,2023)=10, (B,2023)=20, (A,2024)=50: 80 becomes 160, each cell doubles.
  writeBack(1, 160, {Variant("North")});
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}), 160);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North"), Variant("A"), Variant("2023")}), 20);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North"), Variant("B"), Variant("2023")}), 40);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North"), Variant("A"), Variant("2024")}), 100);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("South")}), 30);  // outside the selection
  EXPECT_EQ(rows(), 9);
}

TEST_F(WriteBackTest, AggregateOfZerosIsSpreadEvenly) {
  writeBack(1, 0, {Variant("North")});  // every North cell becomes 0 (proportional)
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North"), Variant("A"), Variant("2023")}), 0);
  writeBack(1, 90, {Variant("North")});
  for (auto [p, y] : {std::pair{"A", "2023"}, {"B", "2023"}, {"A", "2024"}}) {
    EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North"), Variant(p), Variant(y)}), 30) << p << y;
  }
}

TEST_F(WriteBackTest, SelectionTextSpreadsOverItsMembersOnly) {
  writeBack(1, 140, {Variant("<<South..East")});  // 30 + 40 -> 60 + 80
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("South")}), 60);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("East")}), 80);
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}), 80);
}

TEST_F(WriteBackTest, AverageBecomesExactAtLeafAndAggregate) {
  writeBack(3, 4, {Variant("North"), Variant("A"), Variant("2023")});
  EXPECT_NEAR(shopValue(3, {Variant("North"), Variant("A"), Variant("2023")}), 4, 1e-12);
  writeBack(3, 10, {Variant("North")});
  EXPECT_NEAR(shopValue(3, {Variant("North")}), 10, 1e-12);
  EXPECT_DOUBLE_EQ(shopValue(3, {Variant("South")}), 3);
}

TEST_F(WriteBackTest, CountMinMaxAndEmptyAggregatesAreRefused) {
  struct Case {
    int32_t measure;
    std::vector<Variant> filters;
  };
  const Case cases[] = {{2, {Variant("North"), Variant("A"), Variant("2023")}},
                        {4, {Variant("North")}},
                        {5, {}},
                        {1, {Variant("East"), Variant("A")}}};  // no transactions to spread over
  for (const auto& c : cases) {
    Variant m(c.measure);
    std::vector<Variant> f = c.filters;
    EXPECT_EQ(kxc::testing::errorNumber([&] { core_->writeBack(Variant("Shop"), m, 0, 5, f); }),
              engine_err::kCannotWriteBack);
  }
  EXPECT_EQ(rows(), 6);
  EXPECT_FALSE(undo());
}

TEST_F(WriteBackTest, BadFiltersWriteNothing) {
  EXPECT_EQ(kxc::testing::errorNumber([&] {
              core_->writeBack(Variant("Shop"), Variant(int32_t{1}), 0, 5,
                               std::vector<Variant>{Variant("Nowhere")});
            }),
            engine_err::kUnknownMember);
  EXPECT_EQ(kxc::testing::errorNumber([&] {
              core_->writeBack(Variant("Shop"), Variant(int32_t{1}), 0, 5,
                               std::vector<Variant>{Variant("<<North..")});
            }),
            engine_err::kBadFilter);
  EXPECT_EQ(rows(), 6);
}

TEST_F(WriteBackTest, UndoRevertsOneWholeWriteBackAtATime) {
  writeBack(1, 100, {Variant("North"), Variant("A"), Variant("2023")});
  writeBack(1, 160, {Variant("North")});  // several rows, one journal entry
  EXPECT_NE(core_->lastWriteBack().find("Shop / Amount at North, <ALL>, <ALL> = 160"),
            std::string::npos);
  EXPECT_TRUE(undo());
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}), 170);
  EXPECT_EQ(rows(), 7);
  EXPECT_TRUE(undo());
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North")}), 80);
  EXPECT_EQ(rows(), 6);
  EXPECT_FALSE(undo());
  EXPECT_EQ(core_->lastWriteBack(), "");
}

TEST_F(WriteBackTest, WrittenValuesAndJournalSurviveAReopen) {
  writeBack(1, 100, {Variant("North"), Variant("A"), Variant("2023")});
  core_->shutdown();
  {
    auto made = makeEngine(options_);
    CacheEngine& other = *made;
    EXPECT_DOUBLE_EQ(
        other.value(Variant("Shop"), Variant(int32_t{1}), 0,
                    std::vector<Variant>{Variant("North"), Variant("A"), Variant("2023")}),
        100);
    EXPECT_TRUE(other.undoWriteBack());
  }
  EXPECT_DOUBLE_EQ(shopValue(1, {Variant("North"), Variant("A"), Variant("2023")}), 10);
}

TEST_F(WriteBackTest, WritingTheCurrentValueAddsNothing) {
  writeBack(1, 80, {Variant("North")});
  writeBack(1, 10, {Variant("North"), Variant("A"), Variant("2023")});
  EXPECT_EQ(rows(), 6);
  EXPECT_FALSE(undo());
}

}  // namespace
}  // namespace kxc::engine::testing
